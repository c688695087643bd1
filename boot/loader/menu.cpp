// What a key and the time do in the boot menu.
#include "boot/loader/menu.h"

#include "boot/loader/text.h"

namespace discwright::loader {

namespace {

constexpr unsigned kTries = 3;
constexpr std::uint32_t kFirstPause = 2;      // seconds; it doubles with each wrong try
constexpr std::uint32_t kMistakesShown = 20;  // seconds
constexpr std::size_t kPage = 16;             // rows of entries

Ticks TicksOf(std::uint32_t seconds) { return seconds * 182 / 10; }

}  // namespace

Menu::Menu(const Script& script, const Obstacles& obstacles, Ticks now)
    : script_(script), obstacles_(obstacles), now_(now), since_(now) {
  if (script_.asks_for_password) {
    password_.Begin(script_.password);
  } else {
    ShowMistakes();
  }
}

bool Menu::HasPassed(std::uint32_t seconds) const { return now_ - since_ >= TicksOf(seconds); }

std::uint32_t Menu::SecondsLeft(std::uint32_t seconds) const {
  const Ticks passed = now_ - since_;
  const Ticks all = TicksOf(seconds);
  return passed >= all ? 0 : ((all - passed) * 10 + 181) / 182;
}

void Menu::Enter(State state) {
  state_ = state;
  since_ = now_;
}

Outcome Menu::Press(MenuKey key, Ticks now) {
  now_ = now;
  switch (state_) {
    case State::kPassword:
      PressInPassword(key);
      return {};
    case State::kMistakes:
      BeginSteps(kMainMenu);
      return RunSteps();
    case State::kSteps:
      ++next_step_;
      since_ = now_;
      return RunSteps();
    case State::kEntries:
      return PressInEntries(key);
    case State::kPause:
    case State::kStarted:
    case State::kRestarting:
      return {};
  }
  return {};
}

Outcome Menu::Tick(Ticks now) {
  now_ = now;
  switch (state_) {
    case State::kPause:
      if (!HasPassed(PauseSeconds())) return {};
      if (wrong_tries_ >= kTries) {
        Enter(State::kRestarting);
      } else {
        Enter(State::kPassword);
        return {};
      }
      [[fallthrough]];
    case State::kRestarting:
      return {Outcome::Kind::kRestart, {}};
    case State::kMistakes:
      if (!HasPassed(kMistakesShown)) return {};
      BeginSteps(kMainMenu);
      return RunSteps();
    case State::kSteps:
      return RunSteps();
    case State::kEntries:
      if (!is_counting_ || !HasPassed(script_.timeout)) return {};
      is_counting_ = false;
      return Start(script_.default_entry);
    case State::kPassword:
    case State::kStarted:
      return {};
  }
  return {};
}

void Menu::Resume(std::string_view message) {
  if (state_ != State::kStarted) return;
  Enter(State::kEntries);
  ShowMessage(message);
}

void Menu::ShowMessage(std::string_view message) {
  TextWriter writer(message_);
  message_size_ = writer.Add(message).text().size();
}

void Menu::PressInPassword(MenuKey key) {
  if (key.kind != KeyKind::kAltDigit) alt_digits_ = alt_number_ = 0;
  switch (key.kind) {
    case KeyKind::kCharacter:
      password_.Type(key.byte);
      break;
    case KeyKind::kAltDigit:
      AddAltDigit(key.byte);
      break;
    case KeyKind::kBackspace:
      password_.EraseLast();
      break;
    case KeyKind::kEscape:
      password_.Begin(script_.password);
      break;
    case KeyKind::kEnter:
      CheckPassword();
      break;
    default:
      break;
  }
}

void Menu::AddAltDigit(std::uint8_t digit) {
  alt_number_ = alt_number_ * 10 + digit;
  if (++alt_digits_ < 3) return;
  if (alt_number_ <= 255) password_.Type(static_cast<std::uint8_t>(alt_number_));
  alt_digits_ = alt_number_ = 0;
}

void Menu::CheckPassword() {
  const bool is_right = script_.has_password && password_.IsRight();
  password_.Begin(script_.password);
  if (is_right) {
    ShowMistakes();
    return;
  }
  ++wrong_tries_;
  Enter(State::kPause);
}

std::uint32_t Menu::PauseSeconds() const { return kFirstPause << (wrong_tries_ == 0 ? 0 : wrong_tries_ - 1); }

void Menu::ShowMistakes() {
  if (script_.mistake_count != 0) {
    Enter(State::kMistakes);
    return;
  }
  BeginSteps(kMainMenu);
  RunSteps();
}

void Menu::BeginSteps(std::uint16_t owner) {
  owner_ = owner;
  next_step_ = 0;
  Enter(State::kSteps);
}

// Goes on to the next wait that has not passed, or to the end of the steps.
Outcome Menu::RunSteps() {
  for (; next_step_ < script_.step_count; ++next_step_) {
    const Step& step = script_.steps[next_step_];
    if (step.owner != owner_ || !step.is_wait) continue;
    if (step.seconds == 0 || !HasPassed(step.seconds)) return {};
    since_ = now_;
  }
  return FinishSteps();
}

Outcome Menu::FinishSteps() {
  Enter(owner_ == kMainMenu ? State::kEntries : State::kStarted);
  if (owner_ != kMainMenu) return {Outcome::Kind::kStart, script_.entries[owner_].command};
  ShowMessage(LastPrint());
  const bool has_default = script_.default_entry < script_.entry_count;
  if (has_default) Choose(PlaceOf(script_.default_entry));
  is_counting_ = has_default && script_.timeout != 0 && ObstacleOf(script_.entries[script_.default_entry]).empty();
  return {};
}

// Returns the last line that was printed before the menu, unless a wait has shown it already.
std::string_view Menu::LastPrint() const {
  std::string_view text;
  for (std::uint16_t i = 0; i < script_.step_count; ++i) {
    const Step& step = script_.steps[i];
    if (step.owner == kMainMenu) text = step.is_wait ? std::string_view() : step.text;
  }
  return text;
}

Outcome Menu::PressInEntries(MenuKey key) {
  is_counting_ = false;
  message_size_ = 0;
  const std::size_t last = Places() == 0 ? 0 : Places() - 1;
  switch (key.kind) {
    case KeyKind::kUp:
      Choose(chosen_ == 0 ? last : chosen_ - 1);
      return {};
    case KeyKind::kDown:
      Choose(chosen_ == last ? 0 : chosen_ + 1);
      return {};
    case KeyKind::kHome:
      Choose(0);
      return {};
    case KeyKind::kEnd:
      Choose(last);
      return {};
    case KeyKind::kPageUp:
      Choose(chosen_ < kPage ? 0 : chosen_ - kPage);
      return {};
    case KeyKind::kPageDown:
      Choose(last - chosen_ < kPage ? last : chosen_ + kPage);
      return {};
    case KeyKind::kEnter:
      return Start(EntryAt(chosen_));
    case KeyKind::kEscape:
      LeaveSubmenu();
      return {};
    case KeyKind::kCharacter:
      return PressCharacter(key.byte);
    default:
      return {};
  }
}

Outcome Menu::PressCharacter(std::uint8_t byte) {
  const char letter = UpperOf(static_cast<char>(byte));
  if (letter >= '1' && letter <= '9') {
    const auto place = static_cast<std::size_t>(letter - '1');
    if (place >= Places()) return {};
    Choose(place);
    return Start(EntryAt(place));
  }
  if (!IsLetter(letter)) return {};
  for (std::size_t place = 0; place < Places(); ++place) {
    if (script_.entries[EntryAt(place)].key != letter) continue;
    Choose(place);
    return Start(EntryAt(place));
  }
  ChooseNextWith(letter);
  return {};
}

Outcome Menu::Start(std::uint16_t entry) {
  if (entry >= script_.entry_count) return {};
  if (script_.entries[entry].is_menu) {
    menu_ = entry;
    Choose(0);
    return {};
  }
  if (!ObstacleOf(script_.entries[entry]).empty()) return {};
  BeginSteps(entry);
  return RunSteps();
}

void Menu::LeaveSubmenu() {
  if (menu_ == kMainMenu) return;
  const std::uint16_t left = menu_;
  menu_ = script_.entries[left].menu;
  Choose(PlaceOf(left));
}

// Scrolls no further than necessary.
void Menu::Choose(std::size_t place) {
  chosen_ = place;
  if (top_ > place) top_ = place;
  if (place >= kPage && top_ < place - (kPage - 1)) top_ = place - (kPage - 1);
  if (Places() <= kPage) top_ = 0;
}

void Menu::ChooseNextWith(char letter) {
  const std::size_t places = Places();
  for (std::size_t i = 1; i <= places; ++i) {
    const std::size_t place = (chosen_ + i) % places;
    const std::string_view text = script_.entries[EntryAt(place)].text;
    if (!text.empty() && UpperOf(text.front()) == letter) {
      Choose(place);
      return;
    }
  }
}

std::size_t Menu::Places() const { return PlaceOf(script_.entry_count); }

// Returns how many entries of the shown menu stand before `entry`.
std::size_t Menu::PlaceOf(std::uint16_t entry) const {
  std::size_t places = 0;
  for (std::uint16_t i = 0; i < entry; ++i) places += script_.entries[i].menu == menu_ ? 1 : 0;
  return places;
}

std::uint16_t Menu::EntryAt(std::size_t place) const {
  for (std::uint16_t i = 0; i < script_.entry_count; ++i) {
    if (script_.entries[i].menu == menu_ && place-- == 0) return i;
  }
  return kNoEntry;
}

std::string_view Menu::ObstacleOf(const Entry& entry) const {
  return entry.is_menu ? std::string_view() : obstacles_[static_cast<std::size_t>(entry.command.kind)];
}

}  // namespace discwright::loader
