// Tests of the two installation info dialogs over the main window: they are opened, changed, closed and opened again.
#include "wizard/dialogs.h"

#include "tests/wizard/wizard_fixture.h"

namespace discwright::wizard {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::WizardFixture;

class Dialogs : public WizardFixture {
 protected:
  Dialogs() {
    main.ChkWin2KInfo_Unattend.value = 1;
    main.ChkWin9xInfo_MSBatch.value = 1;
  }

  // Presses `open`, and does `act` once the dialog is up; it is for `act` to close it.
  void Open(forms::CommandButton& open, const std::function<void()>& act) {
    int rounds = 0;
    user.on_do_events = [&] {
      if (++rounds < 10) return act();
      ADD_FAILURE() << "the dialog stays open";
      win2k.visible = false;
      win9x.visible = false;
    };
    EXPECT_TRUE(forms::Press(open));
    EXPECT_EQ(rounds, 1);
    user.on_do_events = nullptr;
  }

  forms::FrmWin2KInfo& win2k = windows.win2k_info;
  forms::FrmWin9xInfo& win9x = windows.win9x_info;
};

TEST_F(Dialogs, ButtonOfWin2KInfo_LoadsTheDialogAndReturnsWhenOkClosesIt) {
  host.AddFile("C:\\Discwright\\files\\inf_files\\win2k_template.inf", "[UserData]\r\nFullName=Ann\r\n");
  Open(main.CmdSetWin2KInfo, [&] {
    EXPECT_TRUE(win2k.visible);
    EXPECT_EQ(win2k.TxtOwner.text.get(), "Ann");
    EXPECT_TRUE(forms::Type(win2k.TxtPCName, "OLDPC"));
    EXPECT_TRUE(forms::Press(win2k.CmdOK));
  });
  EXPECT_FALSE(win2k.visible);
  EXPECT_THAT(host.Content("C:\\Discwright\\keyfile2.txt"), HasSubstr("OwnerName=Ann\r\n"));
  EXPECT_THAT(host.Content("C:\\Discwright\\keyfile2.txt"), HasSubstr("ComputerName=OLDPC\r\n"));
}

TEST_F(Dialogs, ButtonOfWin9xInfo_LoadsTheDialogAndReturnsWhenOkClosesIt) {
  host.platform_id = 1;
  host.registry["Software\\Microsoft\\Windows\\CurrentVersion\\RegisteredOwner"] = "Ann";
  Open(main.CmdSetWin9xInfo, [&] {
    EXPECT_TRUE(win9x.visible);
    EXPECT_EQ(win9x.TxtOwner.text.get(), "Ann");
    EXPECT_TRUE(forms::Press(win9x.CmdOK));
  });
  EXPECT_FALSE(win9x.visible);
  EXPECT_THAT(host.Content("C:\\Discwright\\keyfile2.txt"), HasSubstr("OwnerName=Ann\r\n"));
}

TEST_F(Dialogs, OpenDialog_DisablesTheMainWindow) {
  Open(main.CmdSetWin2KInfo, [&] {
    EXPECT_FALSE(main.enabled);
    EXPECT_FALSE(forms::Press(main.CmdNext));
    EXPECT_FALSE(forms::Press(main.CmdSetWin2KInfo));
    forms::Press(win2k.CmdCancel);
  });
  EXPECT_TRUE(main.enabled);
  EXPECT_TRUE(forms::CanBeUsed(main.CmdNext));
}

TEST_F(Dialogs, Cancel_SavesNothingAndKeepsTheEditedTextsForTheRun) {
  for (auto [open, cancel, owner] : {std::tuple(&main.CmdSetWin2KInfo, &win2k.CmdCancel, &win2k.TxtOwner),
                                     std::tuple(&main.CmdSetWin9xInfo, &win9x.CmdCancel, &win9x.TxtOwner)}) {
    Open(*open, [&, cancel = cancel, owner = owner] {
      forms::Type(*owner, "Bob");
      forms::Press(*cancel);
    });
    EXPECT_FALSE(host.Exists("C:\\Discwright\\keyfile2.txt"));
    Open(*open, [&, cancel = cancel, owner = owner] {
      EXPECT_EQ(owner->text.get(), "Bob");
      forms::Press(*cancel);
    });
  }
}

TEST_F(Dialogs, Cross_IsCancel) {
  for (auto [open, form, owner] :
       {std::tuple(&main.CmdSetWin2KInfo, static_cast<forms::Form*>(&win2k), &win2k.TxtOwner),
        std::tuple(&main.CmdSetWin9xInfo, static_cast<forms::Form*>(&win9x), &win9x.TxtOwner)}) {
    Open(*open, [&, form = form, owner = owner] {
      forms::Type(*owner, "Bob");
      forms::AskToClose(*form);
    });
    EXPECT_FALSE(form->visible);
    EXPECT_FALSE(host.Exists("C:\\Discwright\\keyfile2.txt"));
    EXPECT_EQ(owner->text.get(), "Bob");
  }
}

TEST_F(Dialogs, OwnerThatIsClosed_ClosesTheDialog) {
  Open(main.CmdSetWin2KInfo, [&] { forms::AskToClose(main); });
  EXPECT_FALSE(main.visible);
  EXPECT_FALSE(win2k.visible);
}

TEST_F(Dialogs, ListenersOfAClosedDialog_LeaveNothingBehind) {
  const std::size_t before = win2k.listener_count();
  Open(main.CmdSetWin2KInfo, [&] { forms::Press(win2k.CmdOK); });
  EXPECT_EQ(win2k.listener_count(), before);
}

TEST_F(Dialogs, ScriptChooser_OpensNextWithTheScriptThatWasChosen) {
  host.AddFile("S:\\answers.txt", "[UserData]\r\nFullName=Bob\r\n");
  Open(main.CmdSetWin2KInfo, [&] {
    forms::Press(win2k.CmdBrwUnattend);  // cancelled
    user.file_answer = "S:\\answers.txt";
    forms::Press(win2k.CmdBrwUnattend);
    user.file_answer = "";
    forms::Press(win2k.CmdBrwUnattend);
    forms::Press(win2k.CmdCancel);
  });
  EXPECT_THAT(user.asked, ElementsAre("Unattended setup information file <unattend.txt>",
                                      "Unattended setup information file <unattend.txt>",
                                      "Unattended setup information file <S:\\answers.txt>"));
  EXPECT_THAT(user.file_filters, ::testing::Each("Text file (*.txt; *.sif)|*.txt; *.sif"));
  EXPECT_EQ(win2k.TxtTemplate.text.get(), "S:\\answers.txt");
  EXPECT_EQ(win2k.TxtOwner.text.get(), "Bob");
}

}  // namespace
}  // namespace discwright::wizard
