// Gives random scripts and keys to the boot menu. It must end, stay in its memory, and start nothing before the
// password is right.
//
// The input is a script, a zero byte, a second script that the first may include as "b", a zero byte, and keys. A key
// is two bytes: its kind and its byte; the time that passes before it is made of both.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "boot/loader/menu.h"
#include "boot/loader/script.h"
#include "tests/fuzz/fuzzed_sectors.h"

namespace {

using namespace discwright::loader;
using discwright::testing::Require;

class FuzzFiles : public Files {
 public:
  FuzzFiles(std::string_view first, std::string_view second) : first_(first), second_(second) {}
  Medium medium() const override { return first_.size() % 2 == 0 ? Medium::kCd : Medium::kFloppy; }
  bool Exists(std::string_view path) override { return !path.empty() && path.size() % 3 != 0; }
  FileText Read(std::string_view path, std::span<char> to) override {
    if (path.size() > 3) return {ReadEnd::kFailed, 0};
    const std::string_view text = path == "a" ? first_ : second_;
    const std::size_t size = std::min(text.size(), to.size());
    std::copy_n(text.begin(), size, to.begin());
    return {size < text.size() ? ReadEnd::kTooLarge : ReadEnd::kRead, size};
  }

 private:
  std::string_view first_;
  std::string_view second_;
};

std::string_view TakeText(std::string_view& input) {
  const std::size_t end = std::min(input.find('\0'), input.size());
  const std::string_view text = input.substr(0, end);
  input.remove_prefix(std::min(end + 1, input.size()));
  return text;
}

void CheckScript(const Script& script) {
  std::array<char, 200> text{};
  Require(script.entry_count > 0);
  for (std::uint16_t i = 0; i < script.entry_count; ++i) {
    const Entry& entry = script.entries[i];
    Require(entry.menu == kMainMenu || (entry.menu < i && script.entries[entry.menu].is_menu));
  }
  for (std::uint16_t i = 0; i < script.step_count; ++i) {
    const std::uint16_t owner = script.steps[i].owner;
    Require(owner == kMainMenu || (owner < script.entry_count && !script.entries[owner].is_menu));
  }
  for (std::size_t i = 0; i < std::min<std::size_t>(script.mistake_count, kMostMistakes); ++i) {
    Require(!Describe(script.mistakes[i], text).empty());
  }
  Require(script.default_entry == kNoEntry || script.default_entry < script.entry_count);
}

// What a simple reader of the keys makes of them: whether the password was ever entered. It takes keys during a pause
// for typed ones, and so says yes at least as often as the menu may.
class Typed {
 public:
  void Press(MenuKey key, std::string_view password) {
    if (key.kind == KeyKind::kAltDigit) uses_numbers_ = true;
    if (key.kind == KeyKind::kCharacter) count_ += password.find(static_cast<char>(key.byte)) != password.npos;
    if (key.kind == KeyKind::kEnter) may_be_open_ = may_be_open_ || count_ >= password.size() || uses_numbers_;
  }
  [[nodiscard]] bool may_be_open() const { return may_be_open_; }

 private:
  std::size_t count_ = 0;
  bool uses_numbers_ = false;
  bool may_be_open_ = false;
};

void PressKeys(const Script& script, std::string_view keys) {
  Obstacles obstacles{};
  if (keys.size() % 2 == 1) obstacles[keys.size() / 2 % kCommandKinds] = "This computer has none.";
  Ticks now = 0xFFFFFF00;
  Menu menu(script, obstacles, now);
  Typed typed;
  auto screen = std::make_unique<Screen>();
  for (; keys.size() >= 2; keys.remove_prefix(2)) {
    const auto kind = static_cast<std::uint8_t>(keys[0]);
    const auto byte = static_cast<std::uint8_t>(keys[1]);
    MenuKey key{static_cast<KeyKind>(kind % 12), byte};
    if (key.kind == KeyKind::kAltDigit) key.byte %= 10;
    if ((kind & 0x80) != 0) key = MenuKeyFromBios(static_cast<std::uint16_t>(kind << 8 | byte));
    now += (kind >> 4) * byte;
    Outcome outcome = menu.Tick(now);
    if (outcome.kind == Outcome::Kind::kNothing) {
      typed.Press(key, script.password);
      outcome = menu.Press(key, now);
    }
    if (outcome.kind == Outcome::Kind::kRestart) return;
    if (outcome.kind == Outcome::Kind::kStart) {
      Require(!script.asks_for_password || (typed.may_be_open() && script.has_password));
      Require(obstacles[static_cast<std::size_t>(outcome.command.kind)].empty());
      if (byte % 2 == 0) menu.Resume("It did not start.");
    }
    if (byte % 4 == 0) menu.Draw(*screen);
  }
  menu.Draw(*screen);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::string_view first = TakeText(input);
  const std::string_view second = TakeText(input);
  FuzzFiles files(first, second);
  std::vector<char> memory(first.size() + second.size() * 3);
  auto script = std::make_unique<Script>();
  ReadScript(files, "a", size % 2 == 0 ? Processor::k32Bit : Processor::k64Bit, memory, *script);
  CheckScript(*script);
  PressKeys(*script, input);
  return 0;
}
