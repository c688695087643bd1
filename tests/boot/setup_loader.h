// The program that stands for SETUPLDR.BIN on an emulated PC (setup_loader.asm), and what it says there.
#pragma once

#include <cstdint>
#include <string>

#include "tests/end_to_end/trees.h"

namespace discwright::testing {

// Its sizes are those that tests/CMakeLists.txt assembles. It names its folder as "i386", or, of the usual size only,
// as "I386" (variant "upper"); neither name stands in the other.
inline constexpr std::uint32_t kUsualSize = 100001;
inline std::string SetupLoader(std::uint32_t size = kUsualSize, const std::string& variant = "lower") {
  return ReadFile(fs::path(SETUP_LOADERS) / (variant + "_" + std::to_string(size) + ".bin"));
}

// Its line on the screen and on COM1, loaded as it is and started as it should be. `drive`: two hexadecimal digits.
inline std::string SetupLoaderLine(const std::string& folder = "i386", const std::string& drive = "E0") {
  return "SETUPLDR: folder=" + folder + " segment=2000 drive=" + drive + " ds=0000 es=0000 ss=0000 sp=7C00";
}

}  // namespace discwright::testing
