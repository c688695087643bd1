// Controls QEMU through its machine protocol (QMP), which has one line of JSON for each command and each answer.
#include "tests/boot/emulator.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <stdexcept>
#include <thread>

namespace discwright::testing {

namespace {

constexpr std::uint32_t kTextScreen = 0xB8000;
constexpr std::size_t kColumns = 80;
constexpr std::size_t kLines = 25;
constexpr std::size_t kLinesOfVideoMemory = 0x8000 / 2 / kColumns;
constexpr std::chrono::milliseconds kPollInterval{20};

// Makes a connected pair of sockets. Unlike a named socket it needs no short path and no wait for the other side.
std::array<int, 2> Connection() {
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0) throw std::runtime_error("no connection to the emulator");
  fcntl(ends[0], F_SETFD, FD_CLOEXEC);
  return ends;
}

std::vector<std::string> Command(const char* pc, const fs::path& folder, int control,
                                 const std::vector<std::string>& arguments) {
  std::vector<std::string> command = {
      // Ends the emulator when the test is killed.
      "setpriv", "--pdeathsig", "KILL", pc,
      // Emulates the processor. That is faster than virtualization for the short time of a start.
      "-accel", "tcg", "-nodefaults", "-vga", "std", "-display", "none", "-m", "64", "-boot", "d", "-no-reboot",
      "-chardev", "socket,id=control,fd=" + std::to_string(control), "-mon", "chardev=control,mode=control", "-chardev",
      "file,id=com1,path=" + (folder / "serial").string(), "-serial", "chardev:com1"};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return command;
}

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (const char letter : text) {
    if (letter == '"' || letter == '\\') quoted += '\\';
    quoted += letter;
  }
  return quoted += '"';
}

// QEMU's name of the key, perhaps together with Shift, that makes a character on a US keyboard.
std::string KeyOf(char character) {
  static const std::map<char, std::string> keys = {
      {'\n', "ret"},         {' ', "spc"},           {'`', "grave_accent"}, {'-', "minus"},     {'=', "equal"},
      {'[', "bracket_left"}, {']', "bracket_right"}, {'\\', "backslash"},   {';', "semicolon"}, {'\'', "apostrophe"},
      {',', "comma"},        {'.', "dot"},           {'/', "slash"}};
  constexpr std::string_view kShifted = "~!@#$%^&*()_+{}|:\"<>?";
  constexpr std::string_view kUnshifted = "`1234567890-=[]\\;',./";
  const std::size_t shifted = kShifted.find(character);
  if (shifted != std::string_view::npos) return "shift+" + KeyOf(kUnshifted[shifted]);
  if (character >= 'A' && character <= 'Z') return "shift+" + KeyOf(static_cast<char>(character - 'A' + 'a'));
  const auto key = keys.find(character);
  return key == keys.end() ? std::string(1, character) : key->second;
}

}  // namespace

std::vector<std::string> CdDrive(const fs::path& image) {
  return {"-drive", "if=ide,media=cdrom,format=raw,file=" + image.string()};
}

std::vector<std::string> AhciCdDrive(const fs::path& image) {
  return {"-drive",  "if=none,id=cd,media=cdrom,format=raw,file=" + image.string(),
          "-device", "ahci,id=ahci",
          "-device", "ide-cd,drive=cd,bus=ahci.0,bootindex=0"};
}

std::vector<std::string> UsbCdDrive(const fs::path& image) {
  return {"-drive",  "if=none,id=cd,media=cdrom,format=raw,file=" + image.string(),
          "-device", "qemu-xhci",
          "-device", "usb-storage,drive=cd,bootindex=0"};
}

std::vector<std::string> HardDisk(const fs::path& image) {
  return {"-drive", "if=ide,media=disk,format=raw,file=" + image.string()};
}

