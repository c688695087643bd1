// Tests of the Browse and Explore buttons, with the real dialogs of Qt, and of dropping folders and files onto fields.
#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QTemporaryDir>
#include <QUrl>

#include "tests/desktop/qt/window_fixture.h"

namespace discwright::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The dialogs show the real disk, so these tests have a real folder. The fake host shows paths with slashes.
class ChooserViewFixture : public testing::WindowFixture {
 protected:
  ChooserViewFixture() {
    host.shows_slashes = true;
    for (const char* name : {"before", "chosen folder"}) QDir(folder_.path()).mkdir(name);
    for (const char* name : {"old.iso", "old.exe", "answers.txt", "other.doc"}) AddFile(name);
  }
  // Goes to a page whose boxes are all checked, so that every field can be used.
  void GoToUsable(int page) {
    for (forms::CheckBox* box : {&records().ChkSlipstream, &records().ChkERDC, &records().ChkBCon,
                                 &records().ChkVexaUtils, &records().ChkAddFiles, &records().ChkWin2KInfo_Assis}) {
      box->value = 1;
    }
    GoTo(page);
  }
  QString Native(const QString& name) const { return QDir(folder_.path()).filePath(name); }
  std::string Path(const QString& name) const { return FromQt(Native(name)); }
  void AddFile(const QString& name) const {
    QFile file(Native(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  }

  // Enters a name as a user does, and presses the button Choose, Open or Save.
  static void Enter(QDialog& dialog, const QString& name) {
    auto* const field = dialog.findChild<QLineEdit*>("fileNameEdit");
    ASSERT_NE(field, nullptr);
    ClickOn(*field);  // Qt's dialog looks at the name only if its field has the focus
    field->setText(name);
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
      const QString text = button->text().remove('&');
      if (text == "Choose" || text == "Open" || text == "Save") return ClickOn(*button);
    }
    FAIL() << "no button to accept with";
  }

  QTemporaryDir folder_;
};

struct FolderButton {
  const char* button;
  const char* title;
  const char* field;
  int page;
};

class FolderDialogTest : public ChooserViewFixture, public ::testing::WithParamInterface<FolderButton> {};

TEST_P(FolderDialogTest, OpensAtTheFieldsFolderAndFillsTheFieldIn) {
  const FolderButton& chooser = GetParam();
  GoToUsable(chooser.page);
  WriteInto(chooser.field, Path("before"));
  watch.InNext([&](QDialog& window) {
    const auto& dialog = dynamic_cast<QFileDialog&>(window);
    EXPECT_EQ(FromQt(dialog.windowTitle()), chooser.title);
    EXPECT_EQ(FromQt(dialog.directory().absolutePath()), Path("before"));
    EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
    EXPECT_EQ(dialog.parentWidget(), &main());
    Enter(window, Native("chosen folder"));
  });
  Click(chooser.button);
  EXPECT_EQ(FieldText(chooser.field), Path("chosen folder"));
  EXPECT_EQ(PageSeen(), chooser.page);
}

TEST_P(FolderDialogTest, Cancelled_LeavesTheField) {
  GoToUsable(GetParam().page);
  WriteInto(GetParam().field, Path("before") + "/");
  PressKeyInNext(Qt::Key_Escape);
  Click(GetParam().button);
  EXPECT_EQ(FieldText(GetParam().field), Path("before") + "/");
  EXPECT_FALSE(records().CancelCopy);
}

INSTANTIATE_TEST_SUITE_P(
    AllFolders, FolderDialogTest,
    ::testing::Values(FolderButton{"CmdBrw_i386_loc", "Select Windows 2000/XP Location", "Txt_i386_Loc", 2},
                      FolderButton{"CmdBrw_Win9xLoc", "Select Windows 98/Me Location", "TxtWin9x_Loc", 4},
                      FolderButton{"CmdBrw_ERDC", "Select ERD Commander CD Root", "TxtERDC", 5},
                      FolderButton{"CmdBrw_BCon", "Select BlueCon CD Root", "TxtBCon", 5},
                      FolderButton{"CmdBrw_Utils", "Select 'vexa_utilities' folder location", "TxtUtils_Loc", 6},
                      FolderButton{"CmdBrw_AddFiles", "Select 'Additional Files' folder location", "TxtAddFiles_Loc",
                                   6}),
    [](const auto& one) { return std::string(one.param.field); });

using FileDialogsTest = ChooserViewFixture;

TEST_F(FileDialogsTest, IsoFile_MayBeANewOneAndGetsItsExtension) {
  GoToUsable(7);
  WriteInto("TxtISOLoc", Path("old.iso"));
  watch.InNext([&](QDialog& window) {
    const auto& dialog = dynamic_cast<QFileDialog&>(window);
    EXPECT_EQ(FromQt(dialog.windowTitle()), "Specify the destination ISO file");
    EXPECT_THAT(dialog.nameFilters(), ElementsAre("CDROM Image (*.iso)"));
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(FromQt(dialog.directory().absolutePath()), FromQt(folder_.path()));
    EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "old.iso");
    Enter(window, "new");
  });
  Click("CmdBrw_ISOfile");
  EXPECT_EQ(FieldText("TxtISOLoc"), Path("new.iso"));
}

