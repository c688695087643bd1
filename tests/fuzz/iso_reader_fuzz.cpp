// The tests' reader of images, given anything at all: it must end, and stay within the bytes that it was given.
#include <cstddef>
#include <cstdint>

#include "tests/mkisofs/iso_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  discwright::testing::ReadIso({data, size});
  return 0;
}
