// Makes choices by the names of controls and walks through the wizard without a user. Call Choose, ConfirmDialogs,
// RemarksOn and WalkToTheSummary.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "steps/context.h"

namespace discwright::wizard {

struct Choice {
  std::string control;  // the name of a control, with or without that of its window: see forms::FindControls
  std::string value;    // see forms::Assign
};

// Returns the name of a control for scripts, which is its own name. The name of its window is put before it if its own
// name alone would find another control, or two.
std::string NameOf(forms::Windows& windows, const forms::Control& control);

struct FoundControl {
  forms::Control* control = nullptr;  // null: there is no such control, or more than one
  std::string why_not;                // then the reason, as a sentence; otherwise empty
};

// Finds the control with this name. If there is none, the reason suggests a control with a similar name, with a session
// key of this name, or with this text in its caption.
FoundControl FindControl(forms::Windows& windows, const std::string& name);

// Makes the choices in their order. But if the setup script of Windows 2000/XP is among them, its answers are filled in
// first, because they would replace those that were chosen. Returns what is wrong with a choice, as a sentence; empty
// when all choices were made.
std::string Choose(steps::Context& context, std::span<const Choice> choices);

// Saves the answers of the two installation info dialogs, as their OK buttons do. Saves those of a dialog that one of
// the choices belongs to, and those that the CD needs. If a session was read (`has_session`), its answers count as new.
// If nothing is new but an earlier build has left answers, those are kept, and the result has a sentence that says so.
// Call it after Choose.
std::vector<std::string> ConfirmDialogs(steps::Context& context, std::span<const Choice> choices, bool has_session);

// Returns what a user should know about accepted choices, one sentence each: choices that have no effect, with the
// reason, and names that Windows Setup will refuse. If the user has named the session (`session_is_own`), its check
// boxes are examined too.
std::vector<std::string> RemarksOn(forms::Windows& windows, std::span<const Choice> choices, bool session_is_own);

// Presses Next until the summary page. Returns false if a page refuses its contents.
bool WalkToTheSummary(steps::Context& context);

}  // namespace discwright::wizard
