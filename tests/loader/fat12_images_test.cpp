// Reads floppies that other programs and CreateDsk made, and compares every file with what was put in.
#include <gtest/gtest.h>

#include <map>

#include "tests/createdsk/program_folder.h"
#include "tests/loader/hand_made_floppy.h"
#include "tools/createdsk/create_disk.h"

namespace discwright::testing {
namespace {

using host::testing::BytesOfSize;
using host::testing::TempFolder;
using loader::VolumeError;

// Runs a line in the folder and expects that it succeeds.
void Shell(const TempFolder& folder, const std::string& line) {
  const ShellEnd end = RunShell("cd " + ShellPath(folder.Path("")) + " && " + line);
  ASSERT_EQ(end.exit_code, 0) << line << "\n" << end.output;
}

// The files and their sizes in bytes, by their paths on the floppy.
const std::map<std::string, std::size_t> kFiles = {{"BOOT/SCRIPTS/MAIN.CDS", 700},
                                                   {"BOOT/MEMDISK", 26140},
                                                   {"LOADER.BIN", 33333},
                                                   {"EMPTY", 0},
                                                   {"ONE.B", 1},
                                                   {"SECTOR", 512},
                                                   {"CLUSTER", 4096},
                                                   {"BOOT/MANY/X1", 511}};

class OtherPrograms : public ::testing::TestWithParam<const char*> {};

TEST_P(OtherPrograms, EveryFile_IsReadByteForByte) {
  const TempFolder folder;
  Shell(folder, "mkfs.fat -C f.img -F 12 -n LABEL -g 2/18 " + std::string(GetParam()));
  Shell(folder, "mmd -i f.img ::BOOT ::BOOT/SCRIPTS ::BOOT/MANY '::A long folder name'");
  for (int i = 0; i < 40; ++i) {  // files with long names, and gaps where every other one was
    const std::string name = "::BOOT/MANY/'a long name " + std::to_string(i) + "'";
    folder.Write("small", BytesOfSize(1500));
    Shell(folder, "mcopy -i f.img small " + name);
  }
  for (int i = 0; i < 40; i += 2) Shell(folder, "mdel -i f.img ::BOOT/MANY/'a long name " + std::to_string(i) + "'");
  for (const auto& [path, size] : kFiles) {
    folder.Write("file", BytesOfSize(size));
    Shell(folder, "mcopy -i f.img file ::" + path);
  }
  OpenedFloppy floppy(folder.Read("f.img"), 3);
  ASSERT_EQ(floppy.opened, VolumeError::kNone);
  for (const auto& [path, size] : kFiles) {
    EXPECT_TRUE(floppy.Read(path) == BytesOfSize(size)) << path;
    loader::VolumeEntry file;
    ASSERT_EQ(floppy.volume.Find(path, file), VolumeError::kNone);
    std::string pieces;
    for (std::uint32_t at = 0; at < size; at += 700) {
      pieces += floppy.ReadPart(file, at, std::min<std::size_t>(700, size - at));
    }
    EXPECT_TRUE(pieces == BytesOfSize(size)) << path;
  }
  EXPECT_EQ(floppy.Read("LABEL"), OpenedFloppy::Say(VolumeError::kNotFound));
}

INSTANTIATE_TEST_SUITE_P(Sizes, OtherPrograms,
                         ::testing::Values("360", "720", "1200", "1440", "2880", "-s 4 1440", "-s 8 8000",
                                           "-f 1 -r 512 1440", "-R 5 1440", "-s 1 -f 2 2040"));

TEST(FatImages, OfCreateDsk_AreRead) {
  for (const auto* format : {"144", "288"}) {
    ProgramFolder folder;
    folder.Add("loader", BytesOfSize(40000));
    folder.Add("script", "Entry x\r\n");
    folder.AddDiskIni("[Files]\r\nLOADER.BIN=loader\r\nBOOT/SCRIPTS/MAIN.CDS=script\r\n");
    std::string image;
    const tools::Arguments arguments{.format = tools::FindDiskFormat(format), .profile = "mine", .selection = false};
    const tools::Result result = tools::CreateDisk(arguments, host::PathFromNative(folder.Text()), image);
    ASSERT_TRUE(result.ok()) << result.failure;
    OpenedFloppy floppy(ReadFile(folder.Image()));
    EXPECT_EQ(floppy.opened, VolumeError::kNone);
    EXPECT_TRUE(floppy.Read("loader.bin") == BytesOfSize(40000));
    EXPECT_EQ(floppy.Read("boot/scripts/main.cds"), "Entry x\r\n");
  }
}

}  // namespace
}  // namespace discwright::testing
