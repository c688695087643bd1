// Tests of the CD boot sector of Windows Setup: file sizes, read errors of the CD, and a faulty BIOS.
#include "tests/boot/boot_fixture.h"

namespace discwright::testing {
namespace {

class BootSectorLoading : public BootSector {
 protected:
  void MasterFile(const std::string& content) const {
    WriteFile(tree / "I386/SETUPLDR.BIN", content);
    Master();
  }
};

class BootSectorLoadingSizes : public BootSectorLoading, public ::testing::WithParamInterface<std::uint32_t> {};

TEST_P(BootSectorLoadingSizes, File_IsLoadedWhole) {
  MasterFile(SetupLoader(GetParam()));
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kStarted));
}

// Sizes below and around a sector, a read of 32 KB and 64 KB, and one that almost fills 640 KB.
INSTANTIATE_TEST_SUITE_P(Bytes, BootSectorLoadingSizes,
                         ::testing::Values(600, 2047, 2048, 2049, 32768, 32769, 65537, 409601));

TEST_F(BootSectorLoading, FileOfOneByte_IsStarted) {
  MasterFile("\xF4");  // the instruction HLT
  Emulator emulator(CdDrive(image));
  EXPECT_TRUE(emulator.WaitForMonitor("info registers", "CS =2000 00020000"));
  EXPECT_EQ(emulator.Memory(0x20000, 1), "\xF4");
}

TEST_F(BootSectorLoading, EmptyFile_IsReported) {
  MasterFile("");
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen("I386\\SETUPLDR.BIN is empty"));
}

TEST_F(BootSectorLoading, FileBeyond640Kb_IsReported) {
  MasterFile(SetupLoader(524289));
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen("I386\\SETUPLDR.BIN is too large for the memory of this machine"));
}

TEST_F(BootSectorLoading, MemorySizeOfTheBios_IsUsedToItsEnd) {
  StartWith(Starter("with_256_kb", sector));
  MasterFile(SetupLoader(131072));
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(kStarted));
}

TEST_F(BootSectorLoading, MemorySizeOfTheBios_IsNotExceeded) {
  StartWith(Starter("with_256_kb", sector));
  MasterFile(SetupLoader(131073));
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen("I386\\SETUPLDR.BIN is too large for the memory of this machine"));
}

TEST_F(BootSectorLoading, MemoryBeyond640Kb_IsNotUsed) {
  StartWith(Starter("with_1024_kb", sector));
  MasterFile(SetupLoader(524289));
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen("I386\\SETUPLDR.BIN is too large for the memory of this machine"));
}

TEST_F(BootSectorLoading, BiosFullOfFaults_FileIsLoadedWhole) {
  StartWith(Starter("on_a_bad_bios", sector));
  MasterFile(SetupLoader());
  // The faulty BIOS gives the CD drive the number 9F, which the real one does not know.
  EXPECT_TRUE(Emulator(CdDrive(image)).WaitForScreen(SetupLoaderLine("i386", "9F")));
}

TEST_F(BootSectorLoading, FaultyBios_MissingFileIsStillReported) {
  StartWith(Starter("on_a_bad_bios", sector));
  Master();
  Emulator emulator(CdDrive(image));
  EXPECT_TRUE(emulator.WaitForScreen("I386\\SETUPLDR.BIN was not found on this CD\nPress a key to restart.\n"));
  emulator.SendKey("a");
  EXPECT_TRUE(emulator.WaitForEnd());
}

TEST_F(BootSectorLoading, ErrorThatGoesAway_FileIsLoadedWhole) {
  MasterFile(SetupLoader());
  EXPECT_TRUE(Emulator(FaultyCdDrive(Entry("I386/SETUPLDR.BIN").extent + 20, 3)).WaitForScreen(kStarted));
}

TEST_F(BootSectorLoading, PermanentReadError_IsReported) {
  MasterFile(SetupLoader());
  EXPECT_TRUE(Emulator(FaultyCdDrive(Entry("I386/SETUPLDR.BIN").extent + 20, kAlways))
                  .WaitForScreen("\nThe CD could not be read\n"));
}

TEST_F(BootSectorLoading, FolderThatCannotBeRead_IsReported) {
  MasterFile(SetupLoader());
  EXPECT_TRUE(Emulator(FaultyCdDrive(Entry("I386").extent, kAlways)).WaitForScreen("The CD could not be read"));
}

TEST_F(BootSectorLoading, VolumeThatCannotBeRead_IsReported) {
  MasterFile(SetupLoader());
  EXPECT_TRUE(Emulator(FaultyCdDrive(16, kAlways)).WaitForScreen("The CD could not be read"));
}

}  // namespace
}  // namespace discwright::testing
