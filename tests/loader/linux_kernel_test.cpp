// Tests of the Linux boot protocol: what a header says, where the parts go, and what is written into the header.
#include "boot/loader/linux_kernel.h"

#include <gmock/gmock.h>

#include <vector>

namespace discwright::loader {
namespace {

constexpr std::uint32_t kMegabyte = 0x100000;
constexpr std::uint32_t kSetup = 0x10000;

void Store(std::vector<std::uint8_t>& bytes, std::size_t at, std::size_t count, std::uint32_t value) {
  for (std::size_t i = 0; i < count; ++i) bytes[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

std::uint32_t Load(const std::vector<std::uint8_t>& bytes, std::size_t at, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = count; i-- > 0;) value = value << 8U | bytes[at + i];
  return value;
}

// The start of a kernel file as Debian's memtest86+ has it.
std::vector<std::uint8_t> Kernel() {
  std::vector<std::uint8_t> start(kHeaderSize, 0x90);
  start[0x1F1] = 2;
  Store(start, 0x1FE, 2, 0xAA55);
  Store(start, 0x202, 4, 0x53726448);
  Store(start, 0x206, 2, 0x020C);
  start[0x211] = 0x01;
  Store(start, 0x22C, 4, 0xFFFFFFFF);
  Store(start, 0x230, 4, 0x1000);
  start[0x234] = 0;
  Store(start, 0x238, 4, 255);
  Store(start, 0x258, 4, kMegabyte);
  Store(start, 0x25C, 4, 0);
  Store(start, 0x260, 4, 0x6ACF8);
  return start;
}

// As Debian's kernel: it is loaded to 1 MB, and unpacks itself at 16 MB.
std::vector<std::uint8_t> MovingKernel() {
  std::vector<std::uint8_t> start = Kernel();
  Store(start, 0x230, 4, 16 * kMegabyte);
  start[0x234] = 1;
  Store(start, 0x258, 4, 16 * kMegabyte);
  Store(start, 0x260, 4, 16 * kMegabyte);
  return start;
}

MemoryMap Memory(std::uint32_t megabytes) {
  MemoryMap map;
  map.Add({0, 0x9FC00, kFreeMemory});
  map.Add({kMegabyte, (megabytes - 1) * kMegabyte, kFreeMemory});
  return map;
}

KernelHeader HeaderOf(const std::vector<std::uint8_t>& start, std::uint32_t file_size = 144312) {
  KernelHeader header;
  EXPECT_EQ(ReadKernelHeader(start, file_size, header), KernelError::kNone);
  return header;
}

KernelError ErrorOf(const std::vector<std::uint8_t>& start, std::uint32_t file_size = 144312) {
  KernelHeader header;
  return ReadKernelHeader(start, file_size, header);
}

TEST(KernelHeader, Sizes_ComeFromTheHeaderAndTheFile) {
  const KernelHeader header = HeaderOf(Kernel());
  EXPECT_EQ(header.setup_size, 1536U);
  EXPECT_EQ(header.kernel_size, 144312U - 1536U);
  EXPECT_EQ(header.run_address, kMegabyte);
  EXPECT_EQ(header.memory_size, 0x6ACF8U);
  EXPECT_EQ(header.longest_command_line, 255U);
  EXPECT_EQ(header.ram_disk_end, 0xFFFFFFFFU);
}

TEST(KernelHeader, NoSetupSectors_MeansFour) {
  std::vector<std::uint8_t> start = Kernel();
  start[0x1F1] = 0;
  EXPECT_EQ(HeaderOf(start).setup_size, 2560U);
}

// memdisk has version 2.03: behind its fields there are instructions.
TEST(KernelHeader, FieldsOfNewerVersions_AreNotReadInAnOldKernel) {
  std::vector<std::uint8_t> start = Kernel();
  Store(start, 0x206, 2, 0x0203);
  Store(start, 0x22C, 4, 0x37FFFFFE);
  const KernelHeader header = HeaderOf(start, 26792);
  EXPECT_EQ(header.ram_disk_end, 0x37FFFFFFU);
  EXPECT_EQ(header.longest_command_line, 255U);
  EXPECT_EQ(header.run_address, kMegabyte);
  EXPECT_EQ(header.memory_size, 26792U - 1536U);
  Store(start, 0x206, 2, 0x0202);
  EXPECT_EQ(HeaderOf(start, 26792).ram_disk_end, 0x38000000U);
}

TEST(KernelHeader, FileThatIsNoKernel_IsRefused) {
  EXPECT_EQ(ErrorOf(std::vector<std::uint8_t>(kHeaderSize)), KernelError::kNotAKernel);
  EXPECT_EQ(ErrorOf(std::vector<std::uint8_t>(100), 100), KernelError::kNotAKernel);
  std::vector<std::uint8_t> start = Kernel();
  start[0x1FE] = 0;
  EXPECT_EQ(ErrorOf(start), KernelError::kNotAKernel);
  start = Kernel();
  start[0x1F1] = 64;  // a setup part that leaves no room for its heap
  EXPECT_EQ(ErrorOf(start), KernelError::kNotAKernel);
}

TEST(KernelHeader, OldKernel_IsRefused) {
  std::vector<std::uint8_t> start = Kernel();
  Store(start, 0x206, 2, 0x0201);
  EXPECT_EQ(ErrorOf(start), KernelError::kTooOld);
  start = Kernel();
  start[0x211] = 0;
  EXPECT_EQ(ErrorOf(start), KernelError::kTooOld);
}

TEST(KernelHeader, FileThatEndsInItsSetupPart_IsRefused) {
  EXPECT_EQ(ErrorOf(Kernel(), 1536), KernelError::kTooShort);
  EXPECT_EQ(ErrorOf(Kernel(), 1537), KernelError::kNone);
  EXPECT_EQ(ErrorOf(std::vector<std::uint8_t>(100), 2000), KernelError::kTooShort);
}

TEST(PlaceKernel, RamDisk_GoesToTheTopOfTheMemory) {
  KernelPlace place;
  EXPECT_EQ(PlaceKernel(HeaderOf(Kernel()), Memory(64), kSetup, 10, 1'474'560, place), KernelError::kNone);
  EXPECT_EQ(place.setup, kSetup);
  EXPECT_EQ(place.command_line, kSetup + 0xE000);
  EXPECT_EQ(place.ram_disk.begin, 64 * kMegabyte - 1'474'560U);
  EXPECT_EQ(place.ram_disk.end, 64 * kMegabyte);
}

TEST(PlaceKernel, RamDisk_StaysBelowTheAddressThatTheKernelNames) {
  std::vector<std::uint8_t> start = Kernel();
  Store(start, 0x22C, 4, 32 * kMegabyte - 1);
  KernelPlace place;
  EXPECT_EQ(PlaceKernel(HeaderOf(start), Memory(64), kSetup, 0, kMegabyte, place), KernelError::kNone);
  EXPECT_EQ(place.ram_disk.end, 32 * kMegabyte);
}

TEST(PlaceKernel, NoRamDisk_NeedsNoRoom) {
  KernelPlace place;
  EXPECT_EQ(PlaceKernel(HeaderOf(Kernel()), Memory(2), kSetup, 0, 0, place), KernelError::kNone);
  EXPECT_EQ(place.ram_disk.begin, 0U);
  EXPECT_EQ(place.ram_disk.end, 0U);
}

TEST(PlaceKernel, TooLittleMemory_IsReported) {
  KernelPlace place;
  const KernelHeader header = HeaderOf(Kernel());
  EXPECT_EQ(PlaceKernel(header, Memory(4), kSetup, 0, 4 * kMegabyte, place), KernelError::kNoRoomForRamDisk);
  EXPECT_EQ(PlaceKernel(header, MemoryMap(), kSetup, 0, 0, place), KernelError::kNoRoomForKernel);
  MemoryMap with_hole = Memory(64);
  with_hole.Add({0x160000, 4096, 2});
  EXPECT_EQ(PlaceKernel(header, with_hole, kSetup, 0, 0, place), KernelError::kNoRoomForKernel);
}

TEST(KernelHeader, PlaceWhereTheKernelRuns_FollowsTheProtocol) {
  std::vector<std::uint8_t> start = MovingKernel();
  EXPECT_EQ(HeaderOf(start).run_address, 16 * kMegabyte);
  Store(start, 0x258, 4, 0);  // above the place to which it is loaded, at a multiple of its alignment
  EXPECT_EQ(HeaderOf(start).run_address, 16 * kMegabyte);
  Store(start, 0x230, 4, 0);
  EXPECT_EQ(HeaderOf(start).run_address, kMegabyte);
  Store(start, 0x25C, 4, 1);
  EXPECT_EQ(HeaderOf(start).run_address, std::uint64_t{1} << 32U);
}

TEST(PlaceKernel, RamDisk_IsNotWhereTheKernelUnpacksItself) {
  KernelPlace place;
  const KernelHeader header = HeaderOf(MovingKernel());
  EXPECT_EQ(PlaceKernel(header, Memory(48), kSetup, 0, 16 * kMegabyte, place), KernelError::kNone);
  EXPECT_EQ(place.ram_disk.begin, 32 * kMegabyte);
  EXPECT_EQ(PlaceKernel(header, Memory(48), kSetup, 0, 16 * kMegabyte + 1, place), KernelError::kNoRoomForRamDisk);
}

TEST(PlaceKernel, MemoryWhereTheKernelUnpacksItself_MustBeFree) {
  KernelPlace place;
  std::vector<std::uint8_t> start = MovingKernel();
  EXPECT_EQ(PlaceKernel(HeaderOf(start), Memory(31), kSetup, 0, 0, place), KernelError::kNoRoomForKernel);
  EXPECT_EQ(PlaceKernel(HeaderOf(start), Memory(32), kSetup, 0, 0, place), KernelError::kNone);
  MemoryMap with_hole = Memory(64);
  with_hole.Add({15 * kMegabyte, kMegabyte, 2});
  EXPECT_EQ(PlaceKernel(HeaderOf(start), with_hole, kSetup, 0, 0, place), KernelError::kNone);
  with_hole.Add({kMegabyte, 4096, 2});  // in the file's place
  EXPECT_EQ(PlaceKernel(HeaderOf(start), with_hole, kSetup, 0, 0, place), KernelError::kNoRoomForKernel);
  Store(start, 0x25C, 4, 1);  // above 4 GB
  EXPECT_EQ(PlaceKernel(HeaderOf(start), Memory(64), kSetup, 0, 0, place), KernelError::kNoRoomForKernel);
}

TEST(PlaceKernel, HeaderThatNeedsMoreThanAllMemory_IsRefused) {
  std::vector<std::uint8_t> start = Kernel();
  Store(start, 0x260, 4, 0xFFFFFFFF);
  KernelPlace place;
  EXPECT_EQ(PlaceKernel(HeaderOf(start), Memory(64), kSetup, 0, 0, place), KernelError::kNoRoomForKernel);
}

TEST(PlaceKernel, CommandLine_HasTheLengthThatTheKernelTakes) {
  KernelPlace place;
  const KernelHeader header = HeaderOf(Kernel());
  EXPECT_EQ(PlaceKernel(header, Memory(64), kSetup, 255, 0, place), KernelError::kNone);
  EXPECT_EQ(PlaceKernel(header, Memory(64), kSetup, 256, 0, place), KernelError::kCommandLine);
}

TEST(CompleteHeader, Addresses_AreWrittenToTheirFieldsAlone) {
  const std::vector<std::uint8_t> before = Kernel();
  std::vector<std::uint8_t> setup = before;
  CompleteHeader({kSetup, kSetup + 0xE000, {0x3E00000, 0x3F00001}}, "quiet", setup);
  EXPECT_EQ(setup[0x210], 0xFF);
  EXPECT_EQ(setup[0x211], 0x81);
  EXPECT_EQ(Load(setup, 0x218, 4), 0x3E00000U);
  EXPECT_EQ(Load(setup, 0x21C, 4), 0x100001U);
  EXPECT_EQ(Load(setup, 0x224, 2), 0xDE00U);
  EXPECT_EQ(Load(setup, 0x228, 4), 0x1E000U);
  std::size_t changed = 0;
  for (std::size_t i = 0; i < setup.size(); ++i) changed += setup[i] != before[i] ? 1 : 0;
  EXPECT_LE(changed, 16U);
  EXPECT_EQ(Load(setup, 0x22C, 4), 0xFFFFFFFFU);
}

// The kernel itself does not look for this word.
TEST(CompleteHeader, VideoModeOfTheCommandLine_IsWrittenToItsField) {
  constexpr std::uint32_t kLeftAlone = 0x9090;
  const auto mode_after = [](std::string_view command_line) {
    std::vector<std::uint8_t> setup = Kernel();
    CompleteHeader({}, command_line, setup);
    return Load(setup, 0x1FA, 2);
  };
  EXPECT_EQ(mode_after("vga=788"), 788U);
  EXPECT_EQ(mode_after("quiet\tvga=0x31A ---"), 0x31AU);
  EXPECT_EQ(mode_after("vga=normal"), 0xFFFFU);
  EXPECT_EQ(mode_after("vga=ext"), 0xFFFEU);
  EXPECT_EQ(mode_after("vga=1 vga=ask"), 0xFFFDU);
  for (const char* none : {"", "vga", "vga=", "vga=0x", "vga=65536", "vga=31A", "vga=0xG", "novga=1", "vga=best"}) {
    EXPECT_EQ(mode_after(none), kLeftAlone) << none;
  }
}

TEST(Explanation, EachError_HasAWholeSentence) {
  for (const KernelError error :
       {KernelError::kNotAKernel, KernelError::kTooOld, KernelError::kTooShort, KernelError::kCommandLine,
        KernelError::kNoRoomForKernel, KernelError::kNoRoomForRamDisk}) {
    EXPECT_TRUE(Explanation(error).ends_with('.')) << static_cast<int>(error);
  }
  EXPECT_EQ(Explanation(KernelError::kNone), "");
}

}  // namespace
}  // namespace discwright::loader
