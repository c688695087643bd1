// Tests of the ISO destination: accepted paths, the causes of refusals, and files that are not disc images.
#include "wizard/iso_destination.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/fake_host.h"

namespace discwright::wizard {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kCorrect = "";
constexpr const char* kEmpty = "The field is empty: enter the path of the image.";

class IsoDestinationTest : public ::testing::Test {
 protected:
  IsoDestinationTest() { host.AddFolder("E:\\images"); }
  testing::FakeHost host;
};

TEST_F(IsoDestinationTest, ExistingFile_IsCorrectAndUntouched) {
  host.AddFile("E:\\images\\cd.iso", "an image");
  EXPECT_EQ(WhyNoIsoDestination("E:\\images\\cd.iso"), kCorrect);
  EXPECT_EQ(host.Content("E:\\images\\cd.iso"), "an image");
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(IsoDestinationTest, ExistingFileThatCannotBeRead_IsNeitherEmptiedNorRemoved) {
  host.AddFile("E:\\images\\cd.iso", "an image");
  host.FailOn("CheckReadable", "cd.iso", host::ErrorClass::kAccessDenied);
  EXPECT_EQ(WhyNoIsoDestination("E:\\images\\cd.iso"), kCorrect);
  EXPECT_EQ(host.Content("E:\\images\\cd.iso"), "an image");
}

TEST_F(IsoDestinationTest, NewFileInAnExistingFolder_IsTriedOutWithoutATrace) {
  EXPECT_EQ(WhyNoIsoDestination("E:\\images\\new.iso"), kCorrect);
  EXPECT_THAT(host.calls,
              ElementsAre("OpenBinary E:\\images\\new.iso", "OpenBinary E:\\images\\.discwright-new.iso.test",
                          "RemoveFile E:\\images\\.discwright-new.iso.test"));
  EXPECT_FALSE(host.Exists("E:\\images\\new.iso"));
}

TEST_F(IsoDestinationTest, FileOfTheProgram_IsRefused) {
  host.AddFile("C:\\Discwright\\vexacd.ini", "[Vexa]");
  for (const char* name : {"VEXACD.ini", "keyfile2.txt", "mkisofs.exe"}) {
    const std::string path = std::string("C:\\Discwright\\") + name;
    EXPECT_EQ(WhyNoIsoDestination(path), path + " is a file that the program needs: choose another name.");
  }
  EXPECT_EQ(WhyNoIsoDestination("C:\\Discwright\\rescue.iso"), kCorrect);
}

TEST_F(IsoDestinationTest, NewFileOnADrive_IsCorrect) { EXPECT_EQ(WhyNoIsoDestination("E:\\new.iso"), kCorrect); }

TEST_F(IsoDestinationTest, NewFileInTheRootFolder_IsCorrect) {
  host.nodes[""].kind = host::EntryKind::kFolder;  // of a system without drives
  EXPECT_EQ(WhyNoIsoDestination("\\new.iso"), kCorrect);
  EXPECT_THAT(host.calls, ElementsAre("OpenBinary \\new.iso", "OpenBinary \\.discwright-new.iso.test",
                                      "RemoveFile \\.discwright-new.iso.test"));
}

TEST_F(IsoDestinationTest, BareFileName_IsTriedInTheCurrentFolder) {
  EXPECT_EQ(WhyNoIsoDestination("new.iso"), kCorrect);
  EXPECT_THAT(host.calls, ElementsAre("OpenBinary new.iso", "OpenBinary .discwright-new.iso.test",
                                      "RemoveFile .discwright-new.iso.test"));
  EXPECT_FALSE(host.Exists("C:\\Current\\new.iso"));
}

TEST_F(IsoDestinationTest, NothingOrBlanksOrQuotesAlone_IsEmpty) {
  for (const char* text : {"", "  ", "\"\"", " \"\" "}) EXPECT_EQ(WhyNoIsoDestination(text), kEmpty) << text;
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(IsoDestinationTest, MissingFolder_IsNamedAndNotMade) {
  const std::string why = "The folder E:\\nowhere does not exist: create it, or choose another place for the image.";
  EXPECT_EQ(WhyNoIsoDestination("E:\\nowhere\\new.iso"), why);
  EXPECT_EQ(WhyNoIsoDestination(" \"E:/nowhere/new.iso\" "), why);
  EXPECT_FALSE(host.Exists("E:\\nowhere"));
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(IsoDestinationTest, FileInPlaceOfTheFolder_IsNamed) {
  host.AddFile("E:\\file", "text");
  EXPECT_EQ(WhyNoIsoDestination("E:\\file\\new.iso"), "E:\\file is not a folder: choose another place for the image.");
}

TEST_F(IsoDestinationTest, FolderThatCannotBeRead_IsNotCalledMissing) {
  host.FailOn("ListFolder", "images", host::ErrorClass::kAccessDenied, "Permission denied");
  EXPECT_EQ(WhyNoIsoDestination("E:\\images\\new.iso"),
            "E:\\images cannot be read: Permission denied. Choose another place for the image.");
}

TEST_F(IsoDestinationTest, PlaceThatCannotBeLookedAt_IsRefusedAndNotTried) {
  host.FailOn("Look", "new.iso", host::ErrorClass::kAccessDenied, "Permission denied");
  EXPECT_EQ(WhyNoIsoDestination("E:\\images\\new.iso"),
            "E:\\images\\new.iso cannot be examined: Permission denied. Choose another place for the image.");
  host.FailOn("Look", "E:\\locked", host::ErrorClass::kAccessDenied, "Permission denied", 2);
  EXPECT_EQ(WhyNoIsoDestination("E:\\locked\\other.iso"),
            "E:\\locked\\other.iso cannot be examined: Permission denied. Choose another place for the image.");
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(IsoDestinationTest, PathThatBeginsWithATilde_IsNotTheHomeFolder) {
  const std::string rest = " begins with \"~\", which is not expanded: write the whole path.";
  EXPECT_EQ(WhyNoIsoDestination("~/cd.iso"), "~/cd.iso" + rest);
  EXPECT_EQ(WhyNoIsoDestination("\"~\\images\\cd.iso\""), "~\\images\\cd.iso" + rest);
}

TEST_F(IsoDestinationTest, FolderThatIsCalledTilde_IsOneLikeAnyOther) {
  host.AddFolder("C:\\Current\\~");
  EXPECT_EQ(WhyNoIsoDestination("~\\cd.iso"), kCorrect);
}

TEST_F(IsoDestinationTest, Folder_NeedsAName) {
  const std::string why = "E:\\images is a folder: add the name of the image.";
  for (const char* text :
       {"E:\\images", "E:\\images\\", "E:/images/", "\"E:\\images\"", "\"E:\\images\\\"", " E:\\images "}) {
    EXPECT_EQ(WhyNoIsoDestination(text), why) << text;
  }
  EXPECT_EQ(WhyNoIsoDestination("E:\\new\\"), "E:\\new is a folder: add the name of the image.");
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(IsoDestinationTest, LinkToAFolder_NeedsAName) {
  host.AddLink("E:\\link", "E:\\images");
  EXPECT_EQ(WhyNoIsoDestination("E:\\link"), "E:\\link is a folder: add the name of the image.");
}

TEST_F(IsoDestinationTest, QuotesAndBlanksAroundTheName_AreNoPartOfIt) {
  host.AddFile("E:\\images\\cd.iso", "an image");
  EXPECT_EQ(WhyNoIsoDestination("\"E:\\images\\cd.iso\""), kCorrect);
  EXPECT_EQ(WhyNoIsoDestination(" E:\\images\\cd.iso "), kCorrect);
  EXPECT_EQ(WhyNoIsoDestination("E:\\images\\cd.iso\\"), kCorrect);
  EXPECT_THAT(host.calls, IsEmpty());
  EXPECT_EQ(WhyNoIsoDestination(" \"E:\\images\\new.iso\""), kCorrect);
  EXPECT_THAT(host.calls,
              ElementsAre("OpenBinary E:\\images\\new.iso", "OpenBinary E:\\images\\.discwright-new.iso.test",
                          "RemoveFile E:\\images\\.discwright-new.iso.test"));
}

TEST_F(IsoDestinationTest, DevicePipeOrSocket_IsNeverOpened) {
  host.AddSpecial("E:\\images\\pipe");
  for (const char* text : {"E:\\images\\pipe", "\"E:\\images\\pipe\""}) {
    EXPECT_EQ(WhyNoIsoDestination(text), "E:\\images\\pipe is a device or a pipe: choose another name.");
  }
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(IsoDestinationTest, Wildcard_IsCorrectWhereItMatches) {
  host.AddFile("E:\\images\\cd.iso", "an image");
  EXPECT_EQ(WhyNoIsoDestination("\"E:\\images\\c*.iso\""), kCorrect);
  EXPECT_THAT(host.calls, IsEmpty());
  EXPECT_EQ(WhyNoIsoDestination("E:\\nowhere\\c*.iso"),
            "The folder E:\\nowhere does not exist: create it, or choose another place for the image.");
}

TEST_F(IsoDestinationTest, LinkToNothing_IsNamedAndItsTargetIsNotMade) {
  host.AddLink("E:\\images\\cd.iso", "E:\\images\\target.iso");
  EXPECT_EQ(WhyNoIsoDestination("E:\\images\\cd.iso"),
            "E:\\images\\cd.iso is a link whose target is missing: remove it, or choose another name.");
  EXPECT_TRUE(host.Exists("E:\\images\\cd.iso"));
  EXPECT_FALSE(host.Exists("E:\\images\\target.iso"));
}

TEST_F(IsoDestinationTest, FileThatCannotBeCreated_IsReportedWithTheCause) {
  host.FailOn("OpenBinary", "new.iso", host::ErrorClass::kAccessDenied, "Permission denied");
  EXPECT_EQ(WhyNoIsoDestination("E:/images/new.iso"), "E:\\images\\new.iso cannot be written: Permission denied.");
}

TEST_F(IsoDestinationTest, ProbeThatCannotBeWritten_IsReportedWithTheCauseAndRemoved) {
  host.FailOn("WriteAt", "new.iso", host::ErrorClass::kDiskFull, "No space left on device");
  EXPECT_EQ(WhyNoIsoDestination("E:\\images\\new.iso"),
            "E:\\images\\new.iso cannot be written: No space left on device.");
  EXPECT_FALSE(host.Exists("E:\\images\\new.iso"));
}

TEST_F(IsoDestinationTest, ProbeThatCannotBeRemoved_IsReportedWithTheCauseAndHoldsTheTestLine) {
  host.FailOn("RemoveFile", "new.iso", host::ErrorClass::kAccessDenied, "Permission denied");
  EXPECT_EQ(WhyNoIsoDestination("E:\\images\\new.iso"), "E:\\images\\new.iso cannot be written: Permission denied.");
  EXPECT_EQ(host.Content("E:\\images\\.discwright-new.iso.test"), "Test\r\n");
  EXPECT_FALSE(host.Exists("E:\\images\\new.iso"));
}

TEST_F(IsoDestinationTest, TestFileOfAKilledRun_IsReplacedAndRemoved) {
  host.AddFile("E:\\images\\.discwright-new.iso.test", "Te");
  EXPECT_EQ(WhyNoIsoDestination("E:\\images\\new.iso"), kCorrect);
  EXPECT_THAT(host.Files(), IsEmpty());
}

TEST_F(IsoDestinationTest, TestFileThatAnotherRunHasDeleted_IsNoFailure) {
  host.FailOn("RemoveFile", ".discwright-new.iso.test", host::ErrorClass::kNotFound);
  EXPECT_EQ(WhyNoIsoDestination("E:\\images\\new.iso"), kCorrect);
}

TEST_F(IsoDestinationTest, NameThatTheSystemRefuses_IsReportedAlthoughTheTestFileCouldBeMade) {
  host.FailOn("OpenBinary", "E:\\images\\new.iso", host::ErrorClass::kOther, "File name too long");
  EXPECT_EQ(WhyNoIsoDestination("E:\\images\\new.iso"), "E:\\images\\new.iso cannot be written: File name too long.");
  EXPECT_THAT(host.calls, ElementsAre("OpenBinary E:\\images\\new.iso"));
}

// A file with the mark of a disc image at its place, cut to `size` bytes.
std::string DiscImage(std::size_t size) {
  std::string image(40960, '\0');
  image.replace(32769, 5, "CD001");
  return image.substr(0, size);
}

class HoldsSomethingElseTest : public IsoDestinationTest {
 protected:
  bool Holds(const std::string& content) {
    host.AddFile("E:\\images\\cd.iso", content);
    return HoldsSomethingElse("E:\\images\\cd.iso");
  }
};

TEST_F(HoldsSomethingElseTest, EmptyFile_HoldsNothing) { EXPECT_FALSE(Holds("")); }

TEST_F(HoldsSomethingElseTest, DiscImage_IsNothingElse) { EXPECT_FALSE(Holds(DiscImage(40960))); }

TEST_F(HoldsSomethingElseTest, FileThatEndsBehindTheMark_IsADiscImage) { EXPECT_FALSE(Holds(DiscImage(32774))); }

TEST_F(HoldsSomethingElseTest, FileThatEndsInTheMark_IsNone) { EXPECT_TRUE(Holds(DiscImage(32773))); }

TEST_F(HoldsSomethingElseTest, ShortText_IsSomethingElse) { EXPECT_TRUE(Holds("CD001")); }

TEST_F(HoldsSomethingElseTest, MarkBesideItsPlace_IsNone) {
  EXPECT_TRUE(Holds(DiscImage(40960).insert(0, 1, '\0')));
  EXPECT_TRUE(Holds(DiscImage(40960).substr(1)));
  EXPECT_TRUE(Holds(std::string(40960, '\0')));
}

TEST_F(HoldsSomethingElseTest, FileThatCannotBeOpenedOrRead_IsNoDiscImage) {
  host.FailOn("OpenBinary", "cd.iso", host::ErrorClass::kAccessDenied, "injected", 1);
  EXPECT_TRUE(Holds(DiscImage(40960)));
  host.FailOn("ReadAt", "cd.iso", host::ErrorClass::kOther, "injected", 1);
  EXPECT_TRUE(Holds(DiscImage(40960)));
  EXPECT_FALSE(Holds(DiscImage(40960)));
}

TEST_F(HoldsSomethingElseTest, FolderDeviceOrNothing_HoldsNoFile) {
  host.AddSpecial("E:\\images\\pipe");
  for (const char* text : {"E:\\images", "E:\\images\\pipe", "E:\\images\\new.iso", "", "\"\""}) {
    EXPECT_FALSE(HoldsSomethingElse(text)) << text;
  }
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(HoldsSomethingElseTest, QuotesAndBlanksAroundTheName_AreNoPartOfIt) {
  host.AddFile("E:\\images\\notes.txt", "mine");
  EXPECT_TRUE(HoldsSomethingElse(" \"E:\\images\\notes.txt\" "));
  EXPECT_EQ(host.Content("E:\\images\\notes.txt"), "mine");
}

}  // namespace
}  // namespace discwright::wizard
