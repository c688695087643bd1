// Tests of the choices that Next refuses, and of the order of its messages.
#include "wizard/page_checks.h"

#include <string>
#include <utility>
#include <vector>

#include "tests/wizard/wizard_fixture.h"

namespace discwright::wizard {
namespace {

using host::MessageIcon;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using testing::WizardFixture;

constexpr const char* kNoWin2K =
    "The selected folder doesn't contain a Windows 2000/XP installation !\r\n"
    "Select your Windows setup source Directory";
constexpr const char* kNoServicePack =
    "The selected Service pack file is not correct !\r\nSelect your Windows Service pack EXE file";
constexpr const char* kNoWin9x =
    "The selected folder doesn't contain a Windows 98/Me installation !\r\n"
    "Select your Windows setup source Directory";
constexpr const char* kNoErdC =
    "ERD Commander 2002/2003 doesn't seem to be located in the selected directory\r\n"
    "Select ERD Commader 2002/2003 location";
constexpr const char* kNoBCon =
    "O&O Blue Con XXL doesn't seem to be located in the selected directory\r\nSelect Blue Con XXL location";
constexpr const char* kNoUtilities = "The Vexa Utilities folder doesn't exist !\r\nSelect a valid Directory";
constexpr const char* kNoAdditionalFiles = "The Additional files folder doesn't exist !\r\nSelect a valid Directory";
constexpr const char* kPasswordsDiffer = "The Passwords don't Match - Reenter them";
constexpr const char* kNoIsoDestination = "ISO File destination is not correct, check again";

class PageChecksTest : public WizardFixture {
 protected:
  PageChecksTest() {
    Choose(true, true, true);
    for (forms::CheckBox* box : {&main.ChkSlipstream, &main.ChkERDC, &main.ChkBCon, &main.ChkVexaUtils,
                                 &main.ChkAddFiles, &main.ChkPassProtect}) {
      box->value = 1;
    }
  }

  // Where Next leads from a page.
  int NextFrom(int page) {
    StartOn(page);
    return Next();
  }

  // The fields that the messages are about, each with the sentence below its message.
  std::vector<std::pair<std::string, std::string>> Details() const {
    std::vector<std::pair<std::string, std::string>> details;
    for (const host::Message& box : user.messages) details.emplace_back(box.control, box.detail);
    return details;
  }

