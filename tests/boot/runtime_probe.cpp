// A program in place of the loader's main function. It shows through COM1 what the loader's runtime does on the
// machine, and does what the keys say: r restarts, o switches off, n starts the next device. It names every other key.
#include <algorithm>
#include <array>
#include <string_view>

#include "boot/loader/pc/bios_memory.h"
#include "boot/loader/pc/keyboard.h"
#include "boot/loader/pc/loader_main.h"
#include "boot/loader/pc/ports.h"
#include "boot/loader/pc/power.h"

namespace discwright::loader {

namespace {

constexpr std::uint16_t kCom1 = 0x3F8;

void Say(std::string_view text) {
  for (const char letter : text) Out(kCom1, static_cast<std::uint8_t>(letter));
}

void SayNumber(std::uint64_t number) {
  for (int shift = 60; shift >= 0; shift -= 4) {
    if (number >> shift != 0 || shift == 0) {
      const char digit = "0123456789ABCDEF"[(number >> shift) & 15];
      Say({&digit, 1});
    }
  }
}

void SayNumbers(std::string_view name, std::initializer_list<std::uint64_t> numbers) {
  Say(name);
  for (const std::uint64_t number : numbers) {
    Say(" ");
    SayNumber(number);
  }
  Say("\n");
}

void ShowMemory() {
  const MemoryMap map = ReadMemoryMap();
  for (const MemoryRange& range : map.ranges()) SayNumbers("memory", {range.base, range.length, range.type});
}

// Shows the sum of the bytes of sectors 16 to 55, read at once and one at a time.
void ShowSectors(BiosDisk& disk) {
  static std::array<std::uint8_t, 40 * kSectorSize> sectors;
  std::uint32_t sum = 0;
  const bool good = disk.Read(16, sectors);
  for (const std::uint8_t byte : sectors) sum += byte;
  SayNumbers("sectors", {good, sum});
  sum = 0;
  for (std::uint32_t sector = 16; sector < 56; ++sector) {
    const auto one = std::span(sectors).first(kSectorSize);
    if (!disk.Read(sector, one)) break;
    for (const std::uint8_t byte : one) sum += byte;
  }
  SayNumbers("one by one", {sum});
}

void ShowFailure(BiosDisk& disk) {
  static std::array<std::uint8_t, 2 * kSectorSize> sectors;
  SayNumbers("behind the end", {disk.Read(0x100000, sectors), disk.LastError()});
  SayNumbers("at the last number", {disk.Read(0xFFFFFFFF, sectors)});
}

// Shows the flag that allows interrupts. In protected mode nothing could handle one.
void ShowInterrupts() {
  std::uint32_t flags = 0;
  __asm__ volatile("pushfl\n\tpopl %0" : "=r"(flags));
  SayNumbers("interrupts", {flags & 0x200});
}

void ShowKeys() {
  while (true) {
    const std::uint16_t key = WaitForKey();
    const auto letter = static_cast<std::uint8_t>(key & 0xFF);
    if (letter == 'r') Restart();
    if (letter == 'o') PowerOff();
    if (letter == 'n') StartNextDevice();
    SayNumbers("key", {letter, static_cast<std::uint64_t>(key >> 8)});
  }
}

}  // namespace

void Main(Console& console, BiosDisk::Drive drive) {
  BiosDisk disk(drive);
  ForgetKeys();
  SayNumbers("drive", {drive.number, drive.shift});
  ShowMemory();
  ShowSectors(disk);
  ShowFailure(disk);
  SayNumbers("key within 3 ticks", {WaitForKey(3).has_value()});
  ShowInterrupts();
  console.Clear();
  for (char line = 'A'; line <= 'Z'; ++line) {
    console.Write("line ");
    console.Write({&line, 1});
    console.Write("\n");
  }
  console.Write("last line");
  Console::WriteAt({3, 75}, "1234567", 0x1F);
  Console::WriteAt({25, 0}, "below", 0x1F);
  Say("ready\n");
  ShowKeys();
  Restart();
}

}  // namespace discwright::loader