std::vector<std::string> UsbStick(const fs::path& image) {
  return {"-drive",  "if=none,id=stick,media=disk,format=raw,file=" + image.string(),
          "-device", "qemu-xhci",
          "-device", "usb-storage,drive=stick,bootindex=0"};
}

std::vector<std::string> IdeDisks(const std::vector<fs::path>& images) {
  std::vector<std::string> arguments;
  for (std::size_t i = 0; i < images.size(); ++i) {
    const std::string number = std::to_string(i);
    arguments.insert(
        arguments.end(),
        {"-drive", "if=none,id=disk" + number + ",media=disk,format=raw,file=" + images[i].string(), "-device",
         "ide-hd,drive=disk" + number + ",bootindex=" + number + ",bus=ide." + std::to_string(i / 2)});
  }
  return arguments;
}

std::string FaultyImage(const fs::path& image, const fs::path& faults, std::uint32_t sector_of_cd, int count) {
  std::string lines;
  for (int number = 0; number < std::max(count, 1); ++number) {
    lines += "[inject-error]\nevent = \"read_aio\"\nerrno = \"5\"\nsector = \"" + std::to_string(sector_of_cd * 4) +
             "\"\nonce = \"" + (count > 0 ? "on" : "off") + "\"\n";
  }
  WriteFile(faults, lines);
  return "driver=raw,file.driver=blkdebug,file.config=" + faults.string() + ",file.image.filename=" + image.string();
}

std::vector<std::string> FaultyCdDrive(const fs::path& image, const fs::path& faults, std::uint32_t sector_of_cd,
                                       int count) {
  return {"-drive", "if=ide,media=cdrom," + FaultyImage(image, faults, sector_of_cd, count)};
}

std::vector<std::string> FloppyDrive(const fs::path& image) {
  return {"-boot", "a", "-drive", "if=floppy,format=raw,file=" + image.string()};
}

Emulator::Emulator(const std::vector<std::string>& arguments, const char* pc)
    : control_(Connection()), program_(Command(pc, folder_.path(), control_[1], arguments)) {
  close(control_[1]);
  Execute("qmp_capabilities");
}

Emulator::~Emulator() { close(control_[0]); }

template <typename Look>
::testing::AssertionResult Emulator::WaitFor(std::string_view text, std::chrono::seconds deadline, const Look& look) {
  const auto end = std::chrono::steady_clock::now() + deadline;
  std::string seen;
  while (true) {
    const bool ended = HasEnded();  // asked before the text is read, so that a text sent just before the end counts
    const std::string now = look();
    if (now.find(text) != std::string::npos) return ::testing::AssertionSuccess();
    if (!now.empty()) seen = now;
    if (ended || std::chrono::steady_clock::now() > end) {
      return ::testing::AssertionFailure()
             << "\"" << text << "\" did not come" << (ended ? " before the emulator's end" : "") << "; what came:\n"
             << seen << "\n"
             << program_.ErrorText();
    }
    std::this_thread::sleep_for(kPollInterval);
  }
}

::testing::AssertionResult Emulator::WaitForScreen(std::string_view text, std::chrono::seconds deadline) {
  return WaitFor(text, deadline, [this] { return Screen(); });
}

::testing::AssertionResult Emulator::WaitForVideoMemory(std::string_view text, std::chrono::seconds deadline) {
  return WaitFor(text, deadline, [this] { return LinesOfVideoMemory(kLinesOfVideoMemory); });
}

::testing::AssertionResult Emulator::WaitForSerial(std::string_view text, std::chrono::seconds deadline) {
  return WaitFor(text, deadline, [this] { return Serial(); });
}

::testing::AssertionResult Emulator::WaitForMonitor(const std::string& command, std::string_view text,
                                                    std::chrono::seconds deadline) {
  return WaitFor(text, deadline, [&] { return Monitor(command); });
}

