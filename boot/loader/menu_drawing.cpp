// What the boot menu shows: title, entries, message, countdown, help line and the keys.
#include "boot/loader/menu.h"
#include "boot/loader/text.h"

namespace discwright::loader {

namespace {

constexpr std::size_t kFirstRow = 2;  // of the entries, and of everything else that is shown in their place
constexpr std::size_t kEntryRows = 16;
constexpr std::size_t kMessageRow = 18;
constexpr std::size_t kMessageRows = 3;
constexpr std::size_t kCountdownRow = 21;
constexpr std::size_t kHelpRow = 22;
constexpr std::size_t kHelpRows = 2;
constexpr std::size_t kKeysRow = 24;
constexpr std::size_t kTextColumn = 6;
constexpr std::size_t kTextWidth = 66;
constexpr std::size_t kKeyColumn = 74;

void DrawTitle(Screen& screen, std::string_view title) {
  screen.FillRow(0, Attribute::kTitle);
  const std::size_t column = title.size() < kColumns ? (kColumns - title.size()) / 2 : 0;
  screen.Write(0, column, title, Attribute::kTitle);
}

void DrawKeys(Screen& screen, std::string_view keys) { screen.Write(kKeysRow, kMargin, keys, Attribute::kGreyed); }

}  // namespace

void Menu::Draw(Screen& screen) const {
  screen.Clear();
  DrawTitle(screen, script_.title);
  switch (state_) {
    case State::kPassword:
    case State::kPause:
    case State::kRestarting:
      return DrawPassword(screen);
    case State::kMistakes:
      return DrawMistakes(screen);
    case State::kSteps:
    case State::kStarted:
      return DrawSteps(screen);
    case State::kEntries:
      return DrawEntries(screen);
  }
}

void Menu::DrawPassword(Screen& screen) const {
  constexpr std::string_view kStars = "****************************************************************";
  constexpr std::size_t kRow = 8;
  screen.Write(kRow, kMargin, "Password: ", Attribute::kHelp);
  if (!script_.has_password) {
    screen.WriteWrapped(kRow + 2, kMessageRows,
                        "The script of this menu asks for a password, but sets none. So no password is right.",
                        Attribute::kMessage);
  }
  if (state_ == State::kPassword) {
    screen.Write(kRow, kMargin + 10, Part(kStars, 0, password_.typed()), Attribute::kNormal);
    screen.WriteWrapped(
        kHelpRow, kHelpRows,
        "Type the password and press Enter. Keys are those of a US keyboard. For other characters, hold "
        "Alt and type the number, with three digits.",
        Attribute::kHelp);
    return DrawKeys(screen, "Enter: go on   Backspace: erase   Esc: erase all");
  }
  std::array<char, kColumns> line{};
  TextWriter writer(line);
  writer.Add("This is not the password. ").Add(wrong_tries_ < 3 ? "Next try in " : "The computer restarts in ");
  writer.Add(state_ == State::kPause ? SecondsLeft(PauseSeconds()) : 0).Add(" s");
  screen.Write(kRow + 5, kMargin, writer.text(), Attribute::kMessage);
}

void Menu::DrawMistakes(Screen& screen) const {
  std::array<char, 3 * kColumns> text{};
  screen.WriteWrapped(kFirstRow, 2,
                      "The script of this menu has mistakes. The lines below do not count; everything else works.",
                      Attribute::kHelp);
  std::size_t row = kFirstRow + 3;
  std::uint32_t shown = 0;
  while (shown < script_.mistake_count && shown < kMostMistakes && row + 2 <= kHelpRow) {
    row += screen.WriteWrapped(row, 2, Describe(script_.mistakes[shown++], text), Attribute::kMessage);
  }
  if (shown < script_.mistake_count) {
    TextWriter writer(text);
    writer.Add("And ").Add(script_.mistake_count - shown).Add(" more.");
    screen.Write(kHelpRow, kMargin, writer.text(), Attribute::kMessage);
  }
  DrawKeys(screen, "Any key: go on to the menu");
}

// Shows the lines up to the present wait, the last ones if there are too many.
void Menu::DrawSteps(Screen& screen) const {
  constexpr std::size_t kLines = kCountdownRow - kFirstRow;
  std::size_t lines = 0;
  for (std::uint16_t i = 0; i < next_step_; ++i) lines += script_.steps[i].owner == owner_ && !script_.steps[i].is_wait;
  std::size_t hidden = lines > kLines ? lines - kLines : 0;
  std::size_t row = kFirstRow;
  for (std::uint16_t i = 0; i < next_step_; ++i) {
    const Step& step = script_.steps[i];
    if (step.owner != owner_ || step.is_wait) continue;
    if (hidden != 0) {
      --hidden;
    } else {
      screen.Write(row++, kMargin, step.text, Attribute::kNormal);
    }
  }
  if (state_ == State::kSteps) DrawKeys(screen, "Any key: go on");
}

void Menu::DrawEntries(Screen& screen) const {
  const std::size_t places = Places();
  for (std::size_t row = 0; row < kEntryRows && top_ + row < places; ++row) {
    DrawEntry(screen, kFirstRow + row, top_ + row);
  }
  if (menu_ != kMainMenu) screen.Write(1, kMargin, script_.entries[menu_].text, Attribute::kHelp);
  if (top_ > 0) screen.Write(kFirstRow - 1, kKeyColumn - 5, "more above", Attribute::kMessage);
  if (top_ + kEntryRows < places) screen.Write(kMessageRow, kKeyColumn - 5, "more below", Attribute::kMessage);
  DrawFoot(screen);
}

void Menu::DrawEntry(Screen& screen, std::size_t row, std::size_t place) const {
  const Entry& entry = script_.entries[EntryAt(place)];
  const bool is_greyed = !ObstacleOf(entry).empty();
  Attribute attribute = is_greyed ? Attribute::kGreyed : Attribute::kNormal;
  if (place == chosen_) {
    attribute = is_greyed ? Attribute::kChosenGreyed : Attribute::kChosen;
    screen.FillRow(row, attribute);
  }
  const auto digit = static_cast<char>('1' + place);
  if (place < 9) screen.Write(row, kMargin + 1, std::string_view(&digit, 1), attribute);
  screen.Write(row, kTextColumn, Part(entry.text, 0, kTextWidth), attribute);
  if (entry.is_menu) screen.Write(row, kTextColumn + kTextWidth, " >", attribute);
  if (entry.key != 0) screen.Write(row, kKeyColumn + 2, std::string_view(&entry.key, 1), attribute);
}

void Menu::DrawFoot(Screen& screen) const {
  std::array<char, kColumns> line{};
  if (message_size_ != 0) {
    screen.WriteWrapped(kMessageRow, kMessageRows, {message_.data(), message_size_}, Attribute::kMessage);
  }
  if (is_counting_) {
    TextWriter writer(line);
    writer.Add("Starts in ").Add(SecondsLeft(script_.timeout)).Add(" s: ");
    writer.Add(script_.entries[script_.default_entry].text);
    screen.Write(kCountdownRow, kMargin, writer.text(), Attribute::kMessage);
  }
  const std::uint16_t chosen = EntryAt(chosen_);
  if (chosen != kNoEntry) {
    const Entry& entry = script_.entries[chosen];
    const std::string_view obstacle = ObstacleOf(entry);
    screen.WriteWrapped(kHelpRow, kHelpRows, obstacle.empty() ? entry.help : obstacle, Attribute::kHelp);
  }
  DrawKeys(screen, menu_ == kMainMenu ? "Arrows: choose   Enter, digit or letter: start"
                                      : "Arrows: choose   Enter, digit or letter: start   Esc: back");
}

}  // namespace discwright::loader
