// Implements the loader's side of the Linux boot protocol. The names of the offsets are those of the protocol.
#include "boot/loader/linux_kernel.h"

#include <algorithm>

#include "boot/loader/text.h"

namespace discwright::loader {

namespace {

constexpr std::size_t kSetupSectors = 0x1F1;
constexpr std::size_t kVideoMode = 0x1FA;
constexpr std::size_t kBootFlag = 0x1FE;
constexpr std::size_t kMagic = 0x202;
constexpr std::size_t kVersion = 0x206;
constexpr std::size_t kTypeOfLoader = 0x210;
constexpr std::size_t kLoadFlags = 0x211;
constexpr std::size_t kRamDiskImage = 0x218;
constexpr std::size_t kRamDiskSize = 0x21C;
constexpr std::size_t kHeapEnd = 0x224;
constexpr std::size_t kCommandLine = 0x228;
constexpr std::size_t kRamDiskMost = 0x22C;
constexpr std::size_t kKernelAlignment = 0x230;
constexpr std::size_t kRelocatable = 0x234;
constexpr std::size_t kCommandLineSize = 0x238;
constexpr std::size_t kPrefAddress = 0x258;
constexpr std::size_t kInitSize = 0x260;

constexpr std::uint32_t kSectorBytes = 512;
constexpr std::uint32_t kDefaultSetupSectors = 4;
constexpr std::uint32_t kBootFlagValue = 0xAA55;
constexpr std::uint32_t kMagicValue = 0x53726448;  // "HdrS"
constexpr std::uint32_t kOldestVersion = 0x202;
constexpr std::uint32_t kVersionWithRamDiskMost = 0x203;
constexpr std::uint32_t kVersionWithCommandLineSize = 0x206;
constexpr std::uint32_t kVersionWithInitSize = 0x20A;
constexpr std::uint32_t kOldRamDiskMost = 0x37FFFFFF;
constexpr std::uint32_t kOldCommandLineSize = 255;
constexpr std::uint8_t kUnknownLoader = 0xFF;
constexpr std::uint8_t kLoadedHigh = 0x01;
constexpr std::uint8_t kCanUseHeap = 0x80;

// The use of the 64 KB of the real-mode part: the part itself, its heap and stack, and the command line at the end.
constexpr std::uint32_t kHeapEndInSegment = 0xE000;
constexpr std::uint32_t kCommandLineInSegment = 0xE000;
constexpr std::uint32_t kSegmentSize = 0x10000;
constexpr std::uint32_t kHeapEndOffset = 0x200;  // the protocol wants this subtracted
constexpr std::uint32_t kLargestSetup = 0x8000;
constexpr std::uint32_t kRamDiskAlignment = 4096;

std::uint32_t Load(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = count; i-- > 0;) value = value << 8U | bytes[at + i];
  return value;
}

void Store32(std::span<std::uint8_t> bytes, std::size_t at, std::uint32_t value) {
  for (std::size_t i = 0; i < sizeof(value); ++i) bytes[at + i] = static_cast<std::uint8_t>(value >> (8U * i));
}

std::uint32_t SetupSize(std::span<const std::uint8_t> start) {
  const std::uint32_t sectors = start[kSetupSectors] == 0 ? kDefaultSetupSectors : start[kSetupSectors];
  return (sectors + 1) * kSectorBytes;
}

// Returns the address to which the kernel moves itself to be unpacked. At that moment the kernel has not yet asked the
// BIOS which memory is free. The Linux boot protocol calls it the runtime start address.
std::uint64_t RunAddress(std::span<const std::uint8_t> start) {
  const std::uint64_t preferred = Load(start, kPrefAddress, 4) | std::uint64_t{Load(start, kPrefAddress + 4, 4)} << 32U;
  if (start[kRelocatable] == 0) return preferred;
  const std::uint64_t mask = std::max<std::uint32_t>(Load(start, kKernelAlignment, 4), 1) - 1;  // of a power of two
  return (std::max<std::uint64_t>(kKernelAddress, preferred) + mask) & ~mask;
}

// The fields that only newer versions have. A field must not be read in a kernel of an older version, because there are
// instructions in its place.
void ReadNewerFields(std::span<const std::uint8_t> start, std::uint32_t version, KernelHeader& header) {
  const bool has_most = version >= kVersionWithRamDiskMost;
  const std::uint32_t most = has_most ? Load(start, kRamDiskMost, 4) : kOldRamDiskMost;
  header.ram_disk_end = most == 0xFFFFFFFF ? most : most + 1;
  header.longest_command_line =
      version >= kVersionWithCommandLineSize ? Load(start, kCommandLineSize, 4) : kOldCommandLineSize;
  header.run_address = kKernelAddress;
  header.memory_size = header.kernel_size;
  if (version < kVersionWithInitSize) return;
  header.run_address = RunAddress(start);
  header.memory_size = std::max(Load(start, kInitSize, 4), header.kernel_size);
}

// A number as the protocol writes it: decimal, or hexadecimal behind 0x. Empty if it has more than 16 bits.
std::optional<std::uint32_t> VideoNumber(std::string_view text) {
  const bool is_hexadecimal = IsSameText(Part(text, 0, 2), "0x");
  const std::uint32_t base = is_hexadecimal ? 16 : 10;
  if (is_hexadecimal) text = Part(text, 2);
  std::uint32_t number = 0;
  for (const char letter : text) {
    const char upper = UpperOf(letter);
    const bool is_digit = upper >= '0' && upper <= '9';
    if (!is_digit && !(is_hexadecimal && upper >= 'A' && upper <= 'F')) return std::nullopt;
    number = number * base + static_cast<std::uint32_t>(is_digit ? upper - '0' : upper - 'A' + 10);
    if (number > UINT16_MAX) return std::nullopt;
  }
  return text.empty() ? std::nullopt : std::optional(number);
}

// The video mode that a command line asks for. The last one counts.
std::optional<std::uint32_t> VideoMode(std::string_view command_line) {
  constexpr std::string_view kWord = "vga=";
  constexpr std::uint32_t kNormal = 0xFFFF, kExtended = 0xFFFE, kAsk = 0xFFFD;
  std::optional<std::uint32_t> mode;
  while (!command_line.empty()) {
    std::size_t size = 0;
    while (size < command_line.size() && !IsBlank(command_line[size])) ++size;
    const std::string_view word = Part(command_line, 0, size);
    command_line = Part(command_line, size + 1);
    if (Part(word, 0, kWord.size()) != kWord) continue;
    const std::string_view value = Part(word, kWord.size());
    mode = value == "normal" ? kNormal : value == "ext" ? kExtended : value == "ask" ? kAsk : VideoNumber(value);
  }
  return mode;
}

bool IsFree(const MemoryMap& memory, std::uint64_t begin, std::uint32_t size) {
  if (begin > UINT32_MAX - size) return false;
  const auto first = static_cast<std::uint32_t>(begin);
  const std::optional<Room> room = memory.HighestRoom(size, 1, first, first + size);
  return room.has_value() && room->begin == first;
}

}  // namespace

