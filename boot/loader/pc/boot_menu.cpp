// Reads the menu's script from a volume, shows the menu, and starts what the user chooses.
#include "boot/loader/pc/boot_menu.h"

#include <array>
#include <cstring>
#include <new>

#include "boot/loader/pc/bios_memory.h"
#include "boot/loader/pc/keyboard.h"
#include "boot/loader/pc/places.h"
#include "boot/loader/pc/power.h"
#include "boot/loader/pc/processor.h"
#include "boot/loader/pc/starter.h"
#include "boot/loader/script.h"
#include "boot/loader/tick_count.h"
#include "boot/loader/volume_files.h"

namespace discwright::loader {

namespace {

constexpr std::string_view kScript = "boot/scripts/main.cds";

// Room for an object that is too large for the stack. It is not a variable of its type, because its first value would
// then take room in the file of the loader.
template <typename T>
struct Place {
  alignas(T) std::array<std::uint8_t, sizeof(T)> bytes;

  template <typename... Arguments>
  T& Make(Arguments&&... arguments) {
    return *new (bytes.data()) T(static_cast<Arguments&&>(arguments)...);
  }
};

void Show(const Menu& menu) {
  static Place<Screen> place;
  static Screen& screen = place.Make();
  menu.Draw(screen);
  static_assert(sizeof screen.cells == Console::kColumns * Console::kLines * sizeof(std::uint16_t));
  std::memcpy(text_screen, screen.cells.data(), sizeof screen.cells);
}

// Runs the menu until it says what to do.
Outcome Ask(Menu& menu, TickCount& ticks) {
  while (true) {
    Show(menu);
    const std::optional<std::uint16_t> key = WaitForKey(1);
    const Ticks now = ticks.At(Clock());
    const Outcome outcome = key ? menu.Press(MenuKeyFromBios(*key), now) : menu.Tick(now);
    if (outcome.kind != Outcome::Kind::kNothing) return outcome;
  }
}

[[noreturn]] void RunMenu(Menu& menu, TickCount& ticks, Starter& starter, Console& console) {
  Console::ShowCursor(false);
  while (true) {
    const Outcome outcome = Ask(menu, ticks);
    if (outcome.kind == Outcome::Kind::kRestart) Restart();
    Console::ShowCursor(true);
    console.MoveCursor({0, 0});
    menu.Resume(starter.Start(outcome.command));
    Console::ShowCursor(false);
  }
}

// There is no menu without a readable volume.
[[noreturn]] void SayWhyAndRestart(Console& console, std::string_view reason) {
  console.Write("\nThe boot menu cannot be shown. ");
  console.Write(reason);
  console.Write("\nPress a key to start again.\n");
  ForgetKeys();
  static_cast<void>(WaitForKey());
  Restart();
}

}  // namespace

void ShowBootMenu(Console& console, Volume& volume, std::uint8_t drive, const Obstacles& obstacles) {
  static std::array<char, 2 * kLargestScript> texts;
  static Place<Script> script_place;
  static Place<Menu> menu_place;
  const VolumeError error = volume.Open();
  if (error != VolumeError::kNone) SayWhyAndRestart(console, Words(error, volume.medium()));
  VolumeFiles files(volume);
  Script& script = script_place.Make();
  ReadScript(files, kScript, ReadProcessor(), texts, script);
  const MemoryMap memory = ReadMemoryMap();
  Starter starter(volume, drive, memory, console);
  TickCount ticks(Clock());
  Menu& menu = menu_place.Make(script, obstacles, Ticks{0});
  ForgetKeys();  // what a program before the loader has left must not choose anything
  RunMenu(menu, ticks, starter, console);
}

}  // namespace discwright::loader
