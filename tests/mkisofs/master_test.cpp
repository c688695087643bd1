// Tests of whole runs on real folders. A strict reader of our own reads the images.
#include <chrono>
#include <set>

#include "host/system.h"
#include "tests/mkisofs/mastering.h"
#include "tools/temporary_link.h"

namespace discwright::testing {
namespace {

using host::testing::BytesOfSize;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class MasterTree : public Mastering {};

TEST_F(MasterTree, EmptyTree_IsARootAlone) {
  EXPECT_THAT(Paths(MasteredImage()), ElementsAre(""));
  EXPECT_EQ(image.size(), (16 + 3 + 2 + 1 + 150) * 2048u);
}

TEST_F(MasterTree, OneFile_IsStored) {
  folder.Write("tree/file.txt", "content");
  const IsoImage iso = MasteredImage();
  EXPECT_THAT(Paths(iso), ElementsAre("", "file.txt"));
  EXPECT_EQ(Content(iso.Find("file.txt")), "content");
  EXPECT_THAT(messages, HasSubstr(std::to_string(iso.sectors) + " extents written (0 Mb)\n"));
}

TEST_F(MasterTree, ScriptOptions_MakeABootDiscThatHidesItsLoader) {
  folder.Write("tree/boot/loader.bin", BytesOfSize(40000));
  folder.Write("tree/I386/loader.bin", "also hidden");
  folder.Write("tree/I386/LOADER.BIN2", "not hidden");
  const IsoImage iso = MasteredImage(ScriptWords());
  EXPECT_THAT(Paths(iso), ElementsAre("", "I386", "boot", "I386/LOADER.BIN2"));
  EXPECT_EQ(iso.volume_id, "VEXA_RESCUE");
  EXPECT_EQ(iso.preparer, "Brennick");
  EXPECT_EQ(iso.publisher, "KORVANE LTD");
  EXPECT_EQ(iso.application_id, "Vexa CD Creator");
  EXPECT_EQ(iso.system_id, "");
  ASSERT_TRUE(iso.boot);
  EXPECT_EQ(iso.boot->catalogue, 20u);
  EXPECT_EQ(iso.boot->image, 21u);
  EXPECT_EQ(iso.boot->load_sectors, 4);
  EXPECT_EQ(iso.boot->id, "KORVANE LTD");
  EXPECT_EQ(image.substr(21 * 2048, 40000), BytesOfSize(40000));
  EXPECT_NE(image.find("also hidden"), std::string::npos);
  EXPECT_THAT(messages, HasSubstr("Eltorito"));
}

TEST_F(MasterTree, WithoutHide_LoaderAndCatalogueAreInTheTree) {
  folder.Write("tree/boot/loader.bin", "loader");
  const IsoImage iso = MasteredImage({"-b", "boot/loader.bin", "-c", "boot/catalog", "-no-emul-boot"});
  EXPECT_THAT(Paths(iso), ElementsAre("", "boot", "boot/catalog", "boot/loader.bin"));
  EXPECT_EQ(iso.Find("boot/catalog")->extent, iso.boot->catalogue);
  EXPECT_EQ(iso.Find("boot/loader.bin")->extent, iso.boot->image);
  EXPECT_EQ(iso.boot->load_sectors, 1);
}

TEST_F(MasterTree, HiddenFolder_KeepsItsFilesDataInTheImage) {
  folder.Write("tree/secret/deep/file", "data behind a hidden folder");
  folder.Write("tree/shown/file", "x");
  const IsoImage iso = MasteredImage({"-hide", "secret"});
  EXPECT_THAT(Paths(iso), ElementsAre("", "shown", "shown/file"));
  EXPECT_NE(image.find("data behind a hidden folder"), std::string::npos);
}

TEST_F(MasterTree, FilesAroundTheSectorSize_AreStoredWhole) {
  const std::vector<std::size_t> sizes = {0, 1, 2047, 2048, 2049, 262143, 262144, 262145, 1000000};
  for (const std::size_t size : sizes) folder.Write("tree/" + std::to_string(size), BytesOfSize(size));
  const IsoImage iso = MasteredImage();
  for (const std::size_t size : sizes) EXPECT_EQ(Content(iso.Find(std::to_string(size))), BytesOfSize(size)) << size;
}

// The files have so many different sizes that buffers become full at every kind of position: inside a file, at its end
// and in the padding after it.
TEST_F(MasterTree, ManyFilesOfManySizes_AreStoredWhole) {
  for (std::size_t i = 0; i < 400; ++i) folder.Write("tree/" + std::to_string(i), BytesOfSize(i * 37 % 9000));
  const IsoImage iso = MasteredImage();
  for (std::size_t i = 0; i < 400; ++i)
    ASSERT_EQ(Content(iso.Find(std::to_string(i))), BytesOfSize(i * 37 % 9000)) << i;
}

TEST_F(MasterTree, EmptyFiles_BeginInThePaddingOfTheImage) {
  folder.Write("tree/empty", "");
  folder.Write("tree/full", "x");
  folder.Write("tree/nothing", "");
  const IsoImage iso = MasteredImage();
  EXPECT_EQ(iso.Find("empty")->extent, iso.sectors - 150);
  EXPECT_EQ(iso.Find("nothing")->extent, iso.sectors - 150);
  EXPECT_EQ(image.substr(image.size() - 150 * 2048), std::string(150 * 2048, '\0'));
}

TEST_F(MasterTree, HardLinks_ShareOneExtent) {
  if (host::PlatformId() == 1) GTEST_SKIP() << "this Windows has no hard links";
  folder.Write("tree/a/one", BytesOfSize(5000));
  folder.MakeFolder("tree/b");
  folder.MakeHardLink("tree/a/one", "tree/b/two");
  folder.Write("tree/b/twin", BytesOfSize(5000));
  const IsoImage iso = MasteredImage({"-cache-inodes"});
  EXPECT_EQ(iso.Find("a/one")->extent, iso.Find("b/two")->extent);
  EXPECT_NE(iso.Find("a/one")->extent, iso.Find("b/twin")->extent);
  EXPECT_EQ(Content(iso.Find("b/two")), BytesOfSize(5000));
  const std::size_t shared = image.size();
  const IsoImage separate = MasteredImage({"-follow-links"});
  EXPECT_NE(separate.Find("a/one")->extent, separate.Find("b/two")->extent);
  EXPECT_EQ(image.size(), shared + 3 * 2048);
}

TEST_F(MasterTree, LinkedBootImage_IsStoredOnceAndFirst) {
  if (host::PlatformId() == 1) GTEST_SKIP() << "this Windows has no hard links";
  folder.Write("tree/a", "loader");
  folder.MakeHardLink("tree/a", "tree/loader.bin");
  const IsoImage iso = MasteredImage({"-cache-inodes", "-b", "loader.bin", "-no-emul-boot", "-hide", "boot.catalog"});
  EXPECT_EQ(iso.Find("a")->extent, iso.boot->image);
  EXPECT_EQ(Content(iso.Find("a")), "loader");
}

TEST_F(MasterTree, NamesOf1And207Bytes_AreStored) {
  const std::string longest(207, 'n');
  folder.Write("tree/x", "short");
  folder.Write("tree/" + longest, "long");
  folder.Write("tree/f/" + longest + "/y", "in a folder");
  const IsoImage iso = MasteredImage();
  EXPECT_EQ(Content(iso.Find(longest)), "long");
  EXPECT_EQ(Content(iso.Find("f/" + longest + "/y")), "in a folder");
}

TEST_F(MasterTree, NamesOf208Bytes_AreAnErrorThatNamesThem) {
  const std::string name(208, 'n');
  folder.Write("tree/I386/" + name, "x");
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr("tree/I386/" + name + ": the name is longer than 207 bytes"));
  ExpectNoImage();
}

TEST_F(MasterTree, OddNames_AreStoredByteForByte) {
  const std::vector<std::string> names = {
      ".lead", "a b", "a;1", "nodot", "plus+,=#()&~", "\x7F", "\xC3\xA4\xC3\xB6.txt"};
  for (const std::string& name : names) folder.Write("tree/" + name, name);
  const IsoImage iso = MasteredImage();
  for (const std::string& name : names) EXPECT_EQ(Content(iso.Find(name)), name);
}

TEST_F(MasterTree, FileThatIsNamedLikeTheCatalogue_IsAnErrorUnlessHidden) {
  folder.Write("tree/loader.bin", "loader");
  folder.Write("tree/boot.catalog", "old");
  EXPECT_EQ(Master({"-b", "loader.bin", "-no-emul-boot"}), 1);
  EXPECT_THAT(messages, HasSubstr("tree/boot.catalog: boot.catalog has the same name"));
  ExpectNoImage();
  EXPECT_THAT(Paths(MasteredImage({"-b", "loader.bin", "-no-emul-boot", "-hide", "boot.catalog"})),
              ElementsAre("", "loader.bin"));
}

struct BadBoot {
  std::string image, catalogue, problem;
};

TEST_F(MasterTree, BootImageOrCatalogueThatCannotBe_IsAnErrorThatNamesIt) {
  folder.Write("tree/boot/loader.bin", "loader");
  folder.Write("tree/empty", "");
  const std::vector<BadBoot> cases = {{"boot/missing.bin", "c", "boot/missing.bin: the boot image is not there"},
                                      {"boot/loader.bin/x", "c", "boot/loader.bin/x: the boot image is not there"},
                                      {"BOOT/loader.bin", "c", "BOOT/loader.bin: the boot image is not there"},
                                      {"boot", "c", "boot: the boot image is not a file"},
                                      {"empty", "c", "empty: the boot image is empty"},
                                      {"c", "c", "c: the boot image is not a file"},
                                      {"boot/loader.bin", "x/c", "x/c: the folder of the boot catalogue is not there"}};
  for (const auto& [boot, catalogue, problem] : cases) {
    EXPECT_EQ(Master({"-b", boot, "-no-emul-boot", "-c", catalogue}), 1) << boot;
    EXPECT_THAT(messages, HasSubstr("tree/" + problem));
    ExpectNoImage();
  }
}

TEST_F(MasterTree, TemporaryLinksOfAKilledLinker_AreNamedAndLeftOut) {
  const std::string link = tools::TemporaryLinkName(12);
  folder.Write("tree/sub/file", "content");
  folder.Write("tree/sub/" + link, "content");
  folder.Write("tree/" + link + "x", "a file of the user");
  folder.MakeFolder("tree/" + link);
  const IsoImage iso = MasteredImage();
  EXPECT_THAT(Paths(iso), ::testing::UnorderedElementsAre("", link, link + "x", "sub", "sub/file"));
  EXPECT_THAT(messages, HasSubstr("mkisofs: " + folder.Native("tree") + "/sub/" + link +
                                  " is a temporary link that an interrupted dfl has left: it is not on the disc\n"));
}

TEST_F(MasterTree, FilesOf4GiB_AreAnErrorThatNamesThem) {
  folder.Write("tree/huge", "");
  std::filesystem::resize_file(folder.Path("tree/huge"), 0x100000000);
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr("tree/huge: the file has 4 GiB or more"));
  ExpectNoImage();
}

