// What the tests of the boot programs begin with: a tree for a CD, and the ways to master it.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "tests/boot/emulator.h"
#include "tests/boot/setup_loader.h"
#include "tests/end_to_end/program_copy.h"
#include "tests/end_to_end/running_program.h"
#include "tests/end_to_end/trees.h"
#include "tests/mkisofs/iso_reader.h"

namespace discwright::testing {

// The files that boot/ is built to, in the program folder.
inline std::string ShippedFile(const std::string& path) { return ReadFile(fs::path(SHIPPED_FILES) / path); }

// A program of tests/boot/ that starts a CD boot sector in a way of its own; the sector stands behind it.
inline std::string Starter(const std::string& name, const std::string& sector) {
  return ReadFile(fs::path(BOOT_STARTERS) / (name + ".bin")) + sector;
}

inline const std::string kStarted = SetupLoaderLine();

class BootTest : public ::testing::Test {
 protected:
  // Puts the program that the BIOS starts on the CD.
  void StartWith(const std::string& program) const { WriteFile(tree / "boot/sector.bin", program); }

  // Masters `tree` to `image`. First the arguments of the product's own script.
  void Master() const { MasterBy({MKISOFS_PROGRAM}, {"-iso-level", "4", "-omit-period"}); }
  void MasterBy(const std::vector<std::string>& program, const std::vector<std::string>& options) const {
    const std::vector<std::string> boot = {"-no-emul-boot",  "-boot-load-size", "4",
                                           "-eltorito-boot", "boot/sector.bin", "-hide",
                                           "sector.bin",     "-hide",           "boot.catalog"};
    const Outcome outcome =
        RunProgram(Join(program, options, boot, std::vector<std::string>{"-output", image.string(), tree.string()}));
    ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  }

  // An entry of the image that Master() has made.
  IsoEntry Entry(const std::string& path) const {
    const std::string bytes = ReadFile(image);
    const IsoImage iso = ReadIso({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    const IsoEntry* entry = iso.Find(path);
    EXPECT_NE(entry, nullptr) << path;
    return entry == nullptr ? IsoEntry{} : *entry;
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
