// A PC in an emulator (QEMU without a display): construct one with drives, then wait for texts or for its end.
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

// QEMU's arguments for a drive. The machine starts from the first CD unless other arguments say otherwise.
std::vector<std::string> CdDrive(const fs::path& image);
std::vector<std::string> AhciCdDrive(const fs::path& image);
std::vector<std::string> UsbCdDrive(const fs::path& image);
std::vector<std::string> HardDisk(const fs::path& image);
// Disks from which the machine starts: a USB stick, or the first of several IDE disks, which get the numbers 80h, 81h
// and so on.
std::vector<std::string> UsbStick(const fs::path& image);
std::vector<std::string> IdeDisks(const std::vector<fs::path>& images);

// An image for QEMU's option -drive. Its reads of one sector fail `count` times, or always if `count` is kAlways. The
// functions describe the faults to QEMU in the file `faults`.
std::string FaultyImage(const fs::path& image, const fs::path& faults, std::uint32_t sector_of_cd, int count);
std::vector<std::string> FaultyCdDrive(const fs::path& image, const fs::path& faults, std::uint32_t sector_of_cd,
                                       int count);
inline constexpr int kAlways = 0;
// A floppy drive, from which the machine starts.
std::vector<std::string> FloppyDrive(const fs::path& image);

inline constexpr const char* kPc32 = "qemu-system-i386";
inline constexpr const char* kPc64 = "qemu-system-x86_64";  // its processor has the long mode

// The machine is switched off when the object is destroyed or the test is killed.
class Emulator {
 public:
  // An upper bound for slow machines. On an idle machine every wait of the tests ends after a second or two.
  static constexpr std::chrono::seconds kDeadline{60};

  // `arguments`: drives, and other arguments of QEMU. `pc` is one of the two above.
  explicit Emulator(const std::vector<std::string>& arguments, const char* pc = kPc32);
  ~Emulator();
  Emulator(const Emulator&) = delete;
  Emulator& operator=(const Emulator&) = delete;

  // Wait until a text stands on the text screen, was sent through COM1, or is in the answer to a command of QEMU's
  // monitor. They fail at the deadline and when the emulator ends, and show the text that came instead.
  ::testing::AssertionResult WaitForScreen(std::string_view text, std::chrono::seconds deadline = kDeadline);
  // Looks at all of the video memory. A system that scrolls without copying, as Linux does, shows another part of it.
  ::testing::AssertionResult WaitForVideoMemory(std::string_view text, std::chrono::seconds deadline = kDeadline);
  ::testing::AssertionResult WaitForSerial(std::string_view text, std::chrono::seconds deadline = kDeadline);
  ::testing::AssertionResult WaitForMonitor(const std::string& command, std::string_view text,
                                            std::chrono::seconds deadline = kDeadline);

  // Waits until the machine is restarted or switched off. Both end the emulator.
  ::testing::AssertionResult WaitForEnd(std::chrono::seconds deadline = kDeadline);
  bool HasEnded();
  // What QEMU told about the machine without being asked, as lines of JSON. After the end it has the reason:
  // "guest-reset" after a restart, "guest-shutdown" when the machine switched itself off.
  std::string Events();

  std::string Screen();        // 25 lines without trailing blanks
  std::string Serial() const;  // what was sent through COM1

  // Writes a picture of the screen, a file in the format PNG.
  void SavePicture(const fs::path& file);

  // Presses a key, or several together with a plus sign between them. QEMU's names of keys: "a", "ret", "spc", "alt+1".
  void SendKey(const std::string& key);
  // Types the characters 32 to 126 on a US keyboard. "\n" is the Enter key.
  void Type(std::string_view text);

  std::string Memory(std::uint32_t address, std::uint32_t size);  // physical address; empty when the emulator has ended
  std::string Monitor(const std::string& command);                // a command of QEMU's human monitor

 private:
  std::string LinesOfVideoMemory(std::size_t count);
  // Calls look() until its result contains `text`, the deadline passes or the emulator ends.
  template <typename Look>
  ::testing::AssertionResult WaitFor(std::string_view text, std::chrono::seconds deadline, const Look& look);
  // The answer to a command with its arguments (JSON); empty when the emulator has ended.
  std::string Execute(const std::string& command, const std::string& arguments = "{}");
  bool ReadLine(std::string& line);

  TemporaryFolder folder_{"emulator"};
  std::array<int, 2> control_;  // both ends of the control connection; the emulator has the second
  std::string events_;
  std::string received_;  // bytes that have arrived and are not yet a whole line
  RunningProgram program_;
};

}  // namespace discwright::testing