TEST_F(MasterTree, MissingTree_IsAnErrorThatNamesIt) {
  std::filesystem::remove(folder.Path("tree"));
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr(folder.Native("tree") + ": "));
  folder.Write("tree", "a file");
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr(folder.Native("tree") + ": "));
  ExpectNoImage();
}

TEST_F(MasterTree, OutputThatCannotBeMade_IsAnErrorThatNamesIt) {
  folder.MakeFolder("image.iso");
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr("image.iso: "));
}

TEST_F(MasterTree, WrongUsage_HasItsOwnExitCodeAndShowsTheOptions) {
  EXPECT_EQ(Master({"-bad"}), 2);
  EXPECT_THAT(messages, HasSubstr("mkisofs: unknown option -bad\nUsage: "));
  ExpectNoImage();
}

TEST_F(MasterTree, ManyProblems_AreCountedAndTheFirstShown) {
  for (int i = 10; i < 40; ++i) folder.Write("tree/" + std::to_string(i) + std::string(206, 'n'), "x");
  EXPECT_EQ(Master(), 1);
  EXPECT_EQ(std::count(messages.begin(), messages.end(), '\n'), 21);
  EXPECT_THAT(messages, HasSubstr("and 10 more"));
}

TEST_F(MasterTree, StoppedByTheUser_LeavesNoImage) {
  folder.Write("tree/file", "x");
  stopped = [] { return true; };
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr("image.iso: interrupted"));
  ExpectNoImage();
}

