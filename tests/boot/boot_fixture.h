// The fixture for tests of the boot programs: put files into `tree`, call Master(), start an Emulator with `image`.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "tests/boot/boot_texts.h"
#include "tests/boot/emulator.h"
#include "tests/boot/setup_loader.h"
#include "tests/end_to_end/program_copy.h"
#include "tests/end_to_end/running_program.h"
#include "tests/end_to_end/trees.h"
#include "tests/mkisofs/iso_reader.h"

namespace discwright::testing {

inline constexpr std::size_t kCdSector = 2048;  // bytes

// A file of the built program folder.
inline std::string ShippedFile(const std::string& path) { return ReadFile(fs::path(SHIPPED_FILES) / path); }

// A variant of boot_starter.asm, followed by the CD boot sector that it starts.
inline std::string Starter(const std::string& name, const std::string& sector) {
  return ReadFile(fs::path(BOOT_STARTERS) / (name + ".bin")) + sector;
}

inline const std::string kStarted = SetupLoaderLine();

class BootTest : public ::testing::Test {
 protected:
  // Stores the program that the BIOS starts from the CD.
  void StartWith(const std::string& program) const { WriteFile(tree / "boot/sector.bin", program); }

  // Both master `tree` to `image`: Master() as the build does, MasterBy() with another program.
  void Master() const { MasterBy({MKISOFS_PROGRAM}, {"-iso-level", "4", "-omit-period"}); }
  void MasterBy(const std::vector<std::string>& program, const std::vector<std::string>& options) const {
    const std::vector<std::string> boot = {"-no-emul-boot",  "-boot-load-size", "4",
                                           "-eltorito-boot", "boot/sector.bin", "-hide",
                                           "sector.bin",     "-hide",           "boot.catalog"};
    const Outcome outcome =
        RunProgram(Join(program, options, boot, std::vector<std::string>{"-output", image.string(), tree.string()}));
    ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  }

  // Finds an entry of the image.
  IsoEntry Entry(const std::string& path) const {
    const std::string bytes = ReadFile(image);
    const IsoImage iso = ReadIso({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    const IsoEntry* entry = iso.Find(path);
    EXPECT_NE(entry, nullptr) << path;
    return entry == nullptr ? IsoEntry{} : *entry;
  }

  // Call the functions of the same names with the image of this test.
  std::string FaultyImage(std::uint32_t sector_of_cd, int count) const {
    return testing::FaultyImage(image, place / "faults", sector_of_cd, count);
  }
  std::vector<std::string> FaultyCdDrive(std::uint32_t sector_of_cd, int count) const {
    return testing::FaultyCdDrive(image, place / "faults", sector_of_cd, count);
  }

  TemporaryFolder place{"boot"};
  fs::path tree = place / "tree";
  fs::path image = place / "cd.iso";
};

// A CD that starts with the shipped sector.
class BootSector : public BootTest {
 protected:
  BootSector() { StartWith(sector); }

  std::string sector = ShippedFile("bootsect/w2ksect.bin");
};

}  // namespace discwright::testing
