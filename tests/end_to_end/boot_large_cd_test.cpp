// Tests of the boot menu of large CDs, and of CDs that cannot be read everywhere, in an emulated PC.
#include <string>

#include "tests/end_to_end/boot_menu.h"

namespace discwright::testing {

namespace {

constexpr std::size_t kCdSector = 2048;

std::string FloppyEntry(const std::string& key, const std::string& path) {
  return "Entry Floppy " + key + "\nKey " + key + "\nFloppy " + path + "\nEndEntry\n";
}

class BootLargeCd : public BootMenu {
 protected:
  fs::path additional = place / "additional";

  // Starts the CD and presses the hot key of an entry.
  ::testing::AssertionResult Shows(const std::vector<std::string>& drive, const std::string& key,
                                   const std::string& text) const {
    Emulator pc(drive);
    const ::testing::AssertionResult menu = pc.WaitForScreen(kEntriesShown);
    if (!menu) return menu;
    pc.SendKey(key);
    return pc.WaitForScreen(text);
  }
};

// A CD whose additional files have a floppy image, which the entry X starts.
class BootFaultyCd : public BootLargeCd {
 protected:
  void SetUp() override {
    WriteFile(additional / "mine/floppy.img", floppy);
    ASSERT_EQ(Build(WithLocalScript(FloppyEntry("X", "mine/floppy.img"))).exit_code, 0);
  }

  // A drive that fails in the middle of the floppy image, `count` times.
  std::vector<std::string> FaultyDrive(int count) const {
    const std::size_t at = ReadFile(image).find(floppy);
    EXPECT_NE(at, std::string::npos);
    const auto sector = static_cast<std::uint32_t>((at + floppy.size() / 2) / kCdSector);
    return FaultyCdDrive(image, place / "faults", sector, count);
  }

  std::string floppy = FloppyThatShows("Mine");
};

}  // namespace

TEST_F(BootLargeCd, FoldersAndFilesInThousands_AreFoundToTheLast) {
  for (int folder = 0; folder < 290; ++folder) {
    WriteFile(additional / ("Folder " + std::to_string(folder)) / "a file.txt", "text");
  }
  WriteFile(additional / "a/b/c/d/e/f/g/h/i/deep.img", FloppyThatShows("Deep"));
  for (int file = 0; file < 2999; ++file) {
    WriteFile(additional / "many" / ("a file with a long name " + std::to_string(file) + ".txt"), "");
  }
  WriteFile(additional / "many/z last.img", FloppyThatShows("Last"));
  const std::string script = FloppyEntry("X", "A\\B/c/d/e/f/g/h/i/DEEP.IMG") + FloppyEntry("Y", "\"many/Z Last.img\"") +
                             FloppyEntry("Z", "many/missing.img");
  ASSERT_EQ(Build(WithLocalScript(script)).exit_code, 0);
  EXPECT_TRUE(Shows(CdDrive(image), "x", "Deep0"));
  EXPECT_TRUE(Shows(CdDrive(image), "y", "Last0"));
  Emulator pc(CdDrive(image));
  ASSERT_TRUE(pc.WaitForScreen("Floppy Y"));
  EXPECT_THAT(pc.Screen(), Not(HasSubstr("Floppy Z")));
}

TEST_F(BootLargeCd, ScriptOf64Kb_IsReadToItsEnd) {
  WriteFile(additional / "mine/floppy.img", FloppyThatShows("Mine"));
  const std::string entry = FloppyEntry("X", "mine/floppy.img");
  std::string script;
  while (script.size() + entry.size() + 100 < 65536) script += "# A comment that makes the script longer.\n";
  script += std::string(65536 - script.size() - entry.size() - 1, '#') + "\n" + entry;
  ASSERT_EQ(script.size(), 65536U);
  ASSERT_EQ(Build(WithLocalScript(script)).exit_code, 0);
  EXPECT_TRUE(Shows(CdDrive(image), "x", "Mine0"));
}

TEST_F(BootLargeCd, ScriptOfMoreThan64Kb_IsCutWithAMessage) {
  const std::string script = std::string(65536, '#') + "\nEntry Mine\nRestart\nEndEntry\n";
  ASSERT_EQ(Build(WithLocalScript(script)).exit_code, 0);
  Emulator pc(CdDrive(image));
  EXPECT_TRUE(pc.WaitForScreen("a script has at most 64 KB"));
}

TEST_F(BootFaultyCd, ErrorInTheMiddleThatGoesAway_IsTriedAgain) { EXPECT_TRUE(Shows(FaultyDrive(3), "x", "Mine0")); }

TEST_F(BootFaultyCd, DriveThatReadsSingleSectorsOnly_IsReadSectorBySector) {
  EXPECT_TRUE(Shows(FaultyDrive(4), "x", "Mine0"));
}

TEST_F(BootFaultyCd, ErrorInTheMiddleThatStays_IsReportedAndTheMenuWorks) {
  Emulator pc(FaultyDrive(kAlways));
  ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
  pc.SendKey("x");
  ASSERT_TRUE(pc.WaitForScreen("mine/floppy.img: The drive cannot read it."));
  pc.SendKey("t");
  EXPECT_TRUE(pc.WaitForScreen("Memory and disks"));
}

}  // namespace discwright::testing