// `stopped` is called after each file, so a test can change the next file there.
TEST_F(MasterTree, FileThatShrinksOrGrowsMeanwhile_IsAnErrorThatNamesIt) {
  folder.Write("tree/a", "first");
  for (const std::size_t size : {99u, 101u, 4096u, 262144u, 0u}) {
    folder.Write("tree/b", BytesOfSize(100));
    stopped = [this, size] { return folder.Write("tree/b", BytesOfSize(size)), false; };
    EXPECT_EQ(Master(), 1);
    EXPECT_THAT(messages, HasSubstr(size < 100 ? "tree/b: the file has shrunk" : "tree/b: the file has grown"));
    ExpectNoImage();
  }
}

TEST_F(MasterTree, FileThatGrowsPastAFullBuffer_IsAnError) {
  folder.Write("tree/a", "first");
  // The system area, three descriptors, two path tables, the root directory and "a" take 23 sectors.
  const std::size_t rest_of_buffer = 262144 - 23 * 2048;
  folder.Write("tree/b", BytesOfSize(rest_of_buffer));
  EXPECT_EQ(Content(MasteredImage().Find("b")), BytesOfSize(rest_of_buffer));
  std::filesystem::remove(folder.Path("image.iso"));
  stopped = [&] { return folder.Write("tree/b", BytesOfSize(rest_of_buffer + 1)), false; };
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr("tree/b: the file has grown"));
  ExpectNoImage();
}

