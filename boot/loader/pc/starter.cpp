// Starts boot sectors, kernels and disks. Everything is read before anything is changed that the loader needs.
#include "boot/loader/pc/starter.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "boot/loader/drive_numbers.h"
#include "boot/loader/pc/bios.h"
#include "boot/loader/pc/drive_map.h"
#include "boot/loader/pc/keyboard.h"
#include "boot/loader/pc/places.h"
#include "boot/loader/pc/power.h"
#include "boot/loader/progress.h"
#include "boot/loader/sectors.h"
#include "boot/loader/text.h"

namespace discwright::loader {

namespace {

constexpr std::uint32_t kBootSector = 0x7C00;    // where a boot sector expects to be
constexpr std::uint32_t kKernelSetup = 0x70000;  // 64 KB for the real-mode part of a kernel; see loader.ld
constexpr std::string_view kFloppyEmulator = "boot/memdisk";
constexpr std::size_t kDiskSectorSize = 512;
constexpr std::size_t kSignature = 510;  // of a boot sector of a disk: 55h AAh

// The memory at an address. All of it can be reached in protected mode.
std::span<std::uint8_t> Memory(std::uint32_t address, std::size_t size) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the loader gets addresses as numbers
  return {reinterpret_cast<std::uint8_t*>(address), size};
}

constexpr std::size_t kProgressWidth = Console::kColumns - 2;

// Replaces the lowest line of the screen; an empty text erases it.
void ShowProgress(std::string_view line) {
  constexpr std::size_t kRow = Console::kLines - 1;
  for (std::size_t column = line.size(); column < kProgressWidth; ++column) {
    Console::WriteAt({kRow, column + 2}, " ", Console::kLightGrey);
  }
  Console::WriteAt({kRow, 2}, line, Console::kLightGrey);
}

// Reads the first sector of a hard disk to the start of the bounce buffer. A disk may need several tries until its
// motor runs.
bool ReadFirstSector(std::uint8_t drive) {
  constexpr int kTries = 4;
  for (int turn = 0; turn < kTries; ++turn) {
    bios::Registers read{.eax = 0x0201,
                         .ebx = bios::Offset(bounce_buffer),
                         .ecx = 0x0001,
                         .edx = drive,
                         .es = bios::Segment(bounce_buffer)};
    bios::Call(bios::kDiskInterrupt, read);
    if (!read.Has(bios::kCarry)) return true;
    bios::Registers reset{.edx = drive};
    bios::Call(bios::kDiskInterrupt, reset);
  }
  return false;
}

// How many hard disks the BIOS knows.
std::uint8_t HardDiskCount() {
  bios::Registers registers{.eax = 0x0800, .edx = kFirstDiskNumber};
  bios::Call(bios::kDiskInterrupt, registers);
  return registers.Has(bios::kCarry) ? std::uint8_t{0} : static_cast<std::uint8_t>(registers.edx & 0xFF);
}

// Runs a kernel that was loaded, with its command line.
[[noreturn]] void RunKernel(const KernelPlace& place, std::string_view options) {
  const std::span<std::uint8_t> line = Memory(place.command_line, options.size() + 1);
  std::memcpy(line.data(), options.data(), options.size());
  line.back() = 0;
  CompleteHeader(place, options, Memory(kKernelSetup, kHeaderSize));
  bios::StartKernel(kKernelSetup >> 4);
}

[[noreturn]] void JumpToBootSector(std::uint8_t drive) { bios::Jump({0, kBootSector}, {.edx = drive}); }

}  // namespace

std::string_view Starter::Start(const Command& command) {
  switch (command.kind) {
    case CommandKind::kFloppy:
      return StartLinux(kFloppyEmulator, command.options, command.path);
    case CommandKind::kCdSector:
      return StartCdSector(command.path);
    case CommandKind::kLinux:
      return StartLinux(command.path, command.options, command.initrd);
    case CommandKind::kFirstHardDisk:
      return StartHardDisk(0);
    case CommandKind::kSecondHardDisk:
      return StartHardDisk(1);
    case CommandKind::kNextDevice:
      StartNextDevice();
    case CommandKind::kOverview:
      return ShowOverview();
    case CommandKind::kRestart:
      Restart();
    case CommandKind::kPowerOff:
      PowerOff();
      return "This computer cannot be switched off by a program: use its switch.";
  }
  return "";
}

// Returns "<path>: <sentence>".
std::string_view Starter::Failed(std::string_view path, std::string_view sentence) {
  static std::array<char, 240> room;
  constexpr std::size_t kLongestPath = 80;
  return TextWriter(room).Add(Part(path, 0, kLongestPath)).Add(": ").Add(sentence).text();
}

std::string_view Starter::StartCdSector(std::string_view path) {
  static std::array<std::uint8_t, kSectorSize> sector;
  std::uint32_t size = 0;
  const VolumeError error = volume_.ReadFile(path, sector, size);
  const bool is_larger = error == VolumeError::kNotEnoughRoom;
  if (error != VolumeError::kNone && !is_larger) return Failed(path, error);
  if (is_larger || size != sector.size())
    return Failed(path, "This is no boot sector for CDs: it must have 2,048 bytes.");
  std::memcpy(Memory(kBootSector, sector.size()).data(), sector.data(), sector.size());
  console_.Clear();
  JumpToBootSector(drive_.number);
}

