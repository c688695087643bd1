// Runs the boot menu on a script, with keys and time from the test.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "boot/loader/menu.h"
#include "tests/loader/fake_files.h"

namespace discwright::loader {

class MenuFixture : public ::testing::Test {
 protected:
  void Show(const std::string& text, const std::vector<std::string>& present = {}) {
    read_ = std::make_unique<ReadScriptText>(text, present);
    menu = std::make_unique<Menu>(*read_->script, obstacles, now);
  }
  Outcome Press(KeyKind kind, std::uint8_t byte = 0) { return menu->Press({kind, byte}, now); }
  Outcome Type(std::string_view text) {
    Outcome outcome;
    for (const char byte : text) outcome = Press(KeyKind::kCharacter, static_cast<std::uint8_t>(byte));
    return outcome;
  }
  Outcome Enter() { return Press(KeyKind::kEnter); }
  // Lets this many ticks of the clock pass, or fewer if the menu wants something to be started or restarted before. A
  // second has 18.2 ticks.
  Outcome Pass(std::uint32_t ticks) {
    for (; ticks > 0; --ticks) {
      const Outcome outcome = menu->Tick(++now);
      if (outcome.kind != Outcome::Kind::kNothing) return outcome;
    }
    return {};
  }
  static std::string Started(const Outcome& outcome) {
    if (outcome.kind == Outcome::Kind::kNothing) return "nothing";
    if (outcome.kind == Outcome::Kind::kRestart) return "restart";
    return "start " + std::string(outcome.command.path);
  }

  std::string Row(std::size_t row) {
    menu->Draw(*screen);
    std::string text;
    for (std::size_t column = 0; column < kColumns; ++column) text += screen->cells[row * kColumns + column].byte;
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
  }
  Attribute AttributeOf(std::size_t row) {
    menu->Draw(*screen);
    return screen->cells[row * kColumns + 6].attribute;
  }
  std::string All() {
    std::string text;
    for (std::size_t row = 0; row < kRows; ++row) text += Row(row) + "\n";
    return text;
  }
  // The text of the entry that is chosen; "none" if no row is.
  std::string Chosen() {
    for (std::size_t row = 0; row < kRows; ++row) {
      if (AttributeOf(row) != Attribute::kChosen && AttributeOf(row) != Attribute::kChosenGreyed) continue;
      std::string text = Row(row).substr(6, 66);
      text.erase(text.find_last_not_of(' ') + 1);
      return text;
    }
    return "none";
  }

  Obstacles obstacles{};
  Ticks now = 0xFFFFFFF0;  // so that the count wraps around
  std::unique_ptr<Menu> menu;
  std::unique_ptr<Screen> screen = std::make_unique<Screen>();

 private:
  std::unique_ptr<ReadScriptText> read_;
};

}  // namespace discwright::loader
