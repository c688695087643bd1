// Tests of the locations that Next proposes.
#include "wizard/page_defaults.h"

#include <string>

#include "tests/wizard/wizard_fixture.h"

namespace discwright::wizard {
namespace {

using testing::WizardFixture;

class PageDefaultsTest : public WizardFixture {
 protected:
  PageDefaultsTest() {
    host.optical_drives = {"D:", "E:"};
    host.AddFile("D:\\WIN51IP", "Windows");
    host.AddFile("D:\\WIN51IP.SP2", "Windows");
    for (forms::TextBox* box : {&main.Txt_i386_Loc, &main.TxtWin9x_Loc, &main.TxtERDC, &main.TxtBCon,
                                &main.TxtUtils_Loc, &main.TxtAddFiles_Loc}) {
      box->text = "";
    }
  }
};

TEST_F(PageDefaultsTest, Win2KChosen_TheFirstCdIsProposedAndIdentified) {
  Choose(true, false, false);
  StartOn(1);
  EXPECT_EQ(Next(), 2);
  EXPECT_EQ(main.Txt_i386_Loc.text.get(), "D:\\I386");
  EXPECT_EQ(main.LblWin2KOSVer.caption.get(), "Microsoft Windows XP Professional Edition SP2");
}

TEST_F(PageDefaultsTest, LaterPassesThroughTheContents_LeaveLocationAndEditionAlone) {
  Choose(true, false, false);
  StartOn(1);
  Next();
  host.optical_drives = {"E:"};
  host.AddFile("D:\\CDROM_IP.5", "Windows");
  StartOn(1);
  Next();
  EXPECT_EQ(main.Txt_i386_Loc.text.get(), "D:\\I386");
  EXPECT_EQ(main.LblWin2KOSVer.caption.get(), "Microsoft Windows XP Professional Edition SP2");
}

TEST_F(PageDefaultsTest, TypedLocation_IsNeitherReplacedNorIdentified) {
  Choose(true, false, false);
  main.Txt_i386_Loc.text = "S:\\I386";
  main.LblWin2KOSVer.caption = "as it was";
  StartOn(1);
  Next();
  EXPECT_EQ(main.Txt_i386_Loc.text.get(), "S:\\I386");
  EXPECT_EQ(main.LblWin2KOSVer.caption.get(), "as it was");
}

TEST_F(PageDefaultsTest, Win9xWithoutWin2K_IsProposedOnTheWayAndWin2KStaysUntouched) {
  Choose(false, true, false);
  main.LblWin2KOSVer.caption = "as it was";
  StartOn(1);
  EXPECT_EQ(Next(), 4);
  EXPECT_EQ(main.TxtWin9x_Loc.text.get(), "D:\\WIN98");
  EXPECT_EQ(main.Txt_i386_Loc.text.get(), "");
  EXPECT_EQ(main.LblWin2KOSVer.caption.get(), "as it was");
}

TEST_F(PageDefaultsTest, Win9xNotChosen_GetsNoLocation) {
  Choose(false, false, true);
  StartOn(1);
  EXPECT_EQ(Next(), 5);
  EXPECT_EQ(main.TxtWin9x_Loc.text.get(), "");
}

TEST_F(PageDefaultsTest, AdvancedToolsBehindASkippedPage_GetTheFirstCdEach) {
  Choose(false, false, true);
  main.TxtBCon.text = "T:";
  StartOn(1);
  Next();
  EXPECT_EQ(main.TxtERDC.text.get(), "D:\\");
  EXPECT_EQ(main.TxtBCon.text.get(), "T:");
}

TEST_F(PageDefaultsTest, PageThatIsKept_StillProposesTheAdvancedTools) {
  Choose(false, true, true);
  main.TxtWin9x_Loc.text = "S:\\nowhere";
  StartOn(4);
  EXPECT_EQ(Next(), 4);
  EXPECT_EQ(main.TxtERDC.text.get(), "D:\\");
  EXPECT_EQ(main.TxtBCon.text.get(), "D:\\");
}

TEST_F(PageDefaultsTest, OnlyTheBootDisks_ProposesTheProgramsOwnFolders) {
  Choose(false, false, false);
  StartOn(1);
  EXPECT_EQ(Next(), 6);
  EXPECT_EQ(main.TxtUtils_Loc.text.get(), "C:\\Discwright\\vexa_utilities");
  EXPECT_EQ(main.TxtAddFiles_Loc.text.get(), "C:\\Discwright\\Additional Files");
  EXPECT_EQ(main.TxtERDC.text.get(), "");
}

TEST_F(PageDefaultsTest, ProposedFolder_IsShownAsTheSystemSpellsIt) {
  host.shows_slashes = true;
  host.program_folder = "\\home\\ann\\discwright";
  StartOn(1);
  Next();
  EXPECT_EQ(main.TxtUtils_Loc.text.get(), "/home/ann/discwright/vexa_utilities");
}

TEST_F(PageDefaultsTest, TypedFolders_AreNotReplaced) {
  main.TxtUtils_Loc.text = " ";
  main.TxtAddFiles_Loc.text = "S:\\files";
  StartOn(5);
  Next();
  EXPECT_EQ(main.TxtUtils_Loc.text.get(), " ");
  EXPECT_EQ(main.TxtAddFiles_Loc.text.get(), "S:\\files");
}

TEST_F(PageDefaultsTest, NoOpticalDrive_ProposesBareFoldersThatThePageRefuses) {
  host.optical_drives.clear();
  Choose(true, true, true);
  StartOn(1);
  EXPECT_EQ(Next(), 2);
  EXPECT_EQ(main.Txt_i386_Loc.text.get(), "\\I386");
  EXPECT_EQ(main.LblWin2KOSVer.caption.get(), "Unknown Windows Version");
  EXPECT_EQ(Next(), 2);
  StartOn(3);
  EXPECT_EQ(Next(), 4);
  EXPECT_EQ(main.TxtWin9x_Loc.text.get(), "\\WIN98");
  EXPECT_EQ(Next(), 4);
  EXPECT_EQ(main.TxtERDC.text.get(), "\\");
  EXPECT_EQ(main.TxtBCon.text.get(), "\\");
  EXPECT_EQ(user.messages.size(), 2U);
}

}  // namespace
}  // namespace discwright::wizard
