// The boot menu: what a key and the time do, and what is on the screen. It does nothing itself; it tells its caller
// what to start.
//
// It asks for the password if the script wants that, shows the mistakes of the script, does its Print and Wait, and
// then shows the entries. Arrows, Home, End and the page keys choose. Enter, a digit (the place in the menu) or a hot
// key starts; another letter chooses the next entry that begins with it. Esc leaves a submenu. Any key stops the
// countdown, which begins when the entries appear.
//
// After a wrong password the menu pauses, each time longer. After the third one the outcome is kRestart.
// How every byte can be typed is said in keys.h.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "boot/loader/keys.h"
#include "boot/loader/password.h"
#include "boot/loader/screen.h"
#include "boot/loader/script.h"

namespace discwright::loader {

// The time is a count of ticks of the PC's clock, some 18.2 in a second. It may begin anywhere and wrap around.
using Ticks = std::uint32_t;

struct Outcome {
  enum class Kind : std::uint8_t { kNothing, kStart, kRestart };
  Kind kind = Kind::kNothing;
  Command command;  // of kStart
};

// Why a kind of command cannot be used on this computer, for example "Needs a CD drive."; an empty text: it can.
// Entries with such a command are greyed.
using Obstacles = std::array<std::string_view, kCommandKinds>;

class Menu {
 public:
  // `script` and the texts of `obstacles` must outlive the menu.
  Menu(const Script& script, const Obstacles& obstacles, Ticks now);

  // A key was pressed, or time has passed. The caller draws, and then does what the outcome says.
  Outcome Press(MenuKey key, Ticks now);
  Outcome Tick(Ticks now);
  // A command has returned: the menu goes on, which before does nothing more. `message` says why the command failed; it
  // is copied, and may be empty.
  void Resume(std::string_view message);

  void Draw(Screen& screen) const;

 private:
  enum class State : std::uint8_t { kPassword, kPause, kMistakes, kSteps, kEntries, kStarted, kRestarting };

  [[nodiscard]] bool HasPassed(std::uint32_t seconds) const;
  [[nodiscard]] std::uint32_t SecondsLeft(std::uint32_t seconds) const;
  void Enter(State state);

  // Password.
  void PressInPassword(MenuKey key);
  void AddAltDigit(std::uint8_t digit);
  void CheckPassword();
  [[nodiscard]] std::uint32_t PauseSeconds() const;

  // Mistakes and steps.
  void ShowMistakes();
  void BeginSteps(std::uint16_t owner);
  Outcome RunSteps();
  Outcome FinishSteps();
  void ShowMessage(std::string_view message);
  [[nodiscard]] std::string_view LastPrint() const;

  // Entries. A place is the number of an entry in the menu that is shown, from 0 on.
  Outcome PressInEntries(MenuKey key);
  Outcome PressCharacter(std::uint8_t byte);
  Outcome Start(std::uint16_t entry);
  void LeaveSubmenu();
  void Choose(std::size_t place);
  void ChooseNextWith(char letter);
  [[nodiscard]] std::size_t Places() const;
  [[nodiscard]] std::size_t PlaceOf(std::uint16_t entry) const;
  [[nodiscard]] std::uint16_t EntryAt(std::size_t place) const;
  [[nodiscard]] std::string_view ObstacleOf(const Entry& entry) const;

  void DrawPassword(Screen& screen) const;
  void DrawMistakes(Screen& screen) const;
  void DrawSteps(Screen& screen) const;
  void DrawEntries(Screen& screen) const;
  void DrawEntry(Screen& screen, std::size_t row, std::size_t place) const;
  void DrawFoot(Screen& screen) const;

  const Script& script_;
  const Obstacles obstacles_;
  State state_ = State::kPassword;
  Ticks now_ = 0;
  Ticks since_ = 0;  // when the state, or its present wait, began

  PasswordEntry password_;
  unsigned wrong_tries_ = 0;
  unsigned alt_digits_ = 0;
  unsigned alt_number_ = 0;

  std::uint16_t owner_ = kMainMenu;  // of the steps that are done
  std::uint16_t next_step_ = 0;

  std::uint16_t menu_ = kMainMenu;
  std::size_t chosen_ = 0;  // a place
  std::size_t top_ = 0;     // the place in the first row
  bool is_counting_ = false;
  std::array<char, 240> message_{};
  std::size_t message_size_ = 0;
};

}  // namespace discwright::loader
