// A PC in Bochs, an emulator with a BIOS of its own: construct one with an image, wait for texts, type keys.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "tests/end_to_end/running_program.h"
#include "tests/end_to_end/trees.h"

namespace discwright::testing {

// The screen of a terminal of the type VT52, which has the fewest control codes of those that can move the cursor.
class TerminalScreen {
 public:
  static constexpr std::size_t kColumns = 80;
  static constexpr std::size_t kLines = 30;

  TerminalScreen() { lines_.fill(std::string(kColumns, ' ')); }

  void Take(char letter);    // takes the next letter of the output for the terminal
  std::string Text() const;  // the lines of the screen without trailing blanks

 private:
  void TakeCode(char letter);
  void Put(char letter);
  void MoveDown();
  void EraseToTheEndOfLine();

  std::array<std::string, kLines> lines_;
  std::size_t line_ = 0;
  std::size_t column_ = 0;
  std::string code_;  // the beginning of a control code whose end has not come yet
};

// The machine is switched off when the object is destroyed or the test is killed.
class Bochs {
 public:
  // An upper bound for slow machines. On an idle machine every wait ends after a second.
  static constexpr std::chrono::seconds kDeadline{120};

  enum class StartsFrom { kCd, kHardDisk };
  Bochs(const fs::path& image, StartsFrom drive);
  ~Bochs();
  Bochs(const Bochs&) = delete;
  Bochs& operator=(const Bochs&) = delete;

  // Waits until a text stands on the text screen. Fails at the deadline and when the emulator ends, and shows the
  // screen.
  ::testing::AssertionResult WaitForScreen(std::string_view text, std::chrono::seconds deadline = kDeadline);
  std::string Screen() const { return screen_.Text(); }  // as the last wait left it
  void Type(std::string_view letters) const;             // "\r" is the Enter key

 private:
  void OpenTerminal();
  bool ReadTerminal();  // waits for a moment if there is nothing to read; false when the emulator has ended

  TemporaryFolder folder_{"bochs"};
  std::unique_ptr<RunningProgram> program_;
  int terminal_ = -1;
  std::string received_;  // output that is not on the screen yet
  TerminalScreen screen_;
};

}  // namespace discwright::testing
