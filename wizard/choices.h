// Choices made by the names of controls, and the wizard walked through without a user.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "steps/context.h"

namespace discwright::wizard {

struct Choice {
  std::string control;  // its name, with or without the window's: see forms::FindControls
  std::string value;    // see forms::Assign
};

// The name by which a script finds a control. It begins with the window's name where the bare name would find another
// control, or two.
std::string NameOf(forms::Windows& windows, const forms::Control& control);

// The one control of that name. Null, with a sentence in `error`, when there is none or more than one. The sentence
// suggests a control of a similar name, or one with this caption or this key of a session file.
forms::Control* ControlNamed(forms::Windows& windows, const std::string& name, std::string& error);

// Makes the choices in their order. A script that is chosen for the answers of Windows 2000/XP fills the dialog first,
// as its Browse button does. Returns what is wrong, as a sentence; the empty string when nothing is.
std::string Choose(steps::Context& context, std::span<const Choice> choices);

// Presses OK in a dialog that was given answers, and in one whose answers the CD is to hold: without a user in front of
// the window, the answers of a session would not be confirmed otherwise. Where nothing new has come, the answers of an
// earlier build stay, and a sentence says so. Call it after Choose.
std::vector<std::string> ConfirmDialogs(steps::Context& context, std::span<const Choice> choices, bool has_session);

// What a user should know of the choices although none of them is refused, one sentence each: which have no effect and
// why, and which names Windows Setup will refuse. `session_is_own`: the session was given on the command line, so its
// check boxes are looked at, too.
std::vector<std::string> RemarksOn(forms::Windows& windows, std::span<const Choice> choices, bool session_is_own);

// Presses Next until the summary; false when a page keeps the wizard.
bool WalkToTheSummary(steps::Context& context);

}  // namespace discwright::wizard