TEST_F(FileDialogsTest, ExistingIsoFile_IsChosenWithoutAQuestion) {
  GoToUsable(7);
  watch.InNext([&](QDialog& window) { Enter(window, Native("old.iso")); });
  Click("CmdBrw_ISOfile");
  EXPECT_EQ(FieldText("TxtISOLoc"), Path("old.iso"));
  EXPECT_THAT(watch.messages, IsEmpty());
}

TEST_F(FileDialogsTest, CancelledIsoFile_LeavesTheField) {
  GoToUsable(7);
  PressKeyInNext(Qt::Key_Escape);
  Click("CmdBrw_ISOfile");
  EXPECT_EQ(FieldText("TxtISOLoc"), "c:\\vexacd.iso");
}

TEST_F(FileDialogsTest, ServicePack_IsAnExistingProgram) {
  GoToUsable(2);
  watch.InNext([&](QDialog& window) {
    const auto& dialog = dynamic_cast<QFileDialog&>(window);
    EXPECT_EQ(FromQt(dialog.windowTitle()), "Specify the Windows Service pack file");
    EXPECT_THAT(dialog.nameFilters(), ElementsAre("Executable file (*.exe)"));
    EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
    Enter(window, Native("old.exe"));
  });
  Click("CmdBrw_spexe");
  EXPECT_EQ(FieldText("TxtSP_exe"), Path("old.exe"));
}

TEST_F(FileDialogsTest, SetupScript_FillsTheFieldsOfTheDialog) {
  host.AddFile(Path("answers.txt"),
               "[UserData]\r\nFullName=\"Ann\"\r\nComputerName=PC7\r\n[Identification]\r\n"
               "JoinDomain=OFFICE\r\n");
  GoToUsable(3);
  watch.InNext([&](QDialog& info) {
    watch.InNext([&](QDialog& window) {
      const auto& dialog = dynamic_cast<QFileDialog&>(window);
      EXPECT_EQ(FromQt(dialog.windowTitle()), "Unattended setup information file");
      EXPECT_THAT(dialog.nameFilters(), ElementsAre("Text file (*.txt *.sif)"));
      EXPECT_EQ(dialog.parentWidget(), &info);
      EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "unattend.txt");
      Enter(window, Native("answers.txt"));
    });
    Click("CmdBrwUnattend");
    EXPECT_EQ(FieldText("TxtTemplate"), Path("answers.txt"));
    EXPECT_EQ(FieldText("TxtOwner"), "Ann");
    EXPECT_EQ(FieldText("TxtPCName"), "PC7");
    EXPECT_EQ(FieldText("TxtWorkgroup"), "OFFICE");
    EXPECT_TRUE(The<QAbstractButton>("OptJoinDomain").isChecked());
    EXPECT_FALSE(The<QAbstractButton>("OptJoinWorkgroup").isChecked());
    Click("CmdCancel");
  });
  Click("CmdSetWin2KInfo");
}

TEST_F(FileDialogsTest, ChosenWin2KFolder_ShowsItsEditionAtOnceAndATypedOneDoesNot) {
  host.AddFile(Path("win51ic.sp1"), "");
  host.AddFile(Path("win51"), "");
  host.AddFile(Path("win51ic"), "");
  GoToUsable(2);
  const std::string at_first = ShownText("LblWin2KOSVer");
  EXPECT_FALSE(at_first.empty());
  WriteInto("Txt_i386_Loc", Path("before"));
  EXPECT_EQ(ShownText("LblWin2KOSVer"), at_first);
  watch.InNext([&](QDialog& window) { Enter(window, Native("chosen folder")); });
  Click("CmdBrw_i386_loc");
  EXPECT_EQ(ShownText("LblWin2KOSVer"), "Microsoft Windows XP Home Edition");
}

TEST_F(FileDialogsTest, ExploreButtons_StartTheFileManagerOnTheTypedFolder) {
  GoToUsable(6);
  WriteInto("TxtUtils_Loc", "S:\\my utils");
  Click("CmdExp_Utils");
  Click("CmdExp_AddFiles");
  EXPECT_THAT(programs.started,
              ElementsAre("C:\\WINDOWS\\explorer.exe S:\\my utils", "C:\\WINDOWS\\explorer.exe S:\\files"));
}

