// Choices made by the names of controls, and what the wizard does when nobody sits in front of it.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "util/context.h"

namespace discwright::wizard {

struct Choice {
  std::string control;  // its name, with or without the window's: see forms::FindControls
  std::string value;    // see forms::Assign
};

// The name by which a control is found: with its window's where the main window has it not.
std::string NameOf(forms::Windows& windows, const forms::Control& control);

// The one control that is meant by a name; null, with a sentence in `error`, when there is none or more than one. The
// sentence names the control that may have been meant, by its spelling, its caption or the key of a session file.
forms::Control* ControlNamed(forms::Windows& windows, const std::string& name, std::string& error);

// Makes the choices in their order. A script that is chosen for the answers of Windows 2000/XP fills the dialog first,
// as its Browse button does. Returns what is wrong, as a sentence; the empty string when nothing is.
std::string Choose(util::Context& context, std::span<const Choice> choices);

// Presses OK in the dialogs: in one that was given answers, and in one whose answers the CD is to hold, because nobody
// else confirms what a session brought. Where nothing new has come, the answers of an earlier build stay, and a
// sentence says so. Call it after Choose.
std::vector<std::string> ConfirmDialogs(util::Context& context, std::span<const Choice> choices, bool has_session);

// What a user should know of the choices although nothing is wrong with them, one sentence each: what has no effect and
// why, and names that Windows Setup will refuse. `session_is_own`: the session was written for this run, so what its
// boxes choose in vain is told, too.
std::vector<std::string> RemarksOn(forms::Windows& windows, std::span<const Choice> choices, bool session_is_own);

// Presses Next until the summary; false when a page keeps the wizard.
bool WalkToTheSummary(util::Context& context);

}  // namespace discwright::wizard
