// Texts that tests wait for on the screen of an emulated PC, and boot sectors that show a text.
#pragma once

#include <string>

namespace discwright::testing {

// Stands on the screen while the boot menu shows its entries.
inline constexpr const char* kEntriesShown = "Arrows: choose";

// The first entry in the menu of the disk "Vexa Rescue Software".
inline constexpr const char* kRescueDiskShown = "1  Memory test";

// Returns code that writes a text, and behind it a digit for the drive, to the top left of the screen, and then stops.
// The digit is the number of the drive without bit 7, which the code expects in DL. The code runs at any address.
inline std::string CodeThatShows(const std::string& text) {
  using namespace std::string_literals;
  std::string code = "\xB8\x00\xB8\x8E\xC0\x31\xFF\xB4\x07"s;                    // ES:DI = the screen, AH = grey
  for (const char letter : text) code += std::string("\xB0") + letter + "\xAB";  // mov al, letter; stosw
  code += "\x88\xD0\x24\x7F\x04\x30\xAB";                                        // AL = drive without bit 7, as a digit
  return code + "\xF4\xEB\xFD";                                                  // hlt; jmp back to it
}

// Returns a boot sector for disks of 512 bytes with this code.
inline std::string SectorThatShows(const std::string& text) {
  std::string sector = CodeThatShows(text);
  sector.resize(510, '\0');
  return sector + "\x55\xAA";
}

}  // namespace discwright::testing
