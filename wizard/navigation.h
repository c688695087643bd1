// The wizard's buttons: Load, Next, Back, Finish, Cancel, Help.
#pragma once

#include <string>

#include "util/context.h"

namespace discwright::wizard {

// Binds the five buttons of the main window to the handlers below, those of the two installation info dialogs and the
// buttons that open them, and the context's ShowHelp.
void Bind(util::Context& context);

// Loads `session_file` when there is such a file (the program's own session file for the window).
void Form_Load(util::Context& context, const std::string& session_file);

void CmdNext_Click(util::Context& context);
void CmdBack_Click(util::Context& context);
void CmdFinish_Click(util::Context& context);  // with Finished set: saves the session and closes the window
void CmdCancel_Click(util::Context& context);
void CmdHelp_Click(util::Context& context);

// Moves the help viewer to a page's topic; 255 means the page in view. Without `ForceShow` only when it is open.
void ShowHelp(util::Context& context, int intStep, bool ForceShow);

}  // namespace discwright::wizard
