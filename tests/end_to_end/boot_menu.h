// The fixture for tests of the boot menu of finished CDs: Build(...), then start an Emulator with `image`.
#pragma once

#include <string>
#include <vector>

#include "tests/boot/boot_texts.h"
#include "tests/boot/emulator.h"
#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

using ::testing::Not;

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
};

}  // namespace discwright::testing
