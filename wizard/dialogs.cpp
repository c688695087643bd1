// Opens and closes the dialogs.
#include "wizard/dialogs.h"

#include "forms/user_actions.h"
#include "settings/win2k_info.h"
#include "settings/win9x_info.h"

namespace discwright::wizard {

namespace {

// The close button of a dialog's window does the same as its Cancel button.
void CloseByCancel(forms::Form& dialog) {
  dialog.asked_to_close = [&dialog] { forms::Press(*dialog.cancel_button); };
}

}  // namespace

void RunDialog(forms::Form& dialog, forms::Form& owner, host::UserInterface& user) {
  constexpr int kLongestWait = 1000;  // milliseconds; an action of the user ends the wait earlier
  owner.enabled = false;
  dialog.visible = true;
  while (dialog.visible && owner.visible) user.DoEvents(kLongestWait);
  dialog.visible = false;
  owner.enabled = true;
}

void BindDialogs(steps::Context& context) {
  forms::Windows& windows = context.windows;
  settings::BindWin2KInfo(windows.win2k_info, context.user, context.notes);
  settings::BindWin9xInfo(windows.win9x_info, context.notes);
  windows.main.CmdSetWin2KInfo.click = [&context] {
    settings::LoadWin2KInfo(context.windows.win2k_info, context.notes);
    RunDialog(context.windows.win2k_info, context.main(), context.user);
  };
  windows.main.CmdSetWin9xInfo.click = [&context] {
    settings::LoadWin9xInfo(context.windows.win9x_info, context.notes);
    RunDialog(context.windows.win9x_info, context.main(), context.user);
  };
  CloseByCancel(windows.win2k_info);
  CloseByCancel(windows.win9x_info);
}

}  // namespace discwright::wizard
