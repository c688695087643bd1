// Reads the header of a kernel of the Linux boot protocol, decides where its parts go in memory, and completes the
// header. memdisk, memtest86+ and iPXE are such kernels, too. Call ReadKernelHeader with the start of the file, then
// PlaceKernel, load the parts, then CompleteHeader. The protocol is that of Documentation/x86/boot.rst of Linux.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "boot/loader/memory_map.h"

namespace discwright::loader {

enum class KernelError {
  kNone,
  kNotAKernel,        // the file has no header of the protocol
  kTooOld,            // the protocol is older than version 2.02, or the kernel is not loaded above 1 MB
  kTooShort,          // the file ends inside its parts
  kCommandLine,       // the command line is longer than the kernel takes
  kNoRoomForKernel,   // the memory that the kernel needs is not free
  kNoRoomForRamDisk,  // no free piece of memory is large enough for the RAM disk
};

// The reason in words for the user, as a whole sentence.
std::string_view Explanation(KernelError error);

// What the header says. Sizes are in bytes.
struct KernelHeader {
  std::uint32_t setup_size = 0;   // the real-mode part at the start of the file
  std::uint32_t kernel_size = 0;  // the rest of the file
  std::uint64_t run_address = 0;  // where the kernel unpacks itself: a newer one has an address of its own
  std::uint32_t memory_size = 0;  // what the kernel needs from run_address on, before it knows the memory
  std::uint32_t longest_command_line = 0;
  std::uint32_t ram_disk_end = 0;  // the RAM disk must end at this address or below
};

inline constexpr std::size_t kHeaderSize = 1024;  // so much of the file's start is enough for ReadKernelHeader
inline constexpr std::uint32_t kKernelAddress = 0x100000;

// `start` is the start of the file, kHeaderSize bytes or the whole file if that is shorter.
KernelError ReadKernelHeader(std::span<const std::uint8_t> start, std::uint32_t file_size, KernelHeader& header);

// Where the parts go. All numbers are addresses.
struct KernelPlace {
  std::uint32_t setup = 0;         // of the real-mode part; the caller has chosen it
  std::uint32_t command_line = 0;  // in the same 64 KB
  Room ram_disk;                   // empty when there is no RAM disk
};

// The real-mode part, its heap and the command line get the 64 KB from `setup` on, a multiple of 16 below 0x90000 that
// the caller keeps free. The RAM disk goes as high as possible.
KernelError PlaceKernel(const KernelHeader& header, const MemoryMap& memory, std::uint32_t setup,
                        std::size_t command_line_length, std::uint32_t ram_disk_size, KernelPlace& place);

// Writes the addresses into the real-mode part, which is in memory already, and the video mode if the command line has
// one (vga=): the protocol leaves this word to the loader. `setup` has at least kHeaderSize bytes.
void CompleteHeader(const KernelPlace& place, std::string_view command_line, std::span<std::uint8_t> setup);

}  // namespace discwright::loader
