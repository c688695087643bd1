// The wizard's buttons: Load, Next, Back, Finish, Cancel, Help, and the cross of its window.
#pragma once

#include <string>

#include "steps/context.h"

namespace discwright::wizard {

// Puts the wizard together: binds the five buttons to the handlers below, binds the choosers, the dialogs and the
// context's ShowHelp, and applies the rules of the boxes. The rules hold as long as the returned subscription lives.
[[nodiscard]] forms::Subscription Bind(steps::Context& context);

// Loads `session_file` when there is such a file (the program's own session file for the window). Without a session,
// the locations that the design proposes on drive C: are replaced where there is no such drive.
void Form_Load(steps::Context& context, const std::string& session_file);

void CmdNext_Click(steps::Context& context);
void CmdBack_Click(steps::Context& context);
void CmdFinish_Click(steps::Context& context);  // with Finished set: saves the session and closes the window
void CmdCancel_Click(steps::Context& context);
void CmdHelp_Click(steps::Context& context);

// Ends the program without saving anything. A build that runs is cancelled first, together with its mastering; the
// window goes when the build has returned.
void CloseMainWindow(steps::Context& context);

}  // namespace discwright::wizard
