// Tests of the answer files of Windows Setup: their bytes, their values and their failures.
#include "settings/answer_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "settings/key_files.h"
#include "settings/win2k_info.h"
#include "settings/win9x_info.h"
#include "tests/support/fake_host.h"

namespace discwright::settings {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const std::string kKeyFile = "C:\\Discwright\\keyfile.txt";
const std::string kUnattend = "C:\\cd\\winnt.sif";
const std::string kBatch = "C:\\cd\\msbatch.inf";
const std::string kWin2KTemplate = "C:\\Discwright\\files\\inf_files\\win2k_template.inf";
const std::string kWin98Template = "C:\\Discwright\\files\\inf_files\\win98_template.inf";
const std::string kWinMeTemplate = "C:\\Discwright\\files\\inf_files\\winme_template.inf";
const std::string kMine = "D:\\mine.txt";
const std::string kWin2KKeys =
    "[Win2KInfo]\r\nOwnerName=Ann\r\nOrganization=Acme\r\nComputerName=PC\r\nWorkgroup=GROUP\r\n";

class AnswerFileTest : public ::testing::Test {
 protected:
  AnswerFileTest() {
    host.AddFolder("C:\\cd");
    host.AddFile(kWin2KTemplate, "[Unattended]\r\nUnattendMode=ProvideDefault\r\n");
    host.AddFile(kWin98Template, "[Setup]\r\nExpress=0 ; 98\r\n");
    host.AddFile(kWinMeTemplate, "[Setup]\r\nExpress=0 ; Me\r\n");
  }

  testing::FakeHost host;
  util::Notes notes;

