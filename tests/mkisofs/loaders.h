// Makes boot images that mkisofs takes for the loader.
#pragma once

#include <cstdint>
#include <string>

namespace discwright::testing {

struct LoaderShape {
  std::string mark = "DWLOADER";
  std::uint16_t rest_sectors = 2;
  std::uint16_t program_size = 440;  // as the loader states it
  std::size_t size = 4 * 2048;       // of the file
};

// The program for disks in such a loader: 440 bytes that are not zero.
inline std::string DiskProgram() {
  std::string program;
  for (int i = 0; i < 440; ++i) program += static_cast<char>('A' + i % 26);
  return program;
}

// A loader whose program for disks is in the sector behind the rest.
inline std::string MakeLoader(const LoaderShape& shape = {}) {
  std::string loader = std::string(64, '1') + shape.mark;
  for (const std::uint16_t value : {shape.rest_sectors, shape.program_size}) {
    loader += static_cast<char>(value & 0xFF);
    loader += static_cast<char>(value >> 8);
  }
  loader.resize((std::size_t{1} + shape.rest_sectors) * 2048, 'r');
  loader += DiskProgram();
  loader.resize(shape.size, 'p');
  return loader;
}

}  // namespace discwright::testing