class DropTest : public ChooserViewFixture {
 protected:
  // Drags something to a field and drops it, with the Shift key, which asks the source to move it. Returns whether the
  // field showed that it would take it.
  bool Drop(const std::string& name, const QMimeData& data) {
    QWidget& field = Widget(name);
    const QPoint place = field.rect().center();
    QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::ShiftModifier);
    QApplication::sendEvent(&field, &enter);
    const bool may_move = enter.isAccepted() && data.hasUrls() && enter.dropAction() != Qt::CopyAction;
    EXPECT_FALSE(may_move);
    QDropEvent drop(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::ShiftModifier);
    if (enter.isAccepted()) QApplication::sendEvent(&field, &drop);
    return enter.isAccepted();
  }
  bool DropUrls(const std::string& name, const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    return Drop(name, data);
  }
  bool DropPath(const std::string& name, const QString& file) {
    return DropUrls(name, {QUrl::fromLocalFile(Native(file))});
  }
};

TEST_F(DropTest, Folder_IsTakenByEachFieldOfAFolder) {
  for (const auto& [field, page] :
       {std::pair("Txt_i386_Loc", 2), std::pair("TxtWin9x_Loc", 4), std::pair("TxtERDC", 5), std::pair("TxtBCon", 5),
        std::pair("TxtUtils_Loc", 6), std::pair("TxtAddFiles_Loc", 6)}) {
    Start();
    GoToUsable(page);
    EXPECT_TRUE(DropPath(field, "chosen folder")) << field;
    EXPECT_EQ(FieldText(field), Path("chosen folder")) << field;
    EXPECT_FALSE(DropPath(field, "old.exe")) << field;
    EXPECT_EQ(FieldText(field), Path("chosen folder")) << field;
  }
}

TEST_F(DropTest, File_IsTakenByEachFieldOfAFile) {
  for (const auto& [field, page, file] :
       {std::tuple("TxtSP_exe", 2, "old.exe"), std::tuple("TxtISOLoc", 7, "old.iso")}) {
    Start();
    GoToUsable(page);
    EXPECT_TRUE(DropPath(field, file));
    EXPECT_EQ(FieldText(field), Path(file));
    EXPECT_FALSE(DropPath(field, "chosen folder"));
    EXPECT_EQ(FieldText(field), Path(file));
  }
}

TEST_F(DropTest, Win2KFolder_ShowsItsEdition) {
  for (const char* tag : {"win51", "win51ic", "win51ic.sp1"}) host.AddFile(Path(tag), "");
  GoToUsable(2);
  DropPath("Txt_i386_Loc", "chosen folder");
  EXPECT_EQ(ShownText("LblWin2KOSVer"), "Microsoft Windows XP Home Edition");
}

TEST_F(DropTest, DisabledField_TakesNothing) {
  GoTo(2);
  EXPECT_FALSE(DropPath("TxtSP_exe", "old.exe"));
  EXPECT_EQ(FieldText("TxtSP_exe"), "S:\\sp.exe");
}

TEST_F(DropTest, SeveralFoldersOrAWebAddress_AreRefused) {
  GoToUsable(6);
  const QUrl folder = QUrl::fromLocalFile(Native("chosen folder"));
  EXPECT_FALSE(DropUrls("TxtUtils_Loc", {folder, folder}));
  EXPECT_FALSE(DropUrls("TxtUtils_Loc", {QUrl("https://discwright.example.org/")}));
  EXPECT_EQ(FieldText("TxtUtils_Loc"), "S:\\utils");
}

TEST_F(DropTest, FieldWithoutAButton_TakesNoFolder) {
  GoToUsable(7);
  records().ChkPassProtect.value = 1;
  EXPECT_FALSE(DropPath("TxtPass1", "chosen folder"));
  EXPECT_FALSE(DropPath("TxtPass1", "old.exe"));
  EXPECT_EQ(FieldText("TxtPass1"), "");
}

TEST_F(DropTest, Text_CanBeDroppedIntoEveryField) {
  GoToUsable(6);
  QMimeData data;
  data.setText("ABC");
  EXPECT_TRUE(Drop("TxtUtils_Loc", data));
  EXPECT_TRUE(FieldText("TxtUtils_Loc").find("ABC") != std::string::npos);
  EXPECT_EQ(records().TxtUtils_Loc.text.get(), FieldText("TxtUtils_Loc"));
}

}  // namespace
}  // namespace discwright::desktop
