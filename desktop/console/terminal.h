// Prints the output of the headless program on standard error: lines, and on a terminal one live line that shows the
// progress. Construct one Terminal for the main window, then print everything through PrintLine.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "forms/frm_discwright.h"

namespace discwright::desktop {

// Listens to the main window. The live line stands below all other lines. It is not drawn at once when a control
// changes, but at the next Update, so that its text and its percentage belong together.
class Terminal {
 public:
  enum class Progress { kLiveLine, kLinePerStep, kNone };
  Terminal(forms::FrmDiscwright& main, Progress progress);

  // Prints one or more lines, which end in CR LF or LF, above the live line.
  void PrintLine(std::string_view text);

  // Draws the live line if it has changed. With kLimited it is drawn no more often than a terminal can keep up with.
  enum class Pace { kAtOnce, kLimited };
  void Update(Pace pace);
  // Draws the last state of the live line, then removes the line. The next change of the window brings it back.
  void ClearLiveLine();

 private:
  void OnChange(const forms::Control& control);
  std::string LiveText() const;

  forms::FrmDiscwright& main_;
  Progress progress_;
  bool has_changed_ = false;
  bool live_line_shown_ = false;
  std::chrono::steady_clock::time_point drawn_at_;
  forms::Subscription listening_;
};

}  // namespace discwright::desktop
