// Runs Bochs with its text display. Bochs makes a pair of terminals: it draws on one, and names the other one.
#include "tests/boot/bochs.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>
#include <thread>
#include <vector>

namespace discwright::testing {

namespace {

constexpr std::chrono::milliseconds kLookInterval{20};
constexpr char kEscape = '\x1B';

std::string Configuration(const fs::path& image, Bochs::StartsFrom drive, const fs::path& folder) {
  const bool from_cd = drive == Bochs::StartsFrom::kCd;
  const std::string kind = from_cd ? "type=cdrom, status=inserted" : "type=disk, mode=volatile";
  return "display_library: term\n"
         "romimage: file=/usr/share/bochs/BIOS-bochs-latest\n"
         "vgaromimage: file=/usr/share/bochs/VGABIOS-lgpl-latest\n"
         "megs: 64\n"
         // The clock of the machine counts its instructions. The screen is drawn ten times in each second of that
         // clock, so every text that stands for a moment is drawn.
         "cpu: ips=100000000\n"
         "vga: update_freq=10, realtime=0\n"
         "clock: sync=none\n"
         "speaker: enabled=0\n"
         "sound: driver=default, waveoutdrv=dummy, waveindrv=dummy, midioutdrv=dummy\n"
         "log: \"" +
         (folder / "log").string() + "\"\n" + "ata0-master: " + kind + ", path=\"" + image.string() + "\"\n" +
         "boot: " + (from_cd ? "cdrom" : "disk") + "\n";
}

}  // namespace

std::string TerminalScreen::Text() const {
  std::string text;
  for (const std::string& line : lines_) text += line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
  return text;
}

void TerminalScreen::Take(char letter) {
  if (!code_.empty()) return TakeCode(letter);
  switch (letter) {
    case kEscape:
      code_ = letter;
      break;
    case '\r':
      column_ = 0;
      break;
    case '\n':
      MoveDown();
      break;
    case '\b':
      column_ -= column_ > 0 ? 1 : 0;
      break;
    case '\t':
      column_ = std::min((column_ / 8 + 1) * 8, kColumns - 1);
      break;
    default:
      Put(letter);
  }
}

// Takes a letter behind an escape. "Y" sets the cursor: a letter for the line and one for the column follow.
void TerminalScreen::TakeCode(char letter) {
  code_ += letter;
  if (code_[1] == 'Y' && code_.size() < 4) return;
  switch (code_[1]) {
    case 'Y':
      line_ = std::min<std::size_t>(static_cast<std::size_t>(code_[2] - ' '), kLines - 1);
      column_ = std::min<std::size_t>(static_cast<std::size_t>(code_[3] - ' '), kColumns - 1);
      break;
    case 'H':
      line_ = column_ = 0;
      break;
    case 'A':
      line_ -= line_ > 0 ? 1 : 0;
      break;
    case 'B':
      line_ = std::min(line_ + 1, kLines - 1);
      break;
    case 'C':
      column_ = std::min(column_ + 1, kColumns - 1);
      break;
    case 'D':
      column_ -= column_ > 0 ? 1 : 0;
      break;
    case 'K':
      EraseToTheEndOfLine();
      break;
    case 'J':
      EraseToTheEndOfLine();
      std::fill(lines_.begin() + static_cast<std::ptrdiff_t>(line_) + 1, lines_.end(), std::string(kColumns, ' '));
      break;
    default:  // the others change no text
      break;
  }
  code_.clear();
}

void TerminalScreen::Put(char letter) {
  if (letter >= 0 && letter < ' ') return;
  lines_[line_][column_] = letter;
  column_ = std::min(column_ + 1, kColumns - 1);
}

void TerminalScreen::MoveDown() {
  if (line_ + 1 < kLines) {
    ++line_;
    return;
  }
  std::rotate(lines_.begin(), lines_.begin() + 1, lines_.end());
  lines_.back() = std::string(kColumns, ' ');
}

void TerminalScreen::EraseToTheEndOfLine() { lines_[line_].replace(column_, kColumns, kColumns - column_, ' '); }

Bochs::Bochs(const fs::path& image, StartsFrom drive) {
  WriteFile(folder_ / "configuration", Configuration(image, drive, folder_.path()));
  WriteFile(folder_ / "commands", "c\n");  // tells the debugger of Bochs to run the machine
  fs::remove(image.string() + ".lock");    // left by an earlier machine, which was killed
  program_ = std::make_unique<RunningProgram>(
      std::vector<std::string>{"setpriv", "--pdeathsig", "KILL", "bochs", "-q", "-f",
                               (folder_ / "configuration").string(), "-rc", (folder_ / "commands").string()},
      Surroundings{.working_folder = folder_.path(),
                   .environment = {{"TERM", "vt52"},
                                   {"COLUMNS", std::to_string(TerminalScreen::kColumns)},
                                   {"LINES", std::to_string(TerminalScreen::kLines)}}});
  OpenTerminal();
}

Bochs::~Bochs() {
  if (terminal_ >= 0) close(terminal_);
}

// Waits until Bochs names the terminal, and opens it. Its settings must not change what passes through.
void Bochs::OpenTerminal() {
  constexpr std::string_view kBefore = "connected to screen \"";
  const auto end = std::chrono::steady_clock::now() + kDeadline;
  while (true) {
    const bool ended = program_->HasEnded();
    const std::string text = program_->ErrorText();
    const std::size_t begin = text.find(kBefore);
    const std::size_t quote = begin == std::string::npos ? begin : text.find('"', begin + kBefore.size());
    if (quote != std::string::npos) {
      const std::string name = text.substr(begin + kBefore.size(), quote - begin - kBefore.size());
      terminal_ = open(name.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
      termios settings{};
      if (terminal_ < 0 || tcgetattr(terminal_, &settings) != 0) throw std::runtime_error(name + " cannot be opened");
      cfmakeraw(&settings);
      tcsetattr(terminal_, TCSANOW, &settings);
      return;
    }
    if (ended || std::chrono::steady_clock::now() > end) throw std::runtime_error("Bochs does not start: " + text);
    std::this_thread::sleep_for(kLookInterval);
  }
}

bool Bochs::ReadTerminal() {
  std::array<char, 4096> piece{};
  pollfd readable{terminal_, POLLIN, 0};
  if (poll(&readable, 1, static_cast<int>(kLookInterval.count())) <= 0) return !program_->HasEnded();
  const ssize_t got = read(terminal_, piece.data(), piece.size());
  if (got > 0) received_.append(piece.data(), static_cast<std::size_t>(got));
  return got > 0;
}

// Takes one letter after the other, so that no text is missed that stands on the screen for a short time only.
::testing::AssertionResult Bochs::WaitForScreen(std::string_view text, std::chrono::seconds deadline) {
  const auto end = std::chrono::steady_clock::now() + deadline;
  while (screen_.Text().find(text) == std::string::npos) {
    if (!received_.empty()) {
      screen_.Take(received_.front());
      received_.erase(0, 1);
      continue;
    }
    const bool goes_on = ReadTerminal();
    if (!goes_on || std::chrono::steady_clock::now() > end) {
      return ::testing::AssertionFailure()
             << "\"" << text << "\" did not come" << (goes_on ? "" : " before the end") << "; what came:\n"
             << screen_.Text() << "\n"
             << program_->ErrorText();
    }
  }
  return ::testing::AssertionSuccess();
}

void Bochs::Type(std::string_view letters) const {
  if (write(terminal_, letters.data(), letters.size()) != static_cast<ssize_t>(letters.size())) {
    throw std::runtime_error("Bochs takes no keys");
  }
}

}  // namespace discwright::testing