// When the menu came from a hard disk or a stick, that disk does not count. The others get the numbers that they would
// have without it. `place` is 0 for the first disk.
std::string_view Starter::StartHardDisk(std::size_t place) {
  const bool is_on_disk = drive_.shift != 0;
  const DriveNumbers numbers = is_on_disk ? NumbersWithout(drive_.number, HardDiskCount()) : UnchangedNumbers();
  const bool is_own = is_on_disk && numbers[place] == drive_.number;
  if (is_own || !ReadFirstSector(numbers[place])) return "The computer has no such hard disk, or it cannot be read.";
  if (bounce_buffer[kSignature] != 0x55 || bounce_buffer[kSignature + 1] != 0xAA) {
    return "The hard disk has no boot sector: no system is installed on it.";
  }
  std::memcpy(Memory(kBootSector, kDiskSectorSize).data(), bounce_buffer, kDiskSectorSize);
  console_.Clear();
  if (numbers != UnchangedNumbers()) InstallDriveMap(numbers);
  JumpToBootSector(static_cast<std::uint8_t>(kFirstDiskNumber + place));
}

// Loads a part of a file to memory, and shows how much of the part is there.
VolumeError Starter::Load(const VolumeEntry& file, std::uint32_t offset, std::uint32_t size, std::uint32_t address,
                          std::string_view name) {
  // A floppy drive needs about a second for 32 KB.
  const std::uint32_t most = volume_.medium() == Medium::kCd ? 0x100000 : 0x8000;
  ShowProgress({});
  for (std::uint32_t done = 0; done < size;) {
    std::array<char, kProgressWidth> line{};
    ShowProgress(ProgressLine(name, done, size, line));
    const std::uint32_t piece = std::min(most, size - done);
    const VolumeError error = volume_.Read(file, offset + done, Memory(address + done, piece));
    if (error != VolumeError::kNone) return error;
    done += piece;
    if (done == size) ShowProgress(ProgressLine(name, done, size, line));
  }
  return VolumeError::kNone;
}

std::string_view Starter::StartLinux(std::string_view path, std::string_view options, std::string_view ram_disk) {
  VolumeEntry kernel;
  VolumeEntry disk;
  VolumeError error = volume_.Find(path, kernel);
  if (error != VolumeError::kNone) return Failed(path, error);
  if (!ram_disk.empty()) error = volume_.Find(ram_disk, disk);
  if (error != VolumeError::kNone) return Failed(ram_disk, error);
  if (!ram_disk.empty() && disk.size == 0) return Failed(ram_disk, "The file is empty.");
  static std::array<std::uint8_t, kHeaderSize> start;
  const std::size_t known = std::min<std::size_t>(kernel.size, start.size());
  error = volume_.Read(kernel, 0, std::span(start).first(known));
  if (error != VolumeError::kNone) return Failed(path, error);
  KernelHeader header;
  KernelPlace place;
  KernelError problem = ReadKernelHeader(std::span(start).first(known), kernel.size, header);
  if (problem == KernelError::kNone) {
    problem = PlaceKernel(header, memory_, kKernelSetup, options.size(), disk.size, place);
  }
  if (problem == KernelError::kNoRoomForRamDisk) return Failed(ram_disk, Explanation(problem));
  if (problem != KernelError::kNone) return Failed(path, Explanation(problem));
  error = Load(kernel, 0, header.setup_size, kKernelSetup, path);
  if (error == VolumeError::kNone) error = Load(kernel, header.setup_size, header.kernel_size, kKernelAddress, path);
  if (error != VolumeError::kNone) return Failed(path, error);
  error = Load(disk, 0, disk.size, place.ram_disk.begin, ram_disk);
  if (error != VolumeError::kNone) return Failed(ram_disk, error);
  console_.Clear();
  RunKernel(place, options);
}

std::string_view Starter::ShowOverview() {
  static std::array<char, 240> room;
  console_.Clear();
  console_.Write("Memory and disks of this computer\n\n");
  for (const MemoryRange& range : memory_.ranges()) {
    TextWriter line(room);
    line.Add(range.type == kFreeMemory ? "  free      " : "  in use    ");
    line.Add(static_cast<std::uint32_t>(range.base >> 10)).Add(" KB to ");
    line.Add(static_cast<std::uint32_t>((range.base + range.length) >> 10)).Add(" KB\n");
    console_.Write(line.text());
  }
  TextWriter line(room);
  line.Add("\n  Free memory: ").Add(static_cast<std::uint32_t>(memory_.FreeKilobytes())).Add(" KB\n");
  line.Add("  Hard disks that the BIOS knows: ").Add(HardDiskCount()).Add("\n");
  line.Add("\nPress a key to go back to the menu.\n");
  console_.Write(line.text());
  ForgetKeys();
  static_cast<void>(WaitForKey());
  return "";
}

}  // namespace discwright::loader