TEST_F(MasterTree, FileThatVanishesMeanwhile_IsAnErrorThatNamesIt) {
  folder.Write("tree/a", "first");
  folder.Write("tree/b", "second");
  stopped = [this] { return std::filesystem::remove(folder.Path("tree/b")), false; };
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr("tree/b: "));
  ExpectNoImage();
}

TEST_F(MasterTree, FailedRun_KeepsAnEarlierImage) {
  folder.Write("image.iso", "earlier");
  folder.Write("tree/" + std::string(208, 'n'), "x");
  EXPECT_EQ(Master(), 1);
  EXPECT_EQ(folder.Read("image.iso"), "earlier");
  EXPECT_THAT(folder.Names(), ElementsAre("image.iso", "tree"));
}

TEST_F(MasterTree, FullDisk_IsReportedWithTheTextOfTheMonitorAndLeavesNoImage) {
  const host::testing::SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  folder.Write("tree/file", BytesOfSize(2000000));
  std::ostringstream said;
  const std::vector<std::string> words = {"-o", disk.folder().Native("image.iso"), folder.Native("tree")};
  EXPECT_EQ(tools::mkisofs::Master(words, {nullptr, kNow, stopped}, said), 1);
  EXPECT_THAT(said.str(), HasSubstr("image.iso: No space left on device\n"));
  EXPECT_THAT(disk.folder().Names(), ElementsAre());
}

