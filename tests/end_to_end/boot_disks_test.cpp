// Tests of the five boot disks in an emulated PC: started as floppies, and from the menu of a finished CD.
#include <string>
#include <utility>
#include <vector>

#include "tests/end_to_end/boot_menu.h"

namespace discwright::testing {

namespace {

using namespace std::string_literals;

// Stands at the bottom right of the screen of Memtest86+; "x32" or "x64" follows.
constexpr const char* kMemoryTest = "6.10.unknown.";

// Adds a network card without its boot program, which would start from the network, too.
std::vector<std::string> NetworkCard(const std::string& model) {
  return {"-netdev", "user,restrict=on,id=" + model, "-device", model + ",romfile=,netdev=" + model};
}

// Returns the boot sector of a floppy with this code behind the parameter block.
std::string FloppySectorWith(const std::string& code) {
  std::string sector = "\xEB\x3C\x90"s + std::string(59, '\0') + code;  // jmp short 3Eh
  sector.resize(510, '\0');
  return sector + "\x55\xAA";
}

class BootDisks : public BootMenu {
 protected:
  // Makes a disk with CreateDsk as the build does.
  fs::path MakeDisk(const std::vector<std::string>& arguments, const std::string& name) const {
    const Outcome made = RunProgram(Join({(program / "CreateDsk").string()}, arguments));
    EXPECT_EQ(made.exit_code, 0) << made.err;
    const Outcome checked = RunProgram({"/usr/sbin/fsck.fat", "-n", (program / name).string()});
    EXPECT_EQ(checked.exit_code, 0) << checked.out;
    return program / name;
  }
  fs::path RescueDisk() const { return MakeDisk({"-t", "144", "vexasoftware"}, "vexastart.img"); }
  fs::path PlusDisk(const std::vector<std::string>& more = {}) const {
    return MakeDisk(Join({"-t", "288", "linkwellplus288"}, more), "vexalinkwell.img");
  }
  fs::path NetworkDisk(const std::vector<std::string>& more = {}) const {
    return MakeDisk(Join({"-t", "288", "netaccess"}, more), "vexanet.img");
  }
  fs::path EmmDisk() const { return MakeDisk({"-t", "144", "vexasoftware_emm"}, "vexaemm.img"); }
  fs::path SetupDisk() const { return MakeDisk({"-t", "144", "winsetup"}, "vexawin.img"); }

