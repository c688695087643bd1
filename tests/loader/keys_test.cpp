// Tests of the keys that the boot menu gets from the BIOS.
#include "boot/loader/keys.h"

#include <gtest/gtest.h>

namespace discwright::loader {

bool operator==(const MenuKey& left, const MenuKey& right) {
  return left.kind == right.kind && left.byte == right.byte;
}

namespace {

TEST(MenuKeyFromBiosTest, ReturnedValues_AreTheKeys) {
  struct Case {
    std::uint16_t ax;
    MenuKey key;
  };
  const Case cases[] = {
      {0x1E61, {KeyKind::kCharacter, 'a'}}, {0x3920, {KeyKind::kCharacter, ' '}},
      {0x00FC, {KeyKind::kCharacter, 252}},  // typed by its number
      {0x00E0, {KeyKind::kCharacter, 224}},  // also typed by its number
      {0xE02F, {KeyKind::kCharacter, '/'}},  // of the number pad
      {0x1C0D, {KeyKind::kEnter, 0}},       {0xE00D, {KeyKind::kEnter, 0}},
      {0x011B, {KeyKind::kEscape, 0}},      {0x0E08, {KeyKind::kBackspace, 0}},
      {0x4800, {KeyKind::kUp, 0}},          {0x48E0, {KeyKind::kUp, 0}},
      {0x50E0, {KeyKind::kDown, 0}},        {0x4700, {KeyKind::kHome, 0}},
      {0x4F00, {KeyKind::kEnd, 0}},         {0x49E0, {KeyKind::kPageUp, 0}},
      {0x5100, {KeyKind::kPageDown, 0}},    {0x7800, {KeyKind::kAltDigit, 1}},
      {0x8000, {KeyKind::kAltDigit, 9}},    {0x8100, {KeyKind::kAltDigit, 0}},
      {0x3B00, {KeyKind::kOther, 0}},       {0x1E01, {KeyKind::kOther, 0}},
      {0x0E7F, {KeyKind::kOther, 0}},       {0x0000, {KeyKind::kOther, 0}},
  };
  for (const auto& [ax, key] : cases) EXPECT_TRUE(MenuKeyFromBios(ax) == key) << std::hex << ax;
}

}  // namespace
}  // namespace discwright::loader
