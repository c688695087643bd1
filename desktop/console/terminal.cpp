// Prints the lines of the headless program and draws the live line below them.
#include "desktop/console/terminal.h"

#include <array>

#include "forms/all_windows.h"
#include "host/console.h"

namespace discwright::desktop {

namespace {

// If the line were drawn more often, it would slow down a copy of small files.
constexpr auto kRedrawInterval = std::chrono::milliseconds(50);
constexpr std::size_t kStepCount = 5;

struct Line {
  const forms::Label* message;
  const forms::Label* mark;
};

std::array<Line, kStepCount> Lines(const forms::FrmDiscwright& main) {
  return {{{&main.LblMsg1, &main.LblRight1},
           {&main.LblMsg2, &main.LblRight2},
           {&main.LblMsg3, &main.LblRight3},
           {&main.LblMsg4, &main.LblRight4},
           {&main.LblMsg5, &main.LblRight5}}};
}

void Print(std::string_view text) { host::Print(host::Stream::kError, text); }

// Cuts a text to `columns` characters. Never cuts inside a UTF-8 character.
std::string CutToWidth(std::string_view text, std::size_t columns) {
  std::size_t characters = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool starts_character = (static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U;
    if (starts_character && ++characters > columns) return std::string(text.substr(0, i));
  }
  return std::string(text);
}

// Replaces control characters, which a file name can contain and which a terminal would obey.
std::string Printable(std::string_view text) {
  std::string printable(text);
  for (char& character : printable) {
    if (static_cast<unsigned char>(character) < 0x20 || character == 0x7F) character = '?';
  }
  return printable;
}

}  // namespace

Terminal::Terminal(forms::FrmDiscwright& main, Progress progress) : main_(main), progress_(progress) {
  if (progress_ == Progress::kNone) return;
  listening_ = main_.Listen([this](forms::Control& control, forms::Facet facet, forms::By) {
    if (facet == forms::Facet::kRepaint) {
      Update(Pace::kLimited);
    } else {
      OnChange(control);
    }
  });
}

void Terminal::PrintLine(std::string_view text) {
  ClearLiveLine();
  std::size_t start = 0;
  while (start <= text.size()) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    std::string_view line = text.substr(start, end - start);
    if (line.ends_with('\r')) line.remove_suffix(1);
    Print(Printable(line) + "\n");
    start = end + 1;
  }
}

void Terminal::ClearLiveLine() {
  Update(Pace::kAtOnce);
  if (!live_line_shown_) return;
  Print("\r");
  host::EraseRestOfLine();
  live_line_shown_ = false;
}

void Terminal::OnChange(const forms::Control& control) {
  const bool is_live = progress_ == Progress::kLiveLine;
  has_changed_ = is_live;
  const auto lines = Lines(main_);
  for (std::size_t step = 0; step < lines.size(); ++step) {
    const std::string title =
        std::to_string(step + 1) + "/" + std::to_string(kStepCount) + " " + lines[step].message->caption.get();
    if (&control == lines[step].message && lines[step].message->bold && !is_live) PrintLine(title);
    if (&control == lines[step].mark && lines[step].mark->caption.get() == forms::kCross) {
      PrintLine(title + ": not chosen");
    }
    if (&control == lines[step].mark && is_live && lines[step].mark->caption.get() == forms::kTick) PrintLine(title);
  }
}

void Terminal::Update(Pace pace) {
  if (!has_changed_) return;
  const auto now = std::chrono::steady_clock::now();
  if (pace == Pace::kLimited && live_line_shown_ && now - drawn_at_ < kRedrawInterval) return;
  const auto width = static_cast<std::size_t>(host::TerminalWidth());
  Print("\r" + CutToWidth(Printable(LiveText()), width - 1));
  host::EraseRestOfLine();
  drawn_at_ = now;
  has_changed_ = false;
  live_line_shown_ = true;
}

std::string Terminal::LiveText() const {
  std::string text = forms::ShownText(main_.LblSub_Step);
  const forms::ProgressBar& bar = main_.BarSub_Step;
  const std::int64_t range = bar.max - bar.min;
  if (bar.visible && range > 0) text = std::to_string((bar.value - bar.min) * 100 / range) + "%  " + text;
  for (const Line& line : Lines(main_)) {
    if (line.message->bold && line.message->caption.get() != main_.LblSub_Step.caption.get()) {
      text.insert(0, line.message->caption.get() + ": ");
    }
  }
  return text;
}

}  // namespace discwright::desktop
