// Asks the BIOS for the memory map with the functions E820h and 88h of INT 15h, and INT 12h.
#include "boot/loader/pc/bios_memory.h"

#include "boot/loader/pc/bios.h"

namespace discwright::loader {

namespace {

constexpr std::uint32_t kSignature = 0x534D4150;  // "SMAP"
constexpr std::uint64_t kKilobyte = 1024;

// What the BIOS stores.
struct Answer {
  std::uint32_t base[2];
  std::uint32_t length[2];
  std::uint32_t type;
};
static_assert(sizeof(Answer) == 20);

std::uint64_t Joined(const std::uint32_t (&halves)[2]) { return (std::uint64_t{halves[1]} << 32) | halves[0]; }

// Returns whether the BIOS knows the function. The map may have no room for all ranges; then it counts as unknown,
// because a range that is not free could be missing.
bool ReadE820(MemoryMap& map) {
  static Answer answer;
  std::uint32_t next = 0;
  do {
    answer = {};
    bios::Registers registers{.eax = 0xE820,
                              .ebx = next,
                              .ecx = sizeof answer,
                              .edx = kSignature,
                              .edi = bios::Offset(&answer),
                              .es = bios::Segment(&answer)};
    bios::Call(0x15, registers);
    if (registers.Has(bios::kCarry) || registers.eax != kSignature) break;
    if (!map.Add({Joined(answer.base), Joined(answer.length), answer.type})) return false;
    next = registers.ebx;
  } while (next != 0);
  return !map.ranges().empty();
}

MemoryMap ReadSizes() {
  MemoryMap map;
  bios::Registers low{};
  bios::Call(0x12, low);
  map.Add({0, (low.eax & 0xFFFF) * kKilobyte, kFreeMemory});
  bios::Registers high{.eax = 0x8800};
  bios::Call(0x15, high);
  if (!high.Has(bios::kCarry)) map.Add({kKilobyte * kKilobyte, (high.eax & 0xFFFF) * kKilobyte, kFreeMemory});
  return map;
}

}  // namespace

MemoryMap ReadMemoryMap() {
  MemoryMap map;
  return ReadE820(map) ? map : ReadSizes();
}

}  // namespace discwright::loader