  // The answer file that is made from a key file with these lines.
  std::string Unattend(const std::string& keys) {
    host.AddFile(kKeyFile, keys);
    EXPECT_TRUE(FillSetupDataFromKeyFileToUnattend(notes, kKeyFile, kUnattend));
    return host.Content(kUnattend);
  }
  std::string UnattendOfTemplate(const std::string& bytes) {
    host.AddFile(kMine, bytes);
    return Unattend("[Win2KInfo]\r\nTemplateFile=" + kMine + "\r\nOwnerName=Jürgen\r\n");
  }
  std::string LineOfOwner(const std::string& owner) {
    INIFile(kKeyFile).SetINIKey(kWin2KSection, "OwnerName", owner);
    EXPECT_TRUE(FillSetupDataFromKeyFileToUnattend(notes, kKeyFile, kUnattend));
    const std::string text = host.Content(kUnattend);
    const std::size_t start = text.find("FullName=");
    return text.substr(start, text.find("\r\n", start) - start);
  }
};

TEST_F(AnswerFileTest, MissingKeyFile_IsASuccessThatTouchesNothingAndIsNoted) {
  host.AddFile(kUnattend, "old");
  host.AddFile(kBatch, "old");
  EXPECT_TRUE(FillSetupDataFromKeyFileToUnattend(notes, "C:\\none.txt", kUnattend));
  EXPECT_TRUE(FillSetupDataFromKeyFileToMSBatch(notes, "C:\\none.txt", kBatch));
  EXPECT_EQ(host.Content(kUnattend), "old");
  EXPECT_EQ(host.Content(kBatch), "old");
  ASSERT_FALSE(notes.all().empty());
  EXPECT_EQ(notes.all()[0].place, "C:\\none.txt");
}

TEST_F(AnswerFileTest, Unattend_HasTheTemplateAndTheAnswersInOrder) {
  EXPECT_EQ(Unattend(kWin2KKeys),
            "[Unattended]\r\nUnattendMode=ProvideDefault\r\n"
            "[Data]\r\nMsDosInitiated=0\r\nUnattendedInstall=Yes\r\n"
            "[UserData]\r\nFullName=Ann\r\nOrgName=Acme\r\nComputerName=PC\r\n"
            "[Identification]\r\nJoinWorkgroup=GROUP\r\nJoinDomain=\r\n");
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(AnswerFileTest, KeysOfTheTemplate_AreReplacedInPlaceAndAllElseStays) {
  host.AddFile(kWin2KTemplate,
               "; top\r\n[Identification]\r\nJoinDomain = OLD\r\n[UserData]\r\nFullName = \"Old\" ; mine\r\n\r\n"
               "ProductID=\"x\"\r\n[Data]\r\nUnattendedInstall=\"No\"\r\n");
  EXPECT_EQ(Unattend(kWin2KKeys),
            "; top\r\n[Identification]\r\nJoinDomain = \r\nJoinWorkgroup=GROUP\r\n[UserData]\r\nFullName = Ann\r\n\r\n"
            "ProductID=\"x\"\r\nOrgName=Acme\r\nComputerName=PC\r\n[Data]\r\nUnattendedInstall=Yes\r\n"
            "MsDosInitiated=0\r\n");
}

TEST_F(AnswerFileTest, JoinDomainTrue_StillJoinsAWorkgroup) {
  for (const char* word : {"True", "False", "", "\"True\"", "0", "00x"}) {
    EXPECT_THAT(Unattend(kWin2KKeys + "JoinDomain=" + word + "\r\n"),
                HasSubstr("[Identification]\r\nJoinWorkgroup=GROUP\r\nJoinDomain=\r\n"))
        << word;
  }
}

TEST_F(AnswerFileTest, JoinDomainAsANumberOtherThanZero_JoinsTheDomain) {
  for (const char* number : {"1", "-1", "\"2\"", " 1 or so"}) {
    EXPECT_THAT(Unattend(kWin2KKeys + "JoinDomain=" + number + "\r\n"),
                HasSubstr("[Identification]\r\nJoinDomain=GROUP\r\nJoinWorkgroup=\r\n"))
        << number;
  }
}

TEST_F(AnswerFileTest, TemplateOfTheUser_IsTakenAndOnlyRead) {
  host.AddFile(kMine, "[Mine]\r\nx=1\r\n", true);
  for (const std::string& spelled : {kMine, '"' + kMine + '"', "\"\"" + kMine + "\"\""}) {
    EXPECT_THAT(Unattend("[Win2KInfo]\r\nTemplateFile=" + spelled + "\r\n"), HasSubstr("[Mine]\r\nx=1\r\n"));
  }
  EXPECT_EQ(host.Content(kMine), "[Mine]\r\nx=1\r\n");
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(AnswerFileTest, TemplateOfTheUserThatIsGone_FallsBackToTheProgramsAndIsNoted) {
  EXPECT_THAT(Unattend("[Win2KInfo]\r\nTemplateFile=" + kMine + "\r\n"), HasSubstr("UnattendMode=ProvideDefault"));
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].place, kMine);
  EXPECT_EQ(notes.all()[0].cause,
            "could not be opened (paths are cut at 99 characters); the answer file is made from the program's own "
            "template");
}

TEST_F(AnswerFileTest, OwnTemplateWithALongPath_IsUsedWithoutANote) {
  host.program_folder = "C:\\" + std::string(120, 'x');
  const std::string own = host.program_folder + "\\files\\inf_files\\win2k_template.inf";
  host.AddFile(own, "[Mine]\r\nx=1\r\n");
  EXPECT_THAT(Unattend("[Win2KInfo]\r\nTemplateFile=" + own + "\r\n"), HasSubstr("[Mine]\r\nx=1\r\n"));
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(AnswerFileTest, OwnTemplateWithALongPathAsTheSystemSpellsIt_IsUsedWithoutANote) {
  host.shows_slashes = true;
  host.program_folder = "\\home\\" + std::string(120, 'x');
  host.AddFile(host.program_folder + "\\files\\inf_files\\win2k_template.inf", "[Mine]\r\nx=1\r\n");
  const std::string own = "/home/" + std::string(120, 'x') + "/files/inf_files/win2k_template.inf";
  EXPECT_THAT(Unattend("[Win2KInfo]\r\nTemplateFile=" + own + "\r\n"), HasSubstr("[Mine]\r\nx=1\r\n"));
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(AnswerFileTest, TemplateThatIsTheOldAnswerFile_IsDeletedBeforeItIsRead) {
  host.AddFile(kUnattend, "[Mine]\r\nx=1\r\n");
  EXPECT_THAT(Unattend("[Win2KInfo]\r\nTemplateFile=" + kUnattend + "\r\n"), HasSubstr("UnattendMode=ProvideDefault"));
}

TEST_F(AnswerFileTest, MSBatch_HasTheAnswersInOrder) {
  host.AddFile(kKeyFile,
               "[Win9xInfo]\r\nOwnerName=Ann\r\nOrganization=Acme\r\nOptimizedFor=Microsoft Windows 98\r\n"
               "ComputerName=PC\r\nWorkgroup=GROUP\r\n");
  EXPECT_TRUE(FillSetupDataFromKeyFileToMSBatch(notes, kKeyFile, kBatch));
  EXPECT_EQ(host.Content(kBatch),
            "[Setup]\r\nExpress=0 ; 98\r\n[NameAndOrg]\r\nName=Ann\r\nOrg=Acme\r\n"
            "[Network]\r\nComputerName=PC\r\nWorkgroup=GROUP\r\n");
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(AnswerFileTest, MSBatchOptimizedForAnythingWith98_TakesItsTemplateAndThatOfMeOtherwise) {
  const std::map<std::string, std::string> makers = {
      {"Microsoft Windows 98 SE", "98"}, {"1998", "98"}, {"Microsoft Windows Millennium", "Me"}, {"", "Me"}};
  for (const auto& [system, wanted] : makers) {
    host.AddFile(kKeyFile, "[Win9xInfo]\r\nOptimizedFor=" + system + "\r\n");
    EXPECT_TRUE(FillSetupDataFromKeyFileToMSBatch(notes, kKeyFile, kBatch));
    EXPECT_THAT(host.Content(kBatch), HasSubstr("Express=0 ; " + wanted + "\r\n")) << system;
  }
}

TEST_F(AnswerFileTest, MSBatchOfAFreshBuildCopy_IsAlwaysForMe) {
  FillSetupDataToKeyFile(forms::FrmWin9xInfo{});
  FillKeyFile(notes, {.AddInfo_toWin9xSetup = true});
  EXPECT_TRUE(FillSetupDataFromKeyFileToMSBatch(notes, kKeyFile, kBatch));
  EXPECT_THAT(host.Content(kBatch), HasSubstr("Express=0 ; Me\r\n"));
}

TEST_F(AnswerFileTest, ReadOnlyOldFile_IsReplaced) {
  host.AddFile(kUnattend, "[Old]\r\n", true);
  host.AddFile(kBatch, "[Old]\r\n", true);
  host.AddFile(kKeyFile, kWin2KKeys);
  EXPECT_TRUE(FillSetupDataFromKeyFileToUnattend(notes, kKeyFile, kUnattend));
  EXPECT_TRUE(FillSetupDataFromKeyFileToMSBatch(notes, kKeyFile, kBatch));
  EXPECT_TRUE(host.Content(kUnattend).starts_with("[Unattended]"));
  EXPECT_TRUE(host.Content(kBatch).starts_with("[Setup]"));
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(AnswerFileTest, AnswerFile_IsWrittenOnce) {
  host.AddFile(kKeyFile, kWin2KKeys);
  EXPECT_TRUE(FillSetupDataFromKeyFileToUnattend(notes, kKeyFile, kUnattend));
  EXPECT_THAT(host.calls, ElementsAre("RemoveFile " + kUnattend, "WriteWholeFile " + kUnattend));
}

TEST_F(AnswerFileTest, ValuesWithUmlauts_AreWindows1252) {
  EXPECT_EQ(LineOfOwner("Jürgen, 5 €"), "FullName=\"J\xFCrgen, 5 \x80\"");
  EXPECT_EQ(LineOfOwner("Ã¤"), "FullName=\xC3\xA4");  // the same bytes could be read as UTF-8
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(AnswerFileTest, CharactersThatWindows1252Lacks_BecomeQuestionMarksAndAreNoted) {
  EXPECT_EQ(LineOfOwner("Jürgen Ω日\U0001F4BF"), "FullName=J\xFCrgen ???");
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].place, kKeyFile);
  EXPECT_THAT(notes.all()[0].cause, HasSubstr("OwnerName"));
}

TEST_F(AnswerFileTest, BytesThatAreNoText_BecomeQuestionMarksAndAreNoted) {
  EXPECT_EQ(LineOfOwner("J\xFCrgen Ω"), "FullName=J?rgen ?");
  EXPECT_THAT(notes.all(), SizeIs(1));
}

TEST_F(AnswerFileTest, EveryByteOfATemplate_ComesOutAsItWentIn) {
  std::string bytes;
  for (int byte = 255; byte > 0; --byte) {
    if (byte != '\r' && byte != '\n') bytes += static_cast<char>(byte);
  }
  const std::string text = UnattendOfTemplate("[Mine]\r\n;" + bytes + std::string(1, '\0') + "\r\n");
  EXPECT_TRUE(text.starts_with("[Mine]\r\n;" + bytes + std::string(1, '\0') + "\r\n[Data]\r\n"));
  EXPECT_THAT(text, HasSubstr("FullName=J\xFCrgen\r\n"));
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(AnswerFileTest, TemplateWithTheMarkOfUtf8_StaysAsItIsAndIsNoted) {
  const std::string start = "\xEF\xBB\xBF; für Ω 5 €\n[UserData]\r\n";
  const std::string text = UnattendOfTemplate(start + "FullName=\"\"\r\n");
  EXPECT_TRUE(text.starts_with(start + "FullName=J\xFCrgen\r\n")) << text;
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].place, kMine);
  EXPECT_THAT(notes.all()[0].cause, HasSubstr("please save it as plain text"));
}

TEST_F(AnswerFileTest, TemplateInUtf8WithoutAMark_StaysAsItIs) {
  const std::string text = UnattendOfTemplate("; für Ω 5 €\r\n[UserData]\r\nFullName=\"\"\r\n");
  EXPECT_TRUE(text.starts_with("; für Ω 5 €\r\n[UserData]\r\nFullName=J\xFCrgen\r\n")) << text;
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(AnswerFileTest, TemplateInUtf16_IsNotedAndThereIsNoAnswerFile) {
  for (const std::string mark : {"\xFF\xFE", "\xFE\xFF"}) {
    notes = {};
    host.AddFile(kMine, mark + "x");
    host.AddFile(kUnattend, "of the setup CD");
    host.AddFile(kKeyFile, "[Win2KInfo]\r\nTemplateFile=" + kMine + "\r\n");
    EXPECT_TRUE(FillSetupDataFromKeyFileToUnattend(notes, kKeyFile, kUnattend));
    ASSERT_THAT(notes.all(), SizeIs(1));
    EXPECT_EQ(notes.all()[0].place, kMine);
    EXPECT_THAT(notes.all()[0].cause, HasSubstr("please save it as plain text"));
    EXPECT_FALSE(host.Exists(kUnattend));
  }
}

TEST_F(AnswerFileTest, LineEndsOfOtherSystems_StayAndNewLinesEndInCrLf) {
  EXPECT_EQ(UnattendOfTemplate("[Data]\nMsDosInitiated=1\n\n[UserData]\rFullName=x\r\rOrgName=y\r\n; end"),
            "[Data]\nMsDosInitiated=0\nUnattendedInstall=Yes\r\n\n"
            "[UserData]\rFullName=J\xFCrgen\r\rOrgName=\r\n; end\r\nComputerName=\r\n"
            "[Identification]\r\nJoinWorkgroup=\r\nJoinDomain=\r\n");
}

// The user may need lines that Setup ignores, so every byte of them stays in the file.
TEST_F(AnswerFileTest, LinesThatAreNoKeys_ComeOutByteByByte) {
  const std::string odd = std::string("\xFF\xFE no text\n\r\n \t \r\r\n= \n[") + std::string(3, '\0') + "\x1A\n";
  EXPECT_EQ(UnattendOfTemplate("[Data]\r\nMsDosInitiated=0\r\nUnattendedInstall=Yes\r\n"
                               "[UserData]\nFullName=J\xFCrgen\nOrgName=\nComputerName=\n"
                               "[Identification]\nJoinWorkgroup=\nJoinDomain=\n" +
                               odd),
            "[Data]\r\nMsDosInitiated=0\r\nUnattendedInstall=Yes\r\n"
            "[UserData]\nFullName=J\xFCrgen\nOrgName=\nComputerName=\n"
            "[Identification]\nJoinWorkgroup=\nJoinDomain=\n" +
                odd);
}

TEST_F(AnswerFileTest, ValuesThatSetupWouldMisread_AreQuoted) {
  EXPECT_EQ(LineOfOwner("Müller, Söhne"), "FullName=\"M\xFCller, S\xF6hne\"");
  EXPECT_EQ(LineOfOwner("a;b"), "FullName=\"a;b\"");
  EXPECT_EQ(LineOfOwner("a=b"), "FullName=\"a=b\"");
  EXPECT_EQ(LineOfOwner("100 %"), "FullName=\"100 %\"");
  EXPECT_EQ(LineOfOwner("a \"b\" c"), "FullName=\"a \"b\" c\"");
  EXPECT_EQ(LineOfOwner("C:\\"), "FullName=\"C:\\\"");
  EXPECT_EQ(LineOfOwner("\"\ta\""), "FullName=\"\"\ta\"\"");
  EXPECT_EQ(LineOfOwner("'Joe'"), "FullName=\"'Joe'\"");
}

TEST_F(AnswerFileTest, ValueWithBlanksAtItsEnds_LosesThem) {
  EXPECT_EQ(LineOfOwner("  Ann  Lee "), "FullName=Ann  Lee");
}

TEST_F(AnswerFileTest, PlainValues_AreNotQuoted) {
  for (const std::string value : {"VexaUser", "KORVANE LTD.", "it's", "C:\\x", ""}) {
    EXPECT_EQ(LineOfOwner(value), "FullName=" + value);
  }
}

TEST_F(AnswerFileTest, ValueWithLineEnds_StaysOnItsLine) {
  EXPECT_EQ(LineOfOwner("a\r\n[UserData]\nFullName=b"), "FullName=\"a  [UserData] FullName=b\"");
}

TEST_F(AnswerFileTest, ValueOf99Characters_IsWhole) {
  std::string value;
  for (int i = 0; i < 99; ++i) value += "ü";
  EXPECT_EQ(LineOfOwner(value), "FullName=" + std::string(99, '\xFC'));
  EXPECT_EQ(LineOfOwner('"' + std::string(97, 'x') + '"'), "FullName=\"\"" + std::string(97, 'x') + "\"\"");
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(AnswerFileTest, ValueOf100Characters_IsCutAndNoted) {
  EXPECT_EQ(LineOfOwner(std::string(100, 'x')), "FullName=" + std::string(99, 'x'));
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].place, kKeyFile);
  EXPECT_THAT(notes.all()[0].cause, HasSubstr("OwnerName"));
}

// A value passes from the field of a dialog through two key files to the answer file.
TEST_F(AnswerFileTest, HardValues_SurviveTheWayFromBothDialogs) {
  for (const std::string& value :
       {std::string("\"Joe\""), std::string("'Joe'"), std::string("\"a\" and \"b\""), std::string("\""),
        std::string("\"\""), std::string("'"), std::string("'\""), std::string("Müller, Söhne & Co; = 100 % \"gut\""),
        std::string("=x"), std::string(";x"), std::string("[x]"), std::string("%name%"), std::string("C:\\"),
        std::string("€ Š ž"), std::string(99, 'x'), "\"" + std::string(97, 'x') + "\""}) {
    forms::FrmWin2KInfo win2k;
    forms::FrmWin9xInfo win9x;
    for (forms::TextBox* box : {&win2k.TxtOwner, &win2k.TxtOrg, &win2k.TxtPCName, &win2k.TxtWorkgroup, &win9x.TxtOwner,
                                &win9x.TxtOrg, &win9x.TxtPCName, &win9x.TxtWorkgroup}) {
      box->text = value;
    }
    CmdOK_Click(win2k, notes);
    CmdOK_Click(win9x, notes);
    FillKeyFile(notes, {.AddInfo_toWin9xSetup = true, .AddInfo_toWin2KSetup = true});
    EXPECT_TRUE(FillSetupDataFromKeyFileToUnattend(notes, kKeyFile, kUnattend));
    EXPECT_TRUE(FillSetupDataFromKeyFileToMSBatch(notes, kKeyFile, kBatch));
    const INIFile unattend(kUnattend);
    const INIFile batch(kBatch);
    EXPECT_EQ(unattend.GetINIKey("UserData", "FullName"), value);
    EXPECT_EQ(unattend.GetINIKey("UserData", "OrgName"), value);
    EXPECT_EQ(unattend.GetINIKey("UserData", "ComputerName"), value);
    EXPECT_EQ(unattend.GetINIKey("Identification", "JoinWorkgroup"), value);
    EXPECT_EQ(batch.GetINIKey("NameAndOrg", "Name"), value);
    EXPECT_EQ(batch.GetINIKey("NameAndOrg", "Org"), value);
    EXPECT_EQ(batch.GetINIKey("Network", "ComputerName"), value);
    EXPECT_EQ(batch.GetINIKey("Network", "Workgroup"), value);
  }
  EXPECT_THAT(notes.all(), IsEmpty());
}

struct Failure {
  const char* function;
  const char* place;
  std::string cause;
};

class AnswerFileFailures : public AnswerFileTest, public ::testing::WithParamInterface<Failure> {};

TEST_P(AnswerFileFailures, Call_IsNotedWithPlaceAndCauseAndEndsTheStep) {
  const auto& [function, place, cause] = GetParam();
  host.AddFile(kKeyFile, kWin2KKeys + "[Win9xInfo]\r\nOptimizedFor=98\r\n");
  host.AddFile(kUnattend, "old");
  host.AddFile(kBatch, "old");
  host.FailOn(function, place, host::ErrorClass::kNotReady, "the disk is gone");
  for (const auto& [fill, file] : {std::pair(&FillSetupDataFromKeyFileToUnattend, kUnattend),
                                   std::pair(&FillSetupDataFromKeyFileToMSBatch, kBatch)}) {
    notes = {};
    EXPECT_FALSE(fill(notes, kKeyFile, file));
    ASSERT_THAT(notes.all(), SizeIs(1));
    EXPECT_THAT(notes.all()[0].place, HasSubstr(place));
    EXPECT_EQ(notes.all()[0].cause, cause + ": the disk is gone");
  }
}

INSTANTIATE_TEST_SUITE_P(AnswerFile, AnswerFileFailures,
                         ::testing::Values(Failure{"RemoveFile", "C:\\cd\\", "could not be deleted"},
                                           Failure{"WriteWholeFile", "C:\\cd\\", "could not be written"},
                                           Failure{"ReadWholeFile", "keyfile.txt", "could not be read"},
                                           Failure{"ReadWholeFile", "inf_files", "could not be read"}));

// A read that fails must not look like an empty answer, or like another choice of the user.
TEST_F(AnswerFileTest, AnyCallThatFailsOnce_IsNotedOrChangesNothing) {
  host.AddFile(kKeyFile, kWin2KKeys + "[Win9xInfo]\r\nOwnerName=Ann\r\nOptimizedFor=Microsoft Windows 98\r\n");
  host.AddFile(kUnattend, "old");
  host.AddFile(kBatch, "old");
  const auto nodes = host.nodes;
  for (const auto& [fill, file] : {std::pair(&FillSetupDataFromKeyFileToUnattend, kUnattend),
                                   std::pair(&FillSetupDataFromKeyFileToMSBatch, kBatch)}) {
    host.nodes = nodes;
    host.FailCall(-1);
    ASSERT_TRUE(fill(notes, kKeyFile, file));
    const std::string undisturbed = host.Content(file);
    for (int number = 0;; ++number) {
      host.nodes = nodes;
      notes = {};
      host.FailCall(number);
      fill(notes, kKeyFile, file);
      if (host.FailedCall().empty()) break;
      EXPECT_TRUE(host.Content(file) == undisturbed || !notes.all().empty()) << host.FailedCall();
    }
  }
}

TEST_F(AnswerFileTest, MissingTemplate_IsNotedAndLeavesNoAnswerFile) {
  host.AddFile(kKeyFile, kWin2KKeys);
  host.AddFile(kUnattend, "old");
  host::RemoveFile(kWin2KTemplate);
  host::RemoveFile(kWinMeTemplate);
  EXPECT_FALSE(FillSetupDataFromKeyFileToUnattend(notes, kKeyFile, kUnattend));
  EXPECT_FALSE(FillSetupDataFromKeyFileToMSBatch(notes, kKeyFile, kBatch));
  ASSERT_THAT(notes.all(), SizeIs(2));
  EXPECT_EQ(notes.all()[0].place, kWin2KTemplate);
  EXPECT_EQ(notes.all()[1].place, kWinMeTemplate);
  EXPECT_FALSE(host.Exists(kUnattend));
}

}  // namespace
}  // namespace discwright::settings
