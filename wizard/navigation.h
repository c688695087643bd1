// The wizard's buttons: Load, Next, Back, Finish, Cancel, Help, and the cross of its window.
#pragma once

#include <string>

#include "util/context.h"

namespace discwright::wizard {

// Puts the wizard together: binds the five buttons to the handlers below, the choosers, the dialogs, the context's
// ShowHelp, and keeps the rules of the boxes until what is returned ends.
[[nodiscard]] forms::Subscription Bind(util::Context& context);

// Loads `session_file` when there is such a file (the program's own session file for the window). Without one, and
// where there is no drive C:, the locations that the design proposes there are replaced.
void Form_Load(util::Context& context, const std::string& session_file);

void CmdNext_Click(util::Context& context);
void CmdBack_Click(util::Context& context);
void CmdFinish_Click(util::Context& context);  // with Finished set: saves the session and closes the window
void CmdCancel_Click(util::Context& context);
void CmdHelp_Click(util::Context& context);

// Ends the program without saving anything. A build that runs is cancelled first, together with its mastering; the
// window goes when the build has returned.
void CloseMainWindow(util::Context& context);

}  // namespace discwright::wizard
