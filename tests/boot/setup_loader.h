// The test program that replaces SETUPLDR.BIN on an emulated PC (setup_loader.asm), and the line that it prints.
#pragma once

#include <cstdint>
#include <string>

#include "tests/end_to_end/trees.h"

namespace discwright::testing {

// The program with a size that tests/CMakeLists.txt assembles. The variant "lower" contains the folder's name as "i386"
// only, the variant "upper", which exists in the usual size, as "I386" only.
inline constexpr std::uint32_t kUsualSize = 100001;
inline std::string SetupLoader(std::uint32_t size = kUsualSize, const std::string& variant = "lower") {
  return ReadFile(fs::path(SETUP_LOADERS) / (variant + "_" + std::to_string(size) + ".bin"));
}

// The line on the screen and on COM1 after a correct start. `drive` has two hexadecimal digits.
inline std::string SetupLoaderLine(const std::string& folder = "i386", const std::string& drive = "E0") {
  return "SETUPLDR: folder=" + folder + " segment=2000 drive=" + drive + " ds=0000 es=0000 ss=0000 sp=7C00";
}

}  // namespace discwright::testing
