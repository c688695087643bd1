// Asks the BIOS for the memory map with the functions E820h and 88h of INT 15h, and INT 12h.
#include "boot/loader/pc/memory_map.h"

#include "boot/loader/pc/bios.h"

namespace discwright::loader {

namespace {

constexpr std::uint32_t kSignature = 0x534D4150;  // "SMAP"
constexpr std::uint64_t kKilobyte = 1024;

// What the BIOS stores.
struct Entry {
  std::uint32_t start[2];
  std::uint32_t size[2];
  std::uint32_t kind;
};
static_assert(sizeof(Entry) == 20);

std::uint64_t Joined(const std::uint32_t (&halves)[2]) { return (std::uint64_t{halves[1]} << 32) | halves[0]; }

std::size_t ReadE820(std::span<MemoryRange> to) {
  static Entry entry;
  std::size_t count = 0;
  bios::Registers next{};
  while (count < to.size()) {
    entry = {};
    bios::Registers registers{.eax = 0xE820,
                              .ebx = next.ebx,
                              .ecx = sizeof entry,
                              .edx = kSignature,
                              .edi = bios::Offset(&entry),
                              .es = bios::Segment(&entry)};
    bios::Call(0x15, registers);
    if (registers.Has(bios::kCarry) || registers.eax != kSignature) break;
    if (Joined(entry.size) != 0) to[count++] = {Joined(entry.start), Joined(entry.size), entry.kind};
    if (registers.ebx == 0) break;
    next = registers;
  }
  return count;
}

std::size_t ReadSizes(std::span<MemoryRange> to) {
  if (to.size() < 2) return 0;
  bios::Registers low{};
  bios::Call(0x12, low);
  to[0] = {0, (low.eax & 0xFFFF) * kKilobyte, MemoryRange::kUsable};
  bios::Registers high{.eax = 0x8800};
  bios::Call(0x15, high);
  if (high.Has(bios::kCarry) || (high.eax & 0xFFFF) == 0) return 1;
  to[1] = {kKilobyte * kKilobyte, (high.eax & 0xFFFF) * kKilobyte, MemoryRange::kUsable};
  return 2;
}

}  // namespace

std::size_t ReadMemoryMap(std::span<MemoryRange> to) {
  const std::size_t count = ReadE820(to);
  return count > 0 ? count : ReadSizes(to);
}

}  // namespace discwright::loader