  static void Choose(Emulator& pc, const std::string& key) {
    ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
    pc.SendKey(key);
  }
};

}  // namespace

TEST_F(BootDisks, RescueDisk_ShowsItsMenu) {
  Emulator pc(FloppyDrive(RescueDisk()));
  ASSERT_TRUE(pc.WaitForScreen(kEntriesShown));
  const std::string screen = pc.Screen();
  EXPECT_THAT(screen, HasSubstr("Vexa Rescue Software"));
  EXPECT_THAT(screen, HasSubstr(kRescueDiskShown));
  EXPECT_THAT(screen, HasSubstr("2  GRUB"));
  EXPECT_THAT(screen, HasSubstr("3  First hard disk"));
  EXPECT_THAT(screen, HasSubstr("5  Power off"));
  EXPECT_THAT(screen, Not(HasSubstr("Starts in")));
}

TEST_F(BootDisks, MemoryTest_IsTheOneForTheProcessor) {
  const fs::path disk = RescueDisk();
  for (const char* processor : {"486", "pentium3", "qemu32"}) {
    Emulator pc(Join(FloppyDrive(disk), {"-cpu", processor}));
    Choose(pc, "m");
    EXPECT_TRUE(pc.WaitForScreen(kMemoryTest + "x32"s)) << processor;
  }
  Emulator pc(FloppyDrive(disk), kPc64);
  Choose(pc, "m");
  EXPECT_TRUE(pc.WaitForScreen(kMemoryTest + "x64"s));
}

TEST_F(BootDisks, Grub_ShowsItsMenuAndItsCommandLine) {
  Emulator pc(FloppyDrive(RescueDisk()));
  Choose(pc, "g");
  ASSERT_TRUE(pc.WaitForScreen("GNU GRUB"));
  pc.SendKey("c");
  EXPECT_TRUE(pc.WaitForScreen("grub>"));
}

TEST_F(BootDisks, PlusDisk_HasTheRescueSoftwareAndTheNetwork) {
  const fs::path disk = PlusDisk();
  for (const auto& [key, text] : {std::pair("m", kMemoryTest), std::pair("g", "GNU GRUB"), std::pair("n", "iPXE 1.")}) {
    Emulator pc(Join(FloppyDrive(disk), NetworkCard("e1000")));
    ASSERT_TRUE(pc.WaitForScreen("Vexa Rescue Software Plus (Linkwell)"));
    Choose(pc, key);
    EXPECT_TRUE(pc.WaitForScreen(text));
  }
}

TEST_F(BootDisks, NetworkDisk_StartsFromTheNetworkByItself) {
  Emulator pc(Join(FloppyDrive(NetworkDisk()), NetworkCard("rtl8139")));
  ASSERT_TRUE(pc.WaitForScreen("Vexa Network Access"));
  EXPECT_THAT(pc.Screen(), Not(HasSubstr("First network card only")));
  EXPECT_TRUE(pc.WaitForScreen("Starts in"));
  EXPECT_TRUE(pc.WaitForScreen("Press Ctrl-B for the iPXE command line"));
}

TEST_F(BootDisks, DisksWithSelection_AskForTheCardWithoutATimeOut) {
  for (const fs::path& disk : {PlusDisk({"-sel"}), NetworkDisk({"-sel"})}) {
    Emulator pc(FloppyDrive(disk));
    EXPECT_TRUE(pc.WaitForScreen("Choose the network card to start from, or N to try every card."));
    const std::string screen = pc.Screen();
    EXPECT_THAT(screen, HasSubstr("1  Start from the network"));
    EXPECT_THAT(screen, HasSubstr("2  First network card only"));
    EXPECT_THAT(screen, Not(HasSubstr("Starts in")));
  }
}

TEST_F(BootDisks, ChosenCard_IsTheOneThatIsUsed) {
  const fs::path disk = NetworkDisk({"-sel"});
  const std::vector<std::string> cards = Join(NetworkCard("e1000"), NetworkCard("rtl8139"));
  for (const auto& [key, card] : {std::pair("a", "Configuring (net0"), std::pair("b", "Configuring (net1")}) {
    Emulator pc(Join(FloppyDrive(disk), cards));
    Choose(pc, key);
    EXPECT_TRUE(pc.WaitForScreen(card));
    EXPECT_TRUE(pc.WaitForScreen("iPXE>"));
    EXPECT_THAT(pc.Screen(), Not(HasSubstr(key == "a"s ? "Configuring (net1" : "Configuring (net0")));
  }
  Emulator third(Join(FloppyDrive(disk), cards));
  Choose(third, "c");
  EXPECT_TRUE(third.WaitForScreen("\"net2\": no such network device\niPXE>"));
}

TEST_F(BootDisks, ListOfCards_NamesTheirDrivers) {
  Emulator pc(Join(FloppyDrive(NetworkDisk({"-sel"})), NetworkCard("e1000"), NetworkCard("rtl8139")));
  Choose(pc, "l");
  ASSERT_TRUE(pc.WaitForScreen("iPXE>"));
  const std::string screen = pc.Screen();
  EXPECT_THAT(screen, HasSubstr("net0: "));
  EXPECT_THAT(screen, HasSubstr("using 82540em"));
  EXPECT_THAT(screen, HasSubstr("net1: "));
  EXPECT_THAT(screen, HasSubstr("using rtl8139"));
}

TEST_F(BootDisks, CommandLineOfIpxe_StartsNothingElse) {
  Emulator pc(Join(FloppyDrive(PlusDisk({"-sel"})), NetworkCard("e1000")));
  Choose(pc, "i");
  EXPECT_TRUE(pc.WaitForScreen("iPXE>"));
  EXPECT_THAT(pc.Screen(), Not(HasSubstr("Configuring")));
}

TEST_F(BootDisks, DisksWithoutASystem_SayWhatToPutWhereAndOfferTheWaysOut) {
  for (const auto& [disk, folder] : {std::pair(EmmDisk(), "files\\disks\\vexasoftware_emm\\dos"),
                                     std::pair(SetupDisk(), "files\\disks\\winsetup\\dos")}) {
    Emulator pc(FloppyDrive(disk));
    ASSERT_TRUE(pc.WaitForScreen("Any key: go on"));
    EXPECT_THAT(pc.Screen(), HasSubstr("This disk has no system yet."));
    EXPECT_THAT(pc.Screen(), HasSubstr(folder));
    pc.SendKey("ret");
    ASSERT_TRUE(pc.WaitForScreen("First hard disk"));
    EXPECT_THAT(pc.Screen(), HasSubstr("Restart"));
    Choose(pc, "p");
    EXPECT_TRUE(pc.WaitForEnd());
    EXPECT_THAT(pc.Events(), HasSubstr("guest-shutdown"));
  }
}

TEST_F(BootDisks, ImageOfTheUser_StartsWithItsOwnSector) {
  const fs::path dos = program / "files/disks/winsetup/dos";
  fs::create_directories(dos);
  const fs::path floppy = dos / "My floppy.img";
  ASSERT_EQ(RunProgram({"/usr/sbin/mkfs.fat", "-C", "-F", "12", floppy.string(), "1440"}).exit_code, 0);
  std::string bytes = ReadFile(floppy);
  bytes.replace(62, 448, FloppySectorWith(CodeThatShows("OK")).substr(62, 448));
  WriteFile(floppy, bytes);
  Emulator pc(FloppyDrive(SetupDisk()));
  EXPECT_TRUE(pc.WaitForScreen("OK0"));
}

// The boot sectors of many systems load the first file of the root folder from the first cluster.
TEST_F(BootDisks, SystemFilesOfTheUser_AreWhereTheirBootSectorLoadsThem) {
  const fs::path dos = program / "files/disks/vexasoftware_emm/dos";
  WriteFile(dos / "bootsect.bin",
            FloppySectorWith("\x31\xC0\x8E\xD8\x8E\xC0\x8E\xD0\xBC\x00\x7C"  // zero DS, ES, SS; SP = 7C00h
                             "\xB8\x01\x02\xBB\x00\x80"                      // mov ax, 0201h; mov bx, 8000h
                             "\xB9\x10\x00\xBA\x00\x01"                      // mov cx, 0010h; mov dx, 0100h: sector 33
                             "\xCD\x13\xEA\x00\x80\x00\x00"s));              // int 13h; jmp 0:8000h
  WriteFile(dos / "AUTOEXEC.BAT", "rem");
  WriteFile(dos / "Io.sys", CodeThatShows("OK"));
  WriteFile(dos / "Msdos.sys", "second");
  Emulator pc(FloppyDrive(EmmDisk()));
  EXPECT_TRUE(pc.WaitForScreen("OK0"));
}

TEST_F(BootDisks, ProgramsOfTheDisks_StartFromTheMenuOfTheCd) {
  ASSERT_EQ(Build().exit_code, 0);
  const std::vector<std::string> keys_and_texts[] = {
      {"s", "m", kMemoryTest}, {"s", "g", "GNU GRUB"}, {"n", "n", "Press Ctrl-B for the iPXE command line"}};
  for (const auto& row : keys_and_texts) {
    Emulator pc(Join(CdDrive(image), NetworkCard("e1000")));
    ASSERT_TRUE(pc.WaitForScreen("First hard disk"));
    Choose(pc, row[0]);
    ASSERT_TRUE(pc.WaitForScreen(row[1] == "n" ? "1  Start from the network" : kRescueDiskShown));
    Choose(pc, row[1]);
    EXPECT_TRUE(pc.WaitForScreen(row[2]));
  }
}

TEST_F(BootDisks, DiskWithoutASystem_IsShownFromTheMenuOfTheCd) {
  ASSERT_EQ(Build().exit_code, 0);
  Emulator pc(CdDrive(image));
  Choose(pc, "e");
  EXPECT_TRUE(pc.WaitForScreen("This disk has no system yet."));
}

}  // namespace discwright::testing
