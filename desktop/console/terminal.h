// What the headless program shows: lines on standard error, and one live line on a terminal.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "forms/frm_discwright.h"

namespace discwright::desktop {

// Prints lines and keeps the live progress line below them. The live line is drawn between two steps of the program's
// work and not while something changes, so that its text and its percentage belong together.
class Terminal {
 public:
  // `live`: standard error is a terminal; otherwise one line per step is printed. `quiet`: no progress at all.
  Terminal(forms::FrmDiscwright& main, bool live, bool quiet);

  // One or more lines (CR LF or LF between them), above the live line.
  void PrintLine(std::string_view text);

  // Draws what has changed: at once, or not more often than a terminal can take.
  enum class Pace { kAtOnce, kLimited };
  void Update(Pace pace);
  // Removes the live line, with its last state drawn; the next change of the window brings it back.
  void ClearLiveLine();

 private:
  void OnChange(const forms::Control& control);
  std::string LiveText() const;

  forms::FrmDiscwright& main_;
  bool live_;
  bool quiet_;
  bool has_changed_ = false;
  bool live_line_shown_ = false;
  std::chrono::steady_clock::time_point drawn_at_;
  forms::Subscription listening_;
};

}  // namespace discwright::desktop
