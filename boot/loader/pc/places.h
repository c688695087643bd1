// Fixed places in memory, which loader.ld names.
#pragma once

#include <cstddef>
#include <cstdint>

// clang-tidy takes these declarations for variables that this header defines.
// NOLINTBEGIN(bugprone-dynamic-static-initializers)
extern "C" {
extern std::uint8_t disk_vector[];  // of INT 13h: segment:offset
extern std::uint8_t bios_variables[];
extern std::uint8_t bounce_buffer[];  // every read of a drive goes through it
extern std::uint16_t text_screen[];   // characters and attributes
}
// NOLINTEND(bugprone-dynamic-static-initializers)

namespace discwright::loader {

inline constexpr std::size_t kBounceBufferSize = 0x8000;

}  // namespace discwright::loader
