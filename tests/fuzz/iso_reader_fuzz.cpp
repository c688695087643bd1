// Gives random bytes to the reader of images that the tests use. The reader must end, and must not read outside of
// them.
#include <cstddef>
#include <cstdint>

#include "tests/mkisofs/iso_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  discwright::testing::ReadIso({data, size});
  return 0;
}
