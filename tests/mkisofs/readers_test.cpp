// Runs the real program and reads its images with other programs: bsdtar, xorriso, 7z, isoinfo and the kernel.
#include <map>

#include "tests/mkisofs/loaders.h"
#include "tests/mkisofs/mastering.h"
#include "tests/support/shell.h"

namespace discwright::testing {
namespace {

namespace fs = std::filesystem;
using host::testing::BytesOfSize;
using host::testing::TextOf;
using ::testing::HasSubstr;

class Readers : public Mastering {
 protected:
  void SetUp() override {
    if (!HasShell()) GTEST_SKIP() << "no shell here";
  }

  int Run(const std::string& command) {
    said_ = RunShell(command);
    return said_.exit_code;
  }
  const std::string& Said() const { return said_.output; }

  static std::string Command(const std::vector<std::string>& words) {
    std::string command = ShellProgram(u8"" MKISOFS_PROGRAM);
    for (const std::string& word : words) command += " " + Quote(word);
    return command;
  }
  void RunProgram() {
    std::vector<std::string> words = ScriptWords();
    words.insert(words.end(), {"-output", Iso(), folder.Native("tree")});
    ASSERT_EQ(Run(Command(words)), 0) << Said();
  }
  std::string Iso() const { return folder.Native("image.iso"); }
  // The path of the image as a word for the shell.
  std::string IsoWord() const { return ShellPath(folder.Path("image.iso")); }
  std::string Word(const std::string& name) const { return ShellPath(folder.Path(name)); }

  // Stands for the content of a file, so that the message of a failed comparison stays short.
  static std::string Digest(const std::string& content) {
    return std::to_string(content.size()) + " bytes, hash " + std::to_string(std::hash<std::string>()(content));
  }

  // {path: digest of the content} of everything below a folder.
  std::map<std::string, std::string> Contents(const std::string& name) const {
    std::map<std::string, std::string> contents;
    for (const auto& entry :
         fs::recursive_directory_iterator(folder.Path(name), fs::directory_options::follow_directory_symlink)) {
      std::string path = TextOf(entry.path().lexically_relative(folder.Path(name)));
      std::replace(path.begin(), path.end(), fs::path::preferred_separator == '/' ? '/' : '\\', '/');
      contents[path] = entry.is_directory() ? "<folder>" : Digest(folder.Read(name + "/" + path));
    }
    return contents;
  }
  std::map<std::string, std::string> Expected() const {
    auto contents = Contents("tree");
    contents.erase("boot/loader.bin");
    return contents;
  }

  // Only names that every reader extracts unchanged. Readers change trailing periods, ";1" and names beyond ASCII,
  // which have tests of their own.
  void MakeTree() const {
    folder.Write("tree/boot/loader.bin", MakeLoader());
    folder.Write("tree/boot/menu/menu.ini", "[menu]");
    folder.Write("tree/I386/SETUPLDR.BIN", BytesOfSize(250000));
    for (int i = 0; i < 200; ++i) folder.Write("tree/I386/many/File" + std::to_string(i), BytesOfSize(i * 50));
    for (const std::size_t size : {0, 2047, 2048, 2049})
      folder.Write("tree/size" + std::to_string(size), BytesOfSize(size));
    folder.Write("tree/x", "one letter");
    folder.Write("tree/" + std::string(207, 'n'), "207 letters");
    folder.Write("tree/.leading", "period");
    folder.Write("tree/with blanks and +,=#(){}&~.txt", "odd");
    folder.MakeFolder("tree/empty");
    folder.MakeHardLink("tree/size2049", "tree/hard link");
#ifndef _WIN32
    folder.Link("I386", "tree/linked folder");
    folder.Link("size2047", "tree/linked file");
#endif
    std::string deep = "tree/deep";
    for (int depth = 0; depth < 40; ++depth) deep += "/" + std::to_string(depth);
    folder.Write(deep + "/file", "deep");
  }