  std::vector<std::string> Messages() const {
    std::vector<std::string> texts;
    for (const host::Message& box : user.messages) {
      EXPECT_EQ(box.title, "Error");
      texts.push_back(box.text);
    }
    return texts;
  }
};

TEST_F(PageChecksTest, EverythingInPlace_PassesEveryPageWithoutMessage) {
  for (int page = 0; page < 8; ++page) EXPECT_EQ(NextFrom(page), page + 1);
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(PageChecksTest, NoWin2KSource_Stays) {
  main.Txt_i386_Loc.text = "S:\\WIN98";
  EXPECT_EQ(NextFrom(2), 2);
  EXPECT_THAT(Messages(), ElementsAre(kNoWin2K));
  EXPECT_EQ(user.messages[0].icon, MessageIcon::kCritical);
  EXPECT_THAT(VisiblePages(), ElementsAre(2));
  EXPECT_EQ(main.Txt_i386_Loc.text.get(), "S:\\WIN98");
  EXPECT_THAT(Details(), ElementsAre(Pair("Txt_i386_Loc", "There is no file S:\\WIN98\\setupldr.bin.")));
}

TEST_F(PageChecksTest, NoServicePackFile_Stays) {
  main.TxtSP_exe.text = "S:\\other.exe";
  EXPECT_EQ(NextFrom(2), 2);
  EXPECT_THAT(Messages(), ElementsAre(kNoServicePack));
  EXPECT_EQ(user.messages[0].icon, MessageIcon::kCritical);
  EXPECT_THAT(Details(), ElementsAre(Pair("TxtSP_exe", "S:\\other.exe does not exist.")));
}

TEST_F(PageChecksTest, NoServicePackFileButNoneWanted_Passes) {
  main.ChkSlipstream.value = 0;
  main.TxtSP_exe.text = "S:\\other.exe";
  EXPECT_EQ(NextFrom(2), 3);
}

TEST_F(PageChecksTest, NeitherWin2KSourceNorServicePack_GivesTwoMessagesAndStays) {
  main.Txt_i386_Loc.text = "S:\\nowhere";
  main.TxtSP_exe.text = "";
  EXPECT_EQ(NextFrom(2), 2);
  EXPECT_THAT(Messages(), ElementsAre(kNoWin2K, kNoServicePack));
  EXPECT_THAT(Details(), ElementsAre(Pair("Txt_i386_Loc", "S:\\nowhere does not exist."),
                                     Pair("TxtSP_exe", "The field is empty: enter the file of the service pack.")));
}

TEST_F(PageChecksTest, Win2KNoLongerChosen_LeavesItsPageUnchecked) {
  Choose(false, true, true);
  main.Txt_i386_Loc.text = "S:\\nowhere";
  main.TxtSP_exe.text = "";
  EXPECT_EQ(NextFrom(2), 4);
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(PageChecksTest, SkippedPages_AreNotChecked) {
  Choose(false, false, false);
  for (forms::TextBox* box : {&main.Txt_i386_Loc, &main.TxtSP_exe, &main.TxtWin9x_Loc, &main.TxtERDC, &main.TxtBCon}) {
    box->text = "S:\\nowhere";
  }
  EXPECT_EQ(NextFrom(1), 6);
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(PageChecksTest, NoWin9xSource_Stays) {
  main.TxtWin9x_Loc.text = "S:\\I386";
  EXPECT_EQ(NextFrom(4), 4);
  EXPECT_THAT(Messages(), ElementsAre(kNoWin9x));
  EXPECT_EQ(user.messages[0].icon, MessageIcon::kCritical);
  EXPECT_THAT(Details(), ElementsAre(Pair("TxtWin9x_Loc", "There is no file S:\\I386\\mini.cab.")));
}

TEST_F(PageChecksTest, NoWin9xSourceAndNoAdvancedTools_StaysInsteadOfSkipping) {
  Choose(true, true, false);
  main.TxtWin9x_Loc.text = "S:\\I386";
  EXPECT_EQ(NextFrom(4), 4);
  EXPECT_THAT(VisiblePages(), ElementsAre(4));
}

TEST_F(PageChecksTest, NoErdCommander_StaysWithAnExclamation) {
  main.TxtERDC.text = "S:";
  EXPECT_EQ(NextFrom(5), 5);
  EXPECT_THAT(Messages(), ElementsAre(kNoErdC));
  EXPECT_EQ(user.messages[0].icon, MessageIcon::kExclamation);
  EXPECT_THAT(Details(), ElementsAre(Pair("TxtERDC", "There is no file S:\\I386\\SYSTEM32\\CONFIG\\SOFTWARE.")));
}

TEST_F(PageChecksTest, NoBlueCon_StaysWithAnExclamation) {
  main.TxtBCon.text = "S:";
  EXPECT_EQ(NextFrom(5), 5);
  EXPECT_THAT(Messages(), ElementsAre(kNoBCon));
  EXPECT_EQ(user.messages[0].icon, MessageIcon::kExclamation);
  EXPECT_THAT(Details(), ElementsAre(Pair("TxtBCon", "There is no file S:\\I386\\SYSTEM32\\OOBC*.*.")));
}

TEST_F(PageChecksTest, NeitherTool_GivesTwoMessagesInOrder) {
  main.TxtERDC.text = "S:";
  main.TxtBCon.text = "S:";
  EXPECT_EQ(NextFrom(5), 5);
  EXPECT_THAT(Messages(), ElementsAre(kNoErdC, kNoBCon));
}

TEST_F(PageChecksTest, ToolsNotTicked_AreNotLookedFor) {
  main.ChkERDC.value = 0;
  main.ChkBCon.value = 0;
  main.TxtERDC.text = "S:";
  main.TxtBCon.text = "S:";
  EXPECT_EQ(NextFrom(5), 6);
}

TEST_F(PageChecksTest, ToolLocationWithTrailingBackslash_IsFound) {
  main.TxtERDC.text = "T:\\";
  main.TxtBCon.text = "T:\\";
  EXPECT_EQ(NextFrom(5), 6);
}

TEST_F(PageChecksTest, LocationsInTheFoldersThatEveryBuildEmpties_AreRefused) {
  host.AddFile("C:\\Discwright\\vexacd\\vexa\\mine\\tool.exe", "mine");
  host.AddFile("C:\\Discwright\\advtemp\\notes.txt", "mine");
  main.TxtUtils_Loc.text = "c:/discwright/VEXACD/vexa/mine";
  main.TxtAddFiles_Loc.text = "C:\\Discwright\\advtemp";
  EXPECT_EQ(NextFrom(6), 6);
  const std::string rest = ", which every build empties !\r\nSelect a location outside of it";
  EXPECT_THAT(Messages(), ElementsAre("The selected location is in C:\\Discwright\\vexacd" + rest,
                                      "The selected location is in C:\\Discwright\\advtemp" + rest));
  EXPECT_THAT(Details(), ElementsAre(Pair("TxtUtils_Loc", "c:\\discwright\\VEXACD\\vexa\\mine would be deleted."),
                                     Pair("TxtAddFiles_Loc", "C:\\Discwright\\advtemp would be deleted.")));
}

TEST_F(PageChecksTest, ImageInTheFolderThatEveryBuildEmpties_IsRefused) {
  host.AddFolder("C:\\Discwright\\vexacd");
  main.ChkPassProtect.value = 0;
  main.TxtISOLoc.text = "C:\\Discwright\\vexacd\\rescue.iso";
  EXPECT_EQ(NextFrom(7), 7);
  EXPECT_THAT(Messages(), ElementsAre("The selected location is in C:\\Discwright\\vexacd, which every build empties !"
                                      "\r\nSelect a location outside of it"));
  EXPECT_THAT(Details(), ElementsAre(Pair("TxtISOLoc", "C:\\Discwright\\vexacd\\rescue.iso would be deleted.")));
}

TEST_F(PageChecksTest, LinkIntoTheFolderThatEveryBuildEmpties_IsRefused) {
  host.AddFile("C:\\Discwright\\vexacd\\vexa\\mine\\tool.exe", "mine");
  host.AddLink("D:\\tools", "C:\\Discwright\\vexacd\\vexa\\mine");
  host.AddFolder("S:\\additional");
  main.TxtUtils_Loc.text = "D:\\tools";
  main.TxtAddFiles_Loc.text = "S:\\additional";
  EXPECT_EQ(NextFrom(6), 6);
  EXPECT_THAT(Messages(), ElementsAre("The selected location is in C:\\Discwright\\vexacd, which every build empties !"
                                      "\r\nSelect a location outside of it"));
}

TEST_F(PageChecksTest, FoldersBesideThem_Pass) {
  host.AddFolder("C:\\Discwright\\vexacd");
  host.AddFolder("C:\\Discwright\\vexacd of mine");
  host.AddFolder("C:\\Discwright\\advtemp");
  main.TxtUtils_Loc.text = "C:\\Discwright\\vexacd of mine";
  main.TxtAddFiles_Loc.text = "C:\\Discwright";
  EXPECT_EQ(NextFrom(6), 7);
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(PageChecksTest, NoUtilitiesFolder_Stays) {
  main.TxtUtils_Loc.text = "S:\\sp.exe";
  EXPECT_EQ(NextFrom(6), 6);
  EXPECT_THAT(Messages(), ElementsAre(kNoUtilities));
  EXPECT_EQ(user.messages[0].icon, MessageIcon::kCritical);
  EXPECT_THAT(Details(), ElementsAre(Pair("TxtUtils_Loc", "S:\\sp.exe is a file: enter a folder.")));
}

TEST_F(PageChecksTest, NoAdditionalFilesFolder_Stays) {
  main.TxtAddFiles_Loc.text = "S:\\sp.exe";
  EXPECT_EQ(NextFrom(6), 6);
  EXPECT_THAT(Messages(), ElementsAre(kNoAdditionalFiles));
  EXPECT_EQ(user.messages[0].icon, MessageIcon::kCritical);
  EXPECT_THAT(Details(), ElementsAre(Pair("TxtAddFiles_Loc", "S:\\sp.exe is a file: enter a folder.")));
}

TEST_F(PageChecksTest, NeitherFolder_GivesTwoMessagesInOrder) {
  main.TxtUtils_Loc.text = "";
  main.TxtAddFiles_Loc.text = "S:\\nowhere";
  EXPECT_EQ(NextFrom(6), 6);
  EXPECT_THAT(Messages(), ElementsAre(kNoUtilities, kNoAdditionalFiles));
  EXPECT_THAT(Details(), ElementsAre(Pair("TxtUtils_Loc", "The field is empty: enter a folder."),
                                     Pair("TxtAddFiles_Loc", "S:\\nowhere does not exist.")));
}

TEST_F(PageChecksTest, FoldersNotTicked_AreNotLookedFor) {
  main.ChkVexaUtils.value = 0;
  main.ChkAddFiles.value = 0;
  main.TxtUtils_Loc.text = "S:\\nowhere";
  main.TxtAddFiles_Loc.text = "S:\\nowhere";
  EXPECT_EQ(NextFrom(6), 7);
}

TEST_F(PageChecksTest, EqualPasswords_Pass) {
  main.TxtPass1.text = "Secret";
  main.TxtPass2.text = "Secret";
  EXPECT_EQ(NextFrom(7), 8);
  EXPECT_EQ(main.TxtPass1.text.get(), "Secret");
}

TEST_F(PageChecksTest, PasswordsThatDifferInLetterCase_AreBothEmptied) {
  main.TxtPass1.text = "Secret";
  main.TxtPass2.text = "secret";
  EXPECT_EQ(NextFrom(7), 7);
  EXPECT_THAT(Messages(), ElementsAre(kPasswordsDiffer));
  EXPECT_EQ(user.messages[0].icon, MessageIcon::kCritical);
  EXPECT_EQ(main.TxtPass1.text.get(), "");
  EXPECT_EQ(main.TxtPass2.text.get(), "");
  EXPECT_THAT(Details(), ElementsAre(Pair("", "")));
}

TEST_F(PageChecksTest, PasswordsDifferWithoutProtection_AreNotCompared) {
  main.ChkPassProtect.value = 0;
  main.TxtPass1.text = "one";
  main.TxtPass2.text = "two";
  EXPECT_EQ(NextFrom(7), 8);
  EXPECT_EQ(main.TxtPass1.text.get(), "one");
}

TEST_F(PageChecksTest, PasswordsDifferAndIsoDestinationIsWrong_GivesBothAndStillMakesTheSummary) {
  main.TxtPass1.text = "one";
  main.TxtPass2.text = "two";
  main.TxtISOLoc.text = "X:\\nowhere\\cd.iso";
  EXPECT_EQ(NextFrom(7), 7);
  EXPECT_THAT(Messages(), ElementsAre(kPasswordsDiffer, kNoIsoDestination));
  EXPECT_EQ(user.messages[1].icon, MessageIcon::kCritical);
  EXPECT_THAT(main.TxtSummery.text.get(), ::testing::HasSubstr("X:\\nowhere\\cd.iso"));
  EXPECT_TRUE(main.CmdNext.visible);
  EXPECT_FALSE(main.CmdFinish.visible);
  EXPECT_THAT(
      Details(),
      ElementsAre(Pair("", ""),
                  Pair("TxtISOLoc",
                       "The folder X:\\nowhere does not exist: create it, or choose another place for the image.")));
}

TEST_F(PageChecksTest, WrongIsoDestination_StaysAndStillMakesTheSummary) {
  main.TxtISOLoc.text = "X:\\nowhere\\cd.iso";
  EXPECT_EQ(NextFrom(7), 7);
  EXPECT_THAT(Messages(), ElementsAre(kNoIsoDestination));
  EXPECT_EQ(user.messages[0].icon, MessageIcon::kCritical);
  EXPECT_THAT(VisiblePages(), ElementsAre(7));
  EXPECT_THAT(main.TxtSummery.text.get(), ::testing::HasSubstr("X:\\nowhere\\cd.iso"));
}

TEST_F(PageChecksTest, PageThatIsKept_MovesTheOpenHelpToItsOwnTopic) {
  user.help_is_open = true;
  main.TxtUtils_Loc.text = "";
  EXPECT_EQ(NextFrom(6), 6);
  EXPECT_THAT(user.help_shown, ElementsAre("C:\\Discwright\\vexacd_builder.chm>Down 1170"));
}

}  // namespace
}  // namespace discwright::wizard
