// The fixture for tests of the boot menu of finished CDs: Build(...), then start an Emulator with `image`.
#pragma once

#include <string>
#include <vector>

#include "tests/boot/emulator.h"
#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

using ::testing::Not;

// A text that stands on the screen while the menu shows its entries.
inline constexpr const char* kEntriesShown = "Arrows: choose";

class BootMenu : public BuildTest {
 protected:
  // A script of the user, which joins the CD with the additional files.
  std::vector<std::string> WithLocalScript(const std::string& text) const {
    WriteFile(place / "additional" / "boot/scripts/local.cds", text);
    return AdditionalFiles(place / "additional");
  }
  std::vector<std::string> WithPassword(const std::string& password) const {
    WriteFile(place / "password", password + "\n");
    return {"--password-file", (place / "password").string()};
  }

  // A hard disk whose boot sector shows "HD" and the number of its drive, from 0 on.
  std::vector<std::string> DiskWithASystem() const {
    WriteFile(place / "disk", SectorThatShows("HD") + std::string(1 << 20, '\0'));
    return HardDisk(place / "disk");
  }

  // An image of a floppy disk of 1.44 MB whose boot sector shows a text and the number of its drive.
  static std::string FloppyThatShows(const std::string& text) {
    constexpr std::size_t kFloppySize = 1474560;
    std::string floppy = SectorThatShows(text);
    floppy.resize(kFloppySize, 'f');
    return floppy;
  }

 private:
  // A boot sector that writes a text and a digit for its drive to the top left of the screen.
  static std::string SectorThatShows(const std::string& text) {
    using namespace std::string_literals;
    std::string sector = "\xB8\x00\xB8\x8E\xC0\x31\xFF\xB4\x07"s;                    // ES:DI = the screen, AH = grey
    for (const char letter : text) sector += std::string("\xB0") + letter + "\xAB";  // mov al, letter; stosw
    sector += "\x88\xD0\x24\x7F\x04\x30\xAB";  // AL = drive without bit 7, as a digit
    sector += "\xF4\xEB\xFD";                  // hlt; jmp back to it
    sector.resize(510, '\0');
    return sector + "\x55\xAA";
  }
};

}  // namespace discwright::testing