 private:
  ShellEnd said_;
};

TEST_F(Readers, Bsdtar_ExtractsEverything) {
  MakeTree();
  RunProgram();
  folder.MakeFolder("out");
  ASSERT_EQ(Run("bsdtar -xf " + IsoWord() + " -C " + Word("out")), 0) << Said();
  EXPECT_EQ(Contents("out"), Expected());
}

TEST_F(Readers, Xorriso_ExtractsEverythingAndFindsTheBootImage) {
  MakeTree();
  RunProgram();
  ASSERT_EQ(Run("xorriso -indev " + IsoWord() + " -report_el_torito plain -osirrox on -extract / " + Word("out")), 0)
      << Said();
  EXPECT_THAT(Said(), HasSubstr("Volume id    : 'VEXA_RESCUE'"));
  EXPECT_THAT(Said(), HasSubstr("El Torito catalog  : 20  1\n"));
  EXPECT_THAT(Said(), ::testing::ContainsRegex("El Torito boot img : +1 +BIOS +y +none +0x0000 +0x00 +4 +21\n"));
  EXPECT_EQ(Contents("out"), Expected());
}

TEST_F(Readers, SevenZip_ExtractsEverything) {
  MakeTree();
  RunProgram();
  ASSERT_EQ(Run("7z x -y -o" + Word("out") + " " + IsoWord()), 0) << Said();
  // 7z adds the sectors that the BIOS loads as a file in a folder [BOOT], which is not in the tree.
  EXPECT_EQ(folder.Read("out/[BOOT]/Boot-NoEmul.img"), MakeLoader().substr(0, 2048));
  fs::remove_all(folder.Path("out/[BOOT]"));
  EXPECT_EQ(Contents("out"), Expected());
}

TEST_F(Readers, Isoinfo_ListsAndExtractsEverything) {
  MakeTree();
  RunProgram();
  ASSERT_EQ(Run("isoinfo -f -i " + IsoWord()), 0);
  std::map<std::string, std::string> listed;
  std::istringstream lines(Said());
  const auto expected = Expected();
  for (std::string line; std::getline(lines, line);) {
    const std::string path = line.substr(1);
    listed[path] = "<folder>";
    const auto file = expected.find(path);
    if (file == expected.end() || file->second == "<folder>") continue;
    ASSERT_EQ(Run("isoinfo -i " + IsoWord() + " -x " + Quote(line)), 0) << line;
    listed[path] = Digest(Said());
  }
  EXPECT_EQ(listed, expected);
  ASSERT_EQ(Run("isoinfo -d -i " + IsoWord()), 0);
  for (const char* line : {"Volume id: VEXA_RESCUE\n", "Publisher id: KORVANE LTD\n", "Data preparer id: Brennick\n",
                           "Application id: Vexa CD Creator\n", "boot catalog is in sector 20\n", "Nsect 4\n",
                           "Bootoff 15 21\n", "CD-ROM uses ISO 9660:1999 relaxed format\n"})
    EXPECT_THAT(Said(), HasSubstr(line));
}

TEST_F(Readers, PartitionPrograms_FindOnePartitionAndNoError) {
  MakeTree();
  RunProgram();
  const std::uintmax_t size = fs::file_size(folder.Path("image.iso")) / 512;
  const std::string sectors = std::to_string(size);
  ASSERT_EQ(Run("/sbin/sfdisk --dump " + IsoWord()), 0) << Said();
  EXPECT_THAT(Said(), HasSubstr(": start=           0, size=        " + sectors + ", type=17, bootable\n"));
  ASSERT_EQ(Run("/sbin/sfdisk --verify " + IsoWord()), 0) << Said();
  EXPECT_THAT(Said(), HasSubstr("No errors detected."));
  ASSERT_EQ(Run("/sbin/fdisk -l " + IsoWord()), 0) << Said();
  EXPECT_THAT(Said(),
              ::testing::ContainsRegex("1 +\\* +0 +" + std::to_string(size - 1) + " +" + sectors + " .* 17 Hidden"));
  EXPECT_THAT(Said(), ::testing::Not(HasSubstr("Disk identifier: 0x00000000")));
}

TEST_F(Readers, Kernel_MountsTheImage) {
  if (folder.native().empty() || Run("grep -qw iso9660 /proc/filesystems") != 0) GTEST_SKIP() << "no iso9660 here";
  MakeTree();
  RunProgram();
  folder.MakeFolder("out");
  if (Run("mount -o loop,ro,map=off " + IsoWord() + " " + Word("out")) != 0)
    GTEST_SKIP() << "mounting is not permitted";
  const auto mounted = Contents("out");
  EXPECT_EQ(Run("umount " + Word("out")), 0);
  EXPECT_EQ(mounted, Expected());
}

TEST_F(Readers, OddNames_AreListedByIsoinfoByteForByte) {
  folder.Write("tree/boot/loader.bin", "loader");
  for (const char* name : {"a;1", "\xC3\xA4\xC3\xB6.txt", ".two..dots"}) folder.Write(std::string("tree/") + name, "x");
  RunProgram();
  ASSERT_EQ(Run("isoinfo -f -i " + IsoWord()), 0);
  EXPECT_EQ(Said(), "/.two..dots\n/a;1\n/boot\n/\xC3\xA4\xC3\xB6.txt\n");
}

TEST_F(Readers, FileOfMoreThan2GiB_IsStoredWhole) {
  folder.Write("tree/boot/loader.bin", "loader");
  folder.Write("tree/large", "start");
  std::fstream large(folder.Path("tree/large"), std::ios::binary | std::ios::in | std::ios::out);
  large.seekp(0x80000001 - 4);
  large << "end!";
  large.close();
  RunProgram();
  EXPECT_THAT(Said(), HasSubstr(" 99."));
  EXPECT_EQ(fs::file_size(folder.Path("image.iso")) % 2048, 0u);
  EXPECT_EQ(Run("bsdtar -xOf " + IsoWord() + " large | cmp - " + Word("tree/large")), 0) << Said();
}

TEST_F(Readers, FailedRun_SaysWhyOnStandardErrorAlone) {
  folder.Write("tree/" + std::string(208, 'n'), "x");
  EXPECT_EQ(Run("{ " + Command({"-follow-links", "-o", Iso(), folder.Native("tree")}) + " 2>/dev/null; }"), 1);
  EXPECT_EQ(Said(), "");
}

TEST_F(Readers, PartOfAKilledRun_IsReplaced) {
  folder.Write("tree/boot/loader.bin", "loader");
  folder.Write(".discwright-image.iso.part", "of a killed run");
  RunProgram();
  EXPECT_THAT(folder.Names(), ::testing::ElementsAre("image.iso", "tree"));
}

}  // namespace
}  // namespace discwright::testing