std::string_view Explanation(KernelError error) {
  switch (error) {
    case KernelError::kNone:
      return "";
    case KernelError::kNotAKernel:
      return "The file is no kernel of the Linux boot protocol.";
    case KernelError::kTooOld:
      return "The kernel is too old: it needs protocol 2.02 or newer, and must be loaded above 1 MB.";
    case KernelError::kTooShort:
      return "The file of the kernel is incomplete.";
    case KernelError::kCommandLine:
      return "The command line is longer than the kernel takes.";
    case KernelError::kNoRoomForKernel:
      return "This machine has too little memory for the kernel, or other things are in its place.";
    case KernelError::kNoRoomForRamDisk:
      return "This machine has too little memory for the RAM disk.";
  }
  return "";
}

KernelError ReadKernelHeader(std::span<const std::uint8_t> start, std::uint32_t file_size, KernelHeader& header) {
  if (start.size() < kHeaderSize) return file_size > start.size() ? KernelError::kTooShort : KernelError::kNotAKernel;
  if (Load(start, kBootFlag, 2) != kBootFlagValue || Load(start, kMagic, 4) != kMagicValue) {
    return KernelError::kNotAKernel;
  }
  const std::uint32_t version = Load(start, kVersion, 2);
  if (version < kOldestVersion || (start[kLoadFlags] & kLoadedHigh) == 0) return KernelError::kTooOld;
  header.setup_size = SetupSize(start);
  if (header.setup_size > kLargestSetup) return KernelError::kNotAKernel;
  if (header.setup_size >= file_size) return KernelError::kTooShort;
  // The header also has a size of the rest, but memdisk leaves it at 0.
  header.kernel_size = file_size - header.setup_size;
  ReadNewerFields(start, version, header);
  return KernelError::kNone;
}

KernelError PlaceKernel(const KernelHeader& header, const MemoryMap& memory, std::uint32_t setup,
                        std::size_t command_line_length, std::uint32_t ram_disk_size, KernelPlace& place) {
  constexpr std::uint32_t kMostInSegment = kSegmentSize - kCommandLineInSegment - 1;  // one byte ends the line
  const std::uint32_t longest = std::min(header.longest_command_line, kMostInSegment);
  if (command_line_length > longest) return KernelError::kCommandLine;
  place.setup = setup;
  place.command_line = setup + kCommandLineInSegment;
  place.ram_disk = Room{};
  if (!IsFree(memory, kKernelAddress, header.kernel_size) || !IsFree(memory, header.run_address, header.memory_size)) {
    return KernelError::kNoRoomForKernel;
  }
  if (ram_disk_size == 0) return KernelError::kNone;
  const auto run_end = static_cast<std::uint32_t>(header.run_address) + header.memory_size;
  const std::uint32_t lowest = std::max(kKernelAddress + header.kernel_size, run_end);
  const std::optional<Room> room = memory.HighestRoom(ram_disk_size, kRamDiskAlignment, lowest, header.ram_disk_end);
  if (!room) return KernelError::kNoRoomForRamDisk;
  place.ram_disk = *room;
  return KernelError::kNone;
}

void CompleteHeader(const KernelPlace& place, std::string_view command_line, std::span<std::uint8_t> setup) {
  if (const std::optional<std::uint32_t> mode = VideoMode(command_line)) {
    setup[kVideoMode] = static_cast<std::uint8_t>(*mode & 0xFFU);
    setup[kVideoMode + 1] = static_cast<std::uint8_t>(*mode >> 8U);
  }
  setup[kTypeOfLoader] = kUnknownLoader;
  setup[kLoadFlags] |= kCanUseHeap;
  setup[kHeapEnd] = static_cast<std::uint8_t>((kHeapEndInSegment - kHeapEndOffset) & 0xFFU);
  setup[kHeapEnd + 1] = static_cast<std::uint8_t>((kHeapEndInSegment - kHeapEndOffset) >> 8U);
  Store32(setup, kCommandLine, place.command_line);
  Store32(setup, kRamDiskImage, place.ram_disk.begin);
  Store32(setup, kRamDiskSize, place.ram_disk.end - place.ram_disk.begin);
}

}  // namespace discwright::loader
