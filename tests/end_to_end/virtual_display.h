// A display in memory for the real window (Xvfb), and a user's keys on it (xdotool).
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/end_to_end/running_program.h"

namespace discwright::testing {

class VirtualDisplay {
 public:
  VirtualDisplay();  // returns when programs can use the display

  // The environment variables of a program that shows its windows here.
  std::vector<std::pair<std::string, std::string>> Environment() const { return {{"DISPLAY", name_}}; }

  // The ids of the visible windows with exactly this title.
  std::vector<std::string> Windows(const std::string& title) const;
  // Waits until there are `count` such windows. Returns the newest, or an empty text when that takes too long.
  std::string WaitForWindow(const std::string& title, std::size_t count = 1) const;

  // Keys as xdotool names them ("Return", "alt+y"). They go to `window` as if it had been clicked before.
  void Press(const std::string& window, const std::vector<std::string>& keys) const;

 private:
  Outcome Tool(std::vector<std::string> arguments) const;

  std::unique_ptr<RunningProgram> server_;
  std::string name_;
};

}  // namespace discwright::testing