::testing::AssertionResult Emulator::WaitForEnd(std::chrono::seconds deadline) {
  const auto end = std::chrono::steady_clock::now() + deadline;
  while (!HasEnded()) {
    if (std::chrono::steady_clock::now() > end) {
      return ::testing::AssertionFailure() << "the machine goes on; its screen:\n" << Screen();
    }
    std::this_thread::sleep_for(kPollInterval);
  }
  return ::testing::AssertionSuccess();
}

bool Emulator::HasEnded() { return program_.HasEnded(); }

std::string Emulator::Events() {
  Execute("query-status");
  return events_;
}

std::string Emulator::Screen() { return LinesOfVideoMemory(kLines); }

std::string Emulator::LinesOfVideoMemory(std::size_t count) {
  const std::string memory = Memory(kTextScreen, static_cast<std::uint32_t>(count * kColumns * 2));
  std::string screen;
  for (std::size_t at = 0; at < memory.size(); at += kColumns * 2) {
    std::string line;
    for (std::size_t column = 0; column < kColumns; ++column) line += memory[at + column * 2];
    line.erase(line.find_last_not_of(std::string_view("\0 ", 2)) + 1);
    screen += line += '\n';
  }
  return screen;
}

std::string Emulator::Serial() const { return ReadFile(folder_ / "serial"); }

void Emulator::SavePicture(const fs::path& file) {
  Execute("screendump", R"({"format": "png", "filename": )" + Quoted(file.string()) + "}");
}

void Emulator::SendKey(const std::string& key) {
  std::string keys;
  for (std::size_t begin = 0; begin <= key.size();) {
    const std::size_t end = std::min(key.find('+', begin), key.size());
    keys +=
        (keys.empty() ? "" : ", ") + (R"({"type": "qcode", "data": )" + Quoted(key.substr(begin, end - begin)) + "}");
    begin = end + 1;
  }
  Execute("send-key", R"({"hold-time": 10, "keys": [)" + keys + "]}");
}

void Emulator::Type(std::string_view text) {
  for (const char character : text) SendKey(KeyOf(character));
}

std::string Emulator::Memory(std::uint32_t address, std::uint32_t size) {
  const fs::path file = folder_ / "memory";
  fs::remove(file);
  Execute("pmemsave", R"({"val": )" + std::to_string(address) + R"(, "size": )" + std::to_string(size) +
                          R"(, "filename": )" + Quoted(file.string()) + "}");
  const std::string memory = fs::exists(file) ? ReadFile(file) : "";
  return memory.size() == size ? memory : "";
}

std::string Emulator::Monitor(const std::string& command) {
  return Execute("human-monitor-command", R"({"command-line": )" + Quoted(command) + "}");
}

std::string Emulator::Execute(const std::string& command, const std::string& arguments) {
  const std::string line = R"({"execute": ")" + command + R"(", "arguments": )" + arguments + "}\n";
  // After the emulator's end nothing can be sent, but its last events can still be read.
  static_cast<void>(send(control_[0], line.data(), line.size(), MSG_NOSIGNAL));
  for (std::string answer; ReadLine(answer);) {
    if (answer.starts_with(R"({"return")")) return answer;
    if (answer.starts_with(R"({"error")")) throw std::runtime_error("the emulator refuses " + line + answer);
    events_ += answer + '\n';  // also the greeting
  }
  return "";
}

// Reads the next line. False when the connection has ended.
bool Emulator::ReadLine(std::string& line) {
  std::size_t end = 0;
  while ((end = received_.find('\n')) == std::string::npos) {
    std::array<char, 4096> piece{};
    pollfd readable{control_[0], POLLIN, 0};
    if (poll(&readable, 1, static_cast<int>(std::chrono::milliseconds(kDeadline).count())) <= 0) return false;
    const ssize_t got = read(control_[0], piece.data(), piece.size());
    if (got <= 0) return false;
    received_.append(piece.data(), static_cast<std::size_t>(got));
  }
  line = received_.substr(0, end);
  received_.erase(0, end + 1);
  return true;
}

}  // namespace discwright::testing