TEST_F(MasterTree, Dates_AreThoseOfTheFilesAndOfTheRun) {
  folder.Write("tree/file", "x");
  const auto then = std::filesystem::file_time_type(std::chrono::file_clock::from_sys(std::chrono::sys_seconds()));
  std::filesystem::last_write_time(folder.Path("tree/file"), then);
  const IsoImage iso = MasteredImage();
  EXPECT_EQ(std::string(iso.created.begin(), iso.created.end() - 1), "2001090901464000");
  EXPECT_THAT(iso.Find("file")->recorded, ElementsAre(70, 1, 1, 0, 0, 0, 0));
}

TEST_F(MasterTree, SourceDate_MakesTreesOfEqualContentEqualImages) {
  source_date = "1000000000";
  const std::vector<std::string> names = {"a", "b/c", "b/d", "e/f/g", "loader.bin"};
  for (const std::string& name : names) folder.Write("tree/" + name, name);
  const IsoImage iso = MasteredImage({"-b", "loader.bin", "-no-emul-boot"});
  const std::string first = image;
  EXPECT_THAT(iso.Find("a")->recorded, ElementsAre(101, 9, 9, 1, 46, 40, 0));
  // The second tree has other inodes, another order in its folders, and other times after the source date.
  std::filesystem::rename(folder.Path("tree"), folder.Path("old"));
  for (auto name = names.rbegin(); name != names.rend(); ++name) folder.Write("tree/" + *name, *name);
  MasteredImage({"-no-emul-boot", "-b", "loader.bin"});
  EXPECT_EQ(image, first);
}

TEST_F(MasterTree, SourceDate_LeavesEarlierTimesAlone) {
  source_date = "2000000000";
  folder.Write("tree/file", "x");
  const auto then = std::chrono::file_clock::from_sys(std::chrono::sys_seconds(std::chrono::seconds(1000000000)));
  std::filesystem::last_write_time(folder.Path("tree/file"), std::filesystem::file_time_type(then));
  EXPECT_THAT(MasteredImage().Find("file")->recorded, ElementsAre(101, 9, 9, 1, 46, 40, 0));
}

TEST_F(MasterTree, WrongSourceDate_IsAnError) {
  source_date = "yesterday";
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages,
              HasSubstr("mkisofs: SOURCE_DATE_EPOCH in the environment takes a number of seconds since 1970"));
  ExpectNoImage();
}

TEST_F(MasterTree, Progress_IsShownForLargeImagesAlone) {
  folder.Write("tree/file", std::string(30000000, 'x'));
  EXPECT_EQ(Master(), 0);
  const std::size_t percent = messages.find("% done\n");
  ASSERT_NE(percent, messages.npos) << messages;
  ASSERT_GE(percent, 6u);
  const std::string number = messages.substr(percent - 6, 6);
  EXPECT_EQ(number.find_first_not_of("0123456789", 1), 3u) << number;
  EXPECT_EQ(number[0], ' ');
  EXPECT_EQ(number[3], '.');
  EXPECT_THAT(messages, Not(HasSubstr("100")));
}

#ifdef _WIN32  // Wine searches the whole folder for each new name
constexpr int kSiblings = 300;
#else
constexpr int kSiblings = 3000;
#endif

TEST_F(MasterTree, ManySiblingFolders_AreAllStored) {
  for (int i = 0; i < kSiblings; ++i) folder.MakeFolder("tree/folder" + std::to_string(i) + "/below");
  const std::string last = "folder" + std::to_string(kSiblings - 1) + "/below/file";
  folder.Write("tree/" + last, "x");
  const IsoImage iso = MasteredImage();
  EXPECT_EQ(iso.entries.size(), 1u + 2u * kSiblings + 1u);
  EXPECT_EQ(Content(iso.Find(last)), "x");
}

}  // namespace
}  // namespace discwright::testing
