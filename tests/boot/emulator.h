// A PC in an emulator: starts from the drives that a test gives it, and tells what stands on its screen.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/end_to_end/running_program.h"
#include "tests/end_to_end/trees.h"

namespace discwright::testing {

// The emulator's arguments for one drive each. Without a choice of its own, the machine starts from the first CD.
std::vector<std::string> CdDrive(const fs::path& image);
std::vector<std::string> HardDisk(const fs::path& image);

// Switched off when the object goes, or the test is killed.
class Emulator {
 public:
  // Only a bound: what is waited for comes within a second or two on an idle machine.
  static constexpr std::chrono::seconds kDeadline{60};

  // Drives, and other arguments of the emulator.
  explicit Emulator(const std::vector<std::string>& arguments);
  ~Emulator();
  Emulator(const Emulator&) = delete;
  Emulator& operator=(const Emulator&) = delete;

  // Waits until the text stands on the text screen, was sent through COM1, or is in the answer to a command of the
  // emulator's monitor. Fails, with what came instead, at the deadline and when the emulator has ended.
  ::testing::AssertionResult WaitForScreen(std::string_view text, std::chrono::seconds deadline = kDeadline);
  ::testing::AssertionResult WaitForSerial(std::string_view text, std::chrono::seconds deadline = kDeadline);
  ::testing::AssertionResult WaitForMonitor(const std::string& command, std::string_view text,
                                            std::chrono::seconds deadline = kDeadline);

  // Waits until the machine was restarted or switched off, which ends the emulator.
  ::testing::AssertionResult WaitForEnd(std::chrono::seconds deadline = kDeadline);
  bool HasEnded();

  std::string Screen();        // 25 lines without the blanks at their ends
  std::string Serial() const;  // what was sent through COM1

  // A key by the emulator's name for it: "a", "ret", "spc", "down".
  void SendKey(const std::string& key);

  std::string Memory(std::uint32_t address, std::uint32_t size);  // physical; empty when the emulator has ended
  std::string Monitor(const std::string& command);                // of the emulator's monitor for people

 private:
  // The text that Look() gives holds `text` before the deadline and before the emulator ends.
  template <typename Look>
  ::testing::AssertionResult WaitFor(std::string_view text, std::chrono::seconds deadline, const Look& look);
  // The answer to a command with its arguments (JSON); empty when the emulator has ended.
  std::string Execute(const std::string& command, const std::string& arguments = "{}");
  bool ReadLine(std::string& line);

  TemporaryFolder folder_{"emulator"};
  std::array<int, 2> control_;  // both ends of the connection, the emulator's is the second
  std::string received_;        // what has arrived and was not read as a line
  RunningProgram program_;
};

}  // namespace discwright::testing
