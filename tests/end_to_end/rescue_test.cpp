// Tests of the rescue CD that examples/rescue describes: each of its entries starts the program behind it.
#include <memory>
#include <string>
#include <utility>

#include "tests/end_to_end/boot_menu.h"

namespace discwright::testing {

namespace {

constexpr std::chrono::minutes kDebianDeadline{6};  // half a minute on an idle machine

// The files of the recipe and the CD that is built from them, as `make rescue` does it.
class Recipe {
 public:
  Recipe() {
    const Outcome collected = RunProgram({RESCUE_RECIPE "/collect.sh", files.string()});
    problem = collected.err;
    if (collected.exit_code != 0) return;
    const Outcome built = Build(files, image);
    if (built.exit_code != 0) problem = "The rescue CD was not built: " + built.err;
  }

  Outcome Build(const fs::path& additional, const fs::path& output) const {
    return program.Build(Join(Output(output), {"--session", RESCUE_RECIPE "/rescue.ini", "--set", "ChkVexaUtils=0"},
                              AdditionalFiles(additional)));
  }

  TemporaryFolder place;
  ProgramCopy program{place / "program"};
  fs::path files = place / "files";
  fs::path image = place / "rescue.iso";
  std::string problem;  // empty: the CD was built
};

class RescueCd : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { recipe = std::make_unique<Recipe>(); }
  static void TearDownTestSuite() { recipe.reset(); }
  void SetUp() override { ASSERT_EQ(recipe->problem, ""); }

  // Starts a PC with the CD and further arguments of QEMU, and presses a key in the menu.
  static std::unique_ptr<Emulator> Started(const std::string& key, const std::vector<std::string>& arguments = {},
                                           const char* pc_name = kPc32) {
    auto pc = std::make_unique<Emulator>(Join(CdDrive(recipe->image), arguments), pc_name);
    EXPECT_TRUE(pc->WaitForScreen(kEntriesShown));
    pc->SendKey(key);
    return pc;
  }

  static std::unique_ptr<Recipe> recipe;
};

std::unique_ptr<Recipe> RescueCd::recipe;

}  // namespace

TEST_F(RescueCd, MemoryTest_IsTheBuildForTheProcessor) {
  for (const auto& [pc_name, build] : {std::pair(kPc64, ".x64"), std::pair(kPc32, ".x32")}) {
    const auto pc = Started("m", {}, pc_name);
    EXPECT_TRUE(pc->WaitForScreen("Memtest86+ v")) << pc_name;
    EXPECT_TRUE(pc->WaitForScreen(build)) << pc_name;
  }
}

TEST_F(RescueCd, Ipxe_ShowsItsBannerAndItsCommandLine) {
  const auto pc = Started("i", {"-nic", "user,model=e1000,restrict=on"});
  EXPECT_TRUE(pc->WaitForScreen("iPXE initialising devices"));
  ASSERT_TRUE(pc->WaitForScreen("Press Ctrl-B for the iPXE command line"));
}

TEST_F(RescueCd, Grub_ReachesItsCommandLine) {
  const auto pc = Started("g");
  ASSERT_TRUE(pc->WaitForScreen("GNU GRUB  version"));
  pc->SendKey("c");
  EXPECT_TRUE(pc->WaitForScreen("grub>"));
}

TEST_F(RescueCd, DebianOnTheSerialPort_ReachesItsFirstDialog) {
  const auto pc = Started("x", {"-m", "512"});
  EXPECT_TRUE(pc->WaitForSerial("Linux version", kDebianDeadline));
  EXPECT_TRUE(pc->WaitForSerial("Select a language", kDebianDeadline));
  EXPECT_THAT(pc->Serial(), HasSubstr("rescue/enable=true"));
}

TEST_F(RescueCd, DebianOnTheScreen_ReachesItsFirstDialogInTextMode) {
  const auto pc = Started("d", {"-m", "512"});
  EXPECT_TRUE(pc->WaitForVideoMemory("Select a language", kDebianDeadline));
  EXPECT_TRUE(pc->WaitForVideoMemory("Rescue mode", kDebianDeadline));
}

// The kernel and its RAM disk have 36 MB.
TEST_F(RescueCd, DebianInTooLittleMemory_IsReportedAndTheMenuStays) {
  const auto pc = Started("x", {"-m", "48"});  // enough for its files, but not for the unpacked kernel besides
  EXPECT_TRUE(pc->WaitForScreen("rescue/debian/initrd.gz: This machine has too little memory for the RAM"));
  pc->SendKey("i");
  EXPECT_TRUE(pc->WaitForScreen("iPXE initialising devices"));
}

TEST_F(RescueCd, ProgramsWhoseFilesAreLeftOut_HaveNoEntry) {
  const TemporaryFolder place;
  fs::create_directories(place / "files/rescue");
  for (const char* kept : {"boot", "rescue/ipxe.krn", "rescue/memtest32.bin"}) {
    fs::copy(recipe->files / kept, place / "files" / kept, fs::copy_options::recursive);
  }
  ASSERT_EQ(recipe->Build(place / "files", place / "small.iso").exit_code, 0);
  Emulator pc(CdDrive(place / "small.iso"));
  ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
  const std::string screen = pc.Screen();
  EXPECT_THAT(screen, HasSubstr("Memory test"));
  EXPECT_THAT(screen, HasSubstr("iPXE"));
  EXPECT_THAT(screen, Not(HasSubstr("Debian")));
  EXPECT_THAT(screen, Not(HasSubstr("GRUB")));
}

TEST_F(RescueCd, Licences_AreOnTheCd) {
  const Contents licences = Below(ReadWithBsdtar(recipe->image), "rescue/licences");
  for (const char* name : {"memtest86+.txt", "ipxe.txt", "grub-rescue-pc.txt", "debian-installer-12-netboot-i386.txt",
                           "GPL-2.txt", "GPL-3.txt", "sources.txt"}) {
    EXPECT_TRUE(licences.contains(name)) << name;
  }
}

}  // namespace discwright::testing
