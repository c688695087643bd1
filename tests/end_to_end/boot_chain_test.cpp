// Tests of the finished CD in an emulated PC: each boot sector starts the setup loader of its own folder.
#include "tests/boot/emulator.h"
#include "tests/boot/setup_loader.h"
#include "tests/end_to_end/build_test.h"
#include "tests/end_to_end/chosen_discs.h"

namespace discwright::testing {

namespace {

class BootChain : public BuildTest {
 protected:
  // Masters the CD's tree again, with one of its boot sectors instead of the boot loader.
  fs::path CdStartingFrom(const std::string& sector) const {
    const fs::path started = place / (sector + ".iso");
    const Outcome outcome = RunProgram(
        {(program / "mkisofs").string(), "-iso-level", "4", "-omit-period", "-no-emul-boot", "-boot-load-size", "4",
         "-eltorito-boot", "boot/images/" + sector, "-output", started.string(), (program / "vexacd").string()},
        {});
    EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
    return started;
  }
  void ExpectStarts(const std::string& sector, const std::string& folder) const {
    Emulator pc(CdDrive(CdStartingFrom(sector)));
    const std::string line = SetupLoaderLine(folder);
    EXPECT_TRUE(pc.WaitForScreen(line)) << sector;
    EXPECT_TRUE(pc.WaitForSerial(line)) << sector;
  }

  void ExpectEachStartsItsOwn(Shown shown) {
    discs.Insert(shown);
    ASSERT_EQ(Build(discs.Choices()).exit_code, 0);
    ExpectStarts("w2ksect.bin", "i386");
    ExpectStarts("erdc.bin", "erdc");
    ExpectStarts("oobc.bin", "oobc");
  }

  ChosenDiscs discs{place / "discs"};
};

}  // namespace

TEST_F(BootChain, EachBootSector_ReachesTheLoaderOfItsOwnFolder) { ExpectEachStartsItsOwn(Shown::kUpperCase); }

TEST_F(BootChain, DiscsShownInLowerCase_StartTheirOwnLoaders) { ExpectEachStartsItsOwn(Shown::kLowerCase); }

// The build patches only the lower-case name in the loader of BlueCon. A loader with the upper-case name alone stays
// unchanged, and the build warns of it.
TEST_F(BootChain, LoadersThatNameTheirFolderInUpperCaseOnly_ArePatchedForErdCommander) {
  discs.Insert(Shown::kUpperCase);
  for (const char* tool : {"erd", "oobc"}) {
    const fs::path loader = discs.folder() / tool / "I386" / "SETUPLDR.BIN";
    fs::remove(loader);
    WriteFile(loader, SetupLoader(kUsualSize, "upper"));
  }
  const Outcome outcome = Build(discs.Choices());
  EXPECT_EQ(outcome.exit_code, 4);
  EXPECT_THAT(outcome.err, HasSubstr("SETUPLDR.BIN: was not patched to use the new folder name"));
  ExpectStarts("erdc.bin", "erdc");
  ExpectStarts("oobc.bin", "I386");
}

}  // namespace discwright::testing
