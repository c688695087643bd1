// Contains the handlers of the wizard's five buttons, of its start, of Esc, and of the close button of its window. Call
// Bind once, then Form_Load.
#pragma once

#include <string>

#include "steps/context.h"

namespace discwright::wizard {

// Binds the five buttons to the handlers below, binds the choosers and the dialogs, sets ShowHelp and CancelApp of the
// context, and applies the rules of the check boxes. The rules apply as long as the returned subscription exists.
[[nodiscard]] forms::Subscription Bind(steps::Context& context);

// Reads the session file and shows the window. If there is no such file, the default locations on drive C: are replaced
// on systems without that drive. Returns the failure when the session file exists but cannot be read.
host::Status Form_Load(steps::Context& context, const std::string& session_file);

void CmdNext_Click(steps::Context& context);
void CmdBack_Click(steps::Context& context);
void CmdFinish_Click(steps::Context& context);  // starts the build; after it, saves the session and closes the window
void CmdCancel_Click(steps::Context& context);
void CmdHelp_Click(steps::Context& context);

// Esc is the Cancel button. If a build is running, the user is asked first, because a key is pressed by accident more
// easily than a button.
void CancelByKey(steps::Context& context);

// Ends the program without saving anything. If a build is running, the user is asked first. Then the build is cancelled
// and its mastering is ended; the window closes when the build has returned.
void CloseMainWindow(steps::Context& context);

}  // namespace discwright::wizard
