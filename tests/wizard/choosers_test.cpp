// Tests of the Browse and Explore buttons and of the links: the dialogs that they open, and the effect of an answer.
#include "wizard/choosers.h"

#include <string>
#include <vector>

#include "tests/wizard/wizard_fixture.h"

namespace discwright::wizard {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::WizardFixture;

class ChoosersTest : public WizardFixture {
 protected:
  ChoosersTest() {
    Choose(true, true, true);
    for (forms::CheckBox* box :
         {&main.ChkSlipstream, &main.ChkERDC, &main.ChkBCon, &main.ChkVexaUtils, &main.ChkAddFiles}) {
      box->value = 1;
    }
  }
};

struct FolderCase {
  const char* button;
  const char* title;
  const char* field;
};

class FolderChooserTest : public ChoosersTest, public ::testing::WithParamInterface<FolderCase> {
 protected:
  forms::CommandButton& button = dynamic_cast<forms::CommandButton&>(*main.Find(GetParam().button));
  forms::TextBox& field = dynamic_cast<forms::TextBox&>(*main.Find(GetParam().field));

  std::string Asked(const std::string& start) { return std::string(GetParam().title) + " <" + start + ">"; }
};

TEST_P(FolderChooserTest, Chosen_GoesIntoTheFieldAndIsWhereTheNextOneOpens) {
  field.text = "S:\\utils";
  user.folder_answer = "T:\\my folder";
  EXPECT_TRUE(forms::Press(button));
  EXPECT_EQ(field.text.get(), "T:\\my folder");
  EXPECT_TRUE(forms::Press(button));
  EXPECT_THAT(user.asked, ElementsAre(Asked("S:\\utils"), Asked("T:\\my folder")));
}

TEST_P(FolderChooserTest, Dropped_DoesTheSameAsChoosing) {
  EXPECT_EQ(field.drop_kind, forms::DropKind::kFolder);
  EXPECT_TRUE(forms::Drop(field, "T:\\my folder"));
  EXPECT_EQ(field.text.get(), "T:\\my folder");
  EXPECT_THAT(user.asked, IsEmpty());
}

TEST_P(FolderChooserTest, ChosenOrDropped_IsShownAsTheSystemSpellsIt) {
  host.shows_slashes = true;
  user.folder_answer = "\\media\\cd";
  forms::Press(button);
  EXPECT_EQ(field.text.get(), "/media/cd");
  forms::Drop(field, "\\home\\ann");
  EXPECT_EQ(field.text.get(), "/home/ann");
}

TEST_P(FolderChooserTest, Cancelled_LeavesTheField) {
  field.text = "C:\\old text\\";
  EXPECT_TRUE(forms::Press(button));
  EXPECT_EQ(field.text.get(), "C:\\old text\\");
  EXPECT_THAT(user.asked, ElementsAre(Asked("C:\\old text")));
}

TEST_P(FolderChooserTest, EmptyField_OpensWithDriveC) {
  field.text = "";
  forms::Press(button);
  EXPECT_EQ(field.text.get(), "");
  EXPECT_THAT(user.asked, ElementsAre(Asked("C:\\")));
}

TEST_P(FolderChooserTest, AnyFolder_IsAcceptedWithoutAMessage) {
  user.folder_answer = "X:\\nowhere";
  forms::Press(button);
  EXPECT_EQ(field.text.get(), "X:\\nowhere");
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_THAT(user.file_requests, IsEmpty());
}

TEST_P(FolderChooserTest, Choosing_ChangesNoOtherField) {
  std::vector<std::string> changed;
  ListenToAll(main, [&](forms::Control& control, forms::Facet facet, forms::By) {
    if (facet == forms::Facet::kText && dynamic_cast<forms::TextBox*>(&control) != nullptr) {
      changed.push_back(control.name());
    }
  });
  user.folder_answer = "X:\\nowhere";
  forms::Press(button);
  EXPECT_THAT(changed, ElementsAre(GetParam().field));
}

INSTANTIATE_TEST_SUITE_P(
    AllFolders, FolderChooserTest,
    ::testing::Values(FolderCase{"CmdBrw_i386_loc", "Select Windows 2000/XP Location", "Txt_i386_Loc"},
                      FolderCase{"CmdBrw_Win9xLoc", "Select Windows 98/Me Location", "TxtWin9x_Loc"},
                      FolderCase{"CmdBrw_ERDC", "Select ERD Commander CD Root", "TxtERDC"},
                      FolderCase{"CmdBrw_BCon", "Select BlueCon CD Root", "TxtBCon"},
                      FolderCase{"CmdBrw_Utils", "Select 'vexa_utilities' folder location", "TxtUtils_Loc"},
                      FolderCase{"CmdBrw_AddFiles", "Select 'Additional Files' folder location", "TxtAddFiles_Loc"}),
    [](const auto& one) { return std::string(one.param.field); });

struct FileCase {
  const char* button;
  const char* title;
  const char* filter;
  bool must_exist;
  const char* field;
};

class FileChooserTest : public ChoosersTest, public ::testing::WithParamInterface<FileCase> {
 protected:
  forms::CommandButton& button = dynamic_cast<forms::CommandButton&>(*main.Find(GetParam().button));
  forms::TextBox& field = dynamic_cast<forms::TextBox&>(*main.Find(GetParam().field));
};

TEST_P(FileChooserTest, Pressed_AsksWithTheFieldsText) {
  field.text = "E:\\old name.bin";
  EXPECT_TRUE(forms::Press(button));
  ASSERT_EQ(user.file_requests.size(), 1U);
  EXPECT_EQ(user.file_requests[0].title, GetParam().title);
  EXPECT_EQ(user.file_requests[0].filter, GetParam().filter);
  EXPECT_EQ(user.file_requests[0].file_name, "E:\\old name.bin");
  EXPECT_EQ(user.file_requests[0].must_exist, GetParam().must_exist);
  EXPECT_EQ(main.DlgOpen.title, GetParam().title);
  EXPECT_EQ(main.DlgOpen.filter, GetParam().filter);
}

TEST_P(FileChooserTest, Chosen_GoesIntoTheFieldAndIsWhatTheNextOneOpensWith) {
  user.file_answer = "E:\\new name.bin";
  forms::Press(button);
  EXPECT_EQ(field.text.get(), "E:\\new name.bin");
  EXPECT_EQ(main.DlgOpen.file_name, "E:\\new name.bin");
  forms::Press(button);
  EXPECT_EQ(user.file_requests.at(1).file_name, "E:\\new name.bin");
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_P(FileChooserTest, Dropped_DoesTheSameAsChoosing) {
  EXPECT_EQ(field.drop_kind, forms::DropKind::kFile);
  EXPECT_TRUE(forms::Drop(field, "E:\\new name.bin"));
  EXPECT_EQ(field.text.get(), "E:\\new name.bin");
  EXPECT_EQ(main.DlgOpen.file_name, "E:\\new name.bin");
  EXPECT_THAT(user.asked, IsEmpty());
}

TEST_P(FileChooserTest, ChosenOrDropped_IsShownAsTheSystemSpellsIt) {
  host.shows_slashes = true;
  user.file_answer = "\\media\\one.bin";
  forms::Press(button);
  EXPECT_EQ(field.text.get(), "/media/one.bin");
  forms::Drop(field, "\\home\\two.bin");
  EXPECT_EQ(field.text.get(), "/home/two.bin");
}

TEST_P(FileChooserTest, Cancelled_LeavesTheField) {
  main.DlgOpen.file_name = "E:\\another name.bin";  // of the other button
  field.text = "E:\\old name.bin";
  forms::Press(button);
  EXPECT_EQ(field.text.get(), "E:\\old name.bin");
  EXPECT_EQ(main.DlgOpen.file_name, "E:\\old name.bin");
}

TEST_P(FileChooserTest, EmptyFieldAndCancelled_StaysEmpty) {
  main.DlgOpen.file_name = "E:\\another name.bin";
  field.text = "";
  forms::Press(button);
  EXPECT_EQ(user.file_requests.at(0).file_name, "");
  EXPECT_EQ(field.text.get(), "");
}

INSTANTIATE_TEST_SUITE_P(AllFiles, FileChooserTest,
                         ::testing::Values(FileCase{"CmdBrw_ISOfile", "Specify the destination ISO file",
                                                    "CDROM Image (*.iso)|*.iso", false, "TxtISOLoc"},
                                           FileCase{"CmdBrw_spexe", "Specify the Windows Service pack file",
                                                    "Executable file (*.exe)|*.exe", true, "TxtSP_exe"}),
                         [](const auto& one) { return std::string(one.param.field); });

TEST_F(ChoosersTest, BoxClear_KeepsItsBrowseButtonFromAsking) {
  for (forms::CheckBox* box :
       {&main.ChkSlipstream, &main.ChkERDC, &main.ChkBCon, &main.ChkVexaUtils, &main.ChkAddFiles}) {
    forms::Toggle(*box, false);
  }
  for (forms::CommandButton* button :
       {&main.CmdBrw_spexe, &main.CmdBrw_ERDC, &main.CmdBrw_BCon, &main.CmdBrw_Utils, &main.CmdBrw_AddFiles}) {
    EXPECT_FALSE(forms::Press(*button)) << button->name();
  }
  EXPECT_THAT(user.asked, IsEmpty());
}

TEST_F(ChoosersTest, BoxClear_KeepsItsFieldFromTakingWhatIsDropped) {
  forms::Toggle(main.ChkERDC, false);
  EXPECT_FALSE(forms::Drop(main.TxtERDC, "X:\\erd"));
  EXPECT_EQ(main.TxtERDC.text.get(), "T:");
}

class EditionTest : public ChoosersTest {
 protected:
  EditionTest() {
    host.AddFile("S:\\CDROM_IS.5", "tag");
    host.AddFile("S:\\copy of me\\WIN51IC", "tag");
    host.AddFolder("S:\\copy of me\\I386");
  }

  std::string EditionOf(const char* chosen) {
    main.LblWin2KOSVer.caption = "nothing yet";
    user.folder_answer = chosen;
    forms::Press(main.CmdBrw_i386_loc);
    EXPECT_EQ(main.Txt_i386_Loc.text.get(), chosen);
    return main.LblWin2KOSVer.caption;
  }
};

TEST_F(EditionTest, ChosenFolder_IsIdentifiedByTheTagFilesBesideIt) {
  for (const char* chosen : {"S:\\I386", "S:\\I386\\", "S:/I386", "S:/I386/"}) {
    EXPECT_EQ(EditionOf(chosen), "Microsoft Windows 2000 Server") << chosen;
  }
  for (const char* chosen : {"S:\\copy of me\\I386", "S:/copy of me/I386/"}) {
    EXPECT_EQ(EditionOf(chosen), "Microsoft Windows XP Home Edition") << chosen;
  }
}

TEST_F(EditionTest, ChosenDrive_IsIdentifiedByItsOwnTagFiles) {
  for (const char* chosen : {"S:\\", "S:/", "S:"}) {
    EXPECT_EQ(EditionOf(chosen), "Microsoft Windows 2000 Server") << chosen;
  }
}

TEST_F(EditionTest, RootFolderOfASystemWithoutDrives_IsIdentifiedByItsOwnTagFiles) {
  host.nodes[""].kind = host::EntryKind::kFolder;
  host.AddFile("\\WIN51IP", "tag");
  EXPECT_EQ(EditionOf("\\"), "Microsoft Windows XP Professional Edition");
  EXPECT_EQ(EditionOf("\\I386"), "Microsoft Windows XP Professional Edition");
}

TEST_F(EditionTest, DroppedFolder_IsIdentifiedLikeAChosenOne) {
  main.LblWin2KOSVer.caption = "nothing yet";
  EXPECT_TRUE(forms::Drop(main.Txt_i386_Loc, "S:\\copy of me\\I386"));
  EXPECT_EQ(main.LblWin2KOSVer.caption.get(), "Microsoft Windows XP Home Edition");
}

TEST_F(EditionTest, Cancelled_LeavesWhatIsShown) {
  main.LblWin2KOSVer.caption = "nothing yet";
  forms::Press(main.CmdBrw_i386_loc);
  EXPECT_EQ(main.LblWin2KOSVer.caption.get(), "nothing yet");
}

TEST_F(EditionTest, PathTypedByHand_IsNotIdentified) {
  main.LblWin2KOSVer.caption = "nothing yet";
  EXPECT_TRUE(forms::Type(main.Txt_i386_Loc, "S:\\copy of me\\I386"));
  EXPECT_EQ(main.LblWin2KOSVer.caption.get(), "nothing yet");
}

TEST_F(EditionTest, OtherChoosers_IdentifyNothing) {
  main.LblWin2KOSVer.caption = "nothing yet";
  user.folder_answer = "S:\\I386";
  for (forms::CommandButton* button :
       {&main.CmdBrw_Win9xLoc, &main.CmdBrw_ERDC, &main.CmdBrw_BCon, &main.CmdBrw_Utils, &main.CmdBrw_AddFiles}) {
    forms::Press(*button);
  }
  EXPECT_EQ(main.LblWin2KOSVer.caption.get(), "nothing yet");
}

class StartFolderTest : public ::testing::Test {
 protected:
  testing::FakeHost host;  // drives A, C and D
};

TEST_F(StartFolderTest, EmptyText_IsDriveC) { EXPECT_EQ(StartFolder(""), "C:\\"); }

TEST_F(StartFolderTest, DriveRoot_EndsInASeparator) {
  EXPECT_EQ(StartFolder("C:"), "C:\\");
  EXPECT_EQ(StartFolder("C:\\"), "C:\\");
  EXPECT_EQ(StartFolder("d:"), "d:\\");
  EXPECT_EQ(StartFolder("a:\\"), "a:\\");
}

TEST_F(StartFolderTest, DrivesInLowerCase_AreFoundInAnyCase) {
  host.drive_roots = {"c:\\", "e:\\"};
  EXPECT_EQ(StartFolder("E:"), "E:\\");
  EXPECT_EQ(StartFolder("D:"), "D:");
}

TEST_F(StartFolderTest, TextThatOccursInTheListOfDrives_CountsAsARoot) {
  EXPECT_EQ(StartFolder("C"), "C\\");
  EXPECT_EQ(StartFolder("d"), "d\\");
  EXPECT_EQ(StartFolder(":"), ":\\");
  EXPECT_EQ(StartFolder(":\\"), ":\\");
  EXPECT_EQ(StartFolder("\\"), "\\");
}

TEST_F(StartFolderTest, TextThatSpansTwoDrives_IsNotARoot) {
  EXPECT_EQ(StartFolder("\\C:"), "\\C:");
  EXPECT_EQ(StartFolder("\\C:\\"), "\\C:");
  EXPECT_EQ(StartFolder(":\\C"), ":\\C");
  EXPECT_EQ(StartFolder("AC"), "AC");
}

// A slash is no part of the system's list.
TEST_F(StartFolderTest, DriveWithASlash_LosesIt) { EXPECT_EQ(StartFolder("D:/"), "D:"); }

TEST_F(StartFolderTest, OtherDrives_AreFolders) {
  EXPECT_EQ(StartFolder("E:"), "E:");
  EXPECT_EQ(StartFolder("E:\\"), "E:");
  EXPECT_EQ(StartFolder("CD"), "CD");
}

TEST_F(StartFolderTest, Folder_EndsInNoSeparator) {
  EXPECT_EQ(StartFolder("C:\\my files"), "C:\\my files");
  EXPECT_EQ(StartFolder("C:\\my files\\"), "C:\\my files");
  EXPECT_EQ(StartFolder("C:/my files/"), "C:/my files");
  EXPECT_EQ(StartFolder("C:\\my files\\\\"), "C:\\my files\\");
}

TEST_F(StartFolderTest, RootFolder_KeepsItsOnlyCharacter) { EXPECT_EQ(StartFolder("/"), "/"); }

TEST_F(StartFolderTest, NoDrives_EveryTextIsAFolder) {
  host.drive_roots = {};
  EXPECT_EQ(StartFolder("C:\\"), "C:");
}

TEST_F(StartFolderTest, SystemWithoutDrives_StartsInTheHomeFolder) {
  host.drive_roots = {"\\"};
  host.home_folder = "\\home\\ann";
  EXPECT_EQ(StartFolder(""), "\\home\\ann");
  EXPECT_EQ(StartFolder("\\home\\ann\\"), "\\home\\ann");
  EXPECT_EQ(StartFolder("\\"), "\\");
  host.home_folder = "\\home\\ann\\";
  EXPECT_EQ(StartFolder(""), "\\home\\ann");
  host.home_folder = "\\";
  EXPECT_EQ(StartFolder(""), "\\");
}

class ExploreTest : public ChoosersTest {};

TEST_F(ExploreTest, Pressed_StartsTheFileManagerAndWaitsUntilItIsReady) {
  main.TxtUtils_Loc.text = "S:\\my utilities";
  main.TxtAddFiles_Loc.text = " \"S:\\files\" ";
  EXPECT_TRUE(forms::Press(main.CmdExp_Utils));
  EXPECT_TRUE(forms::Press(main.CmdExp_AddFiles));
  EXPECT_THAT(programs.started,
              ElementsAre("C:\\WINDOWS\\explorer.exe S:\\my utilities", "C:\\WINDOWS\\explorer.exe  \"S:\\files\" "));
  EXPECT_THAT(programs.waits, ElementsAre("0 idle", "0 idle"));
  EXPECT_THAT(programs.window_styles, ElementsAre(1, 1));
}

TEST_F(ExploreTest, EmptyField_StillStartsTheFileManager) {
  main.TxtUtils_Loc.text = "";
  forms::Press(main.CmdExp_Utils);
  EXPECT_THAT(programs.started, ElementsAre("C:\\WINDOWS\\explorer.exe "));
}

TEST_F(ExploreTest, BoxClear_StartsNothing) {
  forms::Toggle(main.ChkVexaUtils, false);
  forms::Toggle(main.ChkAddFiles, false);
  EXPECT_FALSE(forms::Press(main.CmdExp_Utils));
  EXPECT_FALSE(forms::Press(main.CmdExp_AddFiles));
  EXPECT_THAT(programs.started, IsEmpty());
}

TEST_F(ExploreTest, StartOrWaitThatFails_IsIgnored) {
  programs.process_wait_result = false;
  forms::Press(main.CmdExp_Utils);
  programs.can_create = false;
  forms::Press(main.CmdExp_AddFiles);
  EXPECT_EQ(programs.started.size(), 2U);
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_THAT(notes.all(), IsEmpty());
  EXPECT_FALSE(main.CancelCopy);
  EXPECT_EQ(main.TxtUtils_Loc.text.get(), "S:\\utils");
}

TEST_F(ChoosersTest, Links_OpenTheAddressThatTheyShow) {
  main.LblLink_cdshell.caption = "https://elsewhere.example.org/";
  for (forms::Link* link : {&main.LblLink_vexacd, &main.LblLink_cdshell, &main.LblLink_Third}) {
    EXPECT_TRUE(forms::Follow(*link));
  }
  EXPECT_THAT(user.links, ElementsAre("https://discwright.example.org/", "https://elsewhere.example.org/",
                                      "https://bootable-cds.example.org/"));
}

}  // namespace
}  // namespace discwright::wizard
