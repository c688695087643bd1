// The real program, and its images read by programs that are not ours.
#include <sys/wait.h>

#include <csignal>
#include <cstdlib>
#include <map>
#include <thread>

#include "tests/mkisofs/mastering.h"

namespace discwright::testing {
namespace {

namespace fs = std::filesystem;
using host::testing::BytesOfSize;
using ::testing::HasSubstr;

std::string Quote(const std::string& text) { return "'" + text + "'"; }  // no test has a quote in a path

class Readers : public Mastering {
 protected:
  int Run(const std::string& command) const {
    const int status = std::system((command + " >" + Quote(folder.Native("said")) + " 2>&1").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  std::string Said() const { return folder.Read("said"); }

  static std::string Command(const std::vector<std::string>& words) {
    std::string command = Quote(MKISOFS_PROGRAM);
    for (const std::string& word : words) command += " " + Quote(word);
    return command;
  }
  void RunProgram() const {
    std::vector<std::string> words = ScriptWords();
    words.insert(words.end(), {"-output", Iso(), folder.Native("tree")});
    ASSERT_EQ(Run(Command(words)), 0) << Said();
  }
  std::string Iso() const { return folder.Native("image.iso"); }

  // Short, so that what differs can be read.
  static std::string Digest(const std::string& content) {
    return std::to_string(content.size()) + " bytes, hash " + std::to_string(std::hash<std::string>()(content));
  }

  // Every file and folder below a folder; folders have no content.
  std::map<std::string, std::string> Contents(const std::string& name) const {
    std::map<std::string, std::string> contents;
    for (const auto& entry :
         fs::recursive_directory_iterator(folder.Native(name), fs::directory_options::follow_directory_symlink)) {
      const std::string path = entry.path().lexically_relative(folder.Native(name));
      contents[path] = entry.is_directory() ? "<folder>" : Digest(folder.Read(name + "/" + path));
    }
    return contents;
  }
  std::map<std::string, std::string> Expected() const {
    auto contents = Contents("tree");
    contents.erase("boot/loader.bin");
    return contents;
  }

  // What every reader shows under its own name. Trailing periods, ";1" and names beyond ASCII have tests of their own:
  // readers change them.
  void MakeTree() const {
    folder.Write("tree/boot/loader.bin", BytesOfSize(40000));
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
    fs::create_hard_link(folder.Native("tree/size2049"), folder.Native("tree/hard link"));
    folder.Link("I386", "tree/linked folder");
    folder.Link("size2047", "tree/linked file");
    std::string deep = "tree/deep";
    for (int depth = 0; depth < 40; ++depth) deep += "/" + std::to_string(depth);
    folder.Write(deep + "/file", "deep");
  }
};

TEST_F(Readers, Bsdtar_ExtractsEverything) {
  MakeTree();
  RunProgram();
  folder.MakeFolder("out");
  ASSERT_EQ(Run("bsdtar -xf " + Quote(Iso()) + " -C " + Quote(folder.Native("out"))), 0) << Said();
  EXPECT_EQ(Contents("out"), Expected());
}

TEST_F(Readers, Xorriso_ExtractsEverythingAndFindsTheBootImage) {
  MakeTree();
  RunProgram();
  ASSERT_EQ(Run("xorriso -indev " + Quote(Iso()) + " -report_el_torito plain -osirrox on -extract / " +
                Quote(folder.Native("out"))),
            0)
      << Said();
  EXPECT_THAT(Said(), HasSubstr("Volume id    : 'VEXA_RESCUE'"));
  EXPECT_THAT(Said(), HasSubstr("El Torito catalog  : 20  1\n"));
  EXPECT_THAT(Said(), ::testing::ContainsRegex("El Torito boot img : +1 +BIOS +y +none +0x0000 +0x00 +4 +21\n"));
  EXPECT_EQ(Contents("out"), Expected());
}

TEST_F(Readers, SevenZip_ExtractsEverything) {
  MakeTree();
  RunProgram();
  ASSERT_EQ(Run("7z x -y -o" + Quote(folder.Native("out")) + " " + Quote(Iso())), 0) << Said();
  // It shows what the BIOS loads as a file of a folder that is not in the tree.
  EXPECT_EQ(folder.Read("out/[BOOT]/Boot-NoEmul.img"), BytesOfSize(40000).substr(0, 2048));
  fs::remove_all(folder.Native("out/[BOOT]"));
  EXPECT_EQ(Contents("out"), Expected());
}

TEST_F(Readers, Isoinfo_ListsAndExtractsEverything) {
  MakeTree();
  RunProgram();
  ASSERT_EQ(Run("isoinfo -f -i " + Quote(Iso())), 0);
  std::map<std::string, std::string> listed;
  std::istringstream lines(Said());
  const auto expected = Expected();
  for (std::string line; std::getline(lines, line);) {
    const std::string path = line.substr(1);
    listed[path] = "<folder>";
    const auto file = expected.find(path);
    if (file == expected.end() || file->second == "<folder>") continue;
    ASSERT_EQ(Run("isoinfo -i " + Quote(Iso()) + " -x " + Quote(line)), 0) << line;
    listed[path] = Digest(Said());
  }
  EXPECT_EQ(listed, expected);
  ASSERT_EQ(Run("isoinfo -d -i " + Quote(Iso())), 0);
  for (const char* line : {"Volume id: VEXA_RESCUE\n", "Publisher id: KORVANE LTD\n", "Data preparer id: Brennick\n",
                           "Application id: Vexa CD Creator\n", "boot catalog is in sector 20\n", "Nsect 4\n",
                           "Bootoff 15 21\n", "CD-ROM uses ISO 9660:1999 relaxed format\n"})
    EXPECT_THAT(Said(), HasSubstr(line));
}

TEST_F(Readers, Kernel_MountsTheImage) {
  if (folder.native().empty() || Run("grep -qw iso9660 /proc/filesystems") != 0) GTEST_SKIP() << "no iso9660 here";
  MakeTree();
  RunProgram();
  folder.MakeFolder("out");
  if (Run("mount -o loop,ro,map=off " + Quote(Iso()) + " " + Quote(folder.Native("out"))) != 0)
    GTEST_SKIP() << "mounting is not permitted";
  const auto mounted = Contents("out");
  EXPECT_EQ(Run("umount " + Quote(folder.Native("out"))), 0);
  EXPECT_EQ(mounted, Expected());
}

TEST_F(Readers, OddNames_AreListedByIsoinfoByteForByte) {
  folder.Write("tree/boot/loader.bin", "loader");
  for (const char* name : {"trail.", "a;1", "\xC3\xA4\xC3\xB6.txt", "two..dots.."})
    folder.Write(std::string("tree/") + name, "x");
  RunProgram();
  ASSERT_EQ(Run("isoinfo -f -i " + Quote(Iso())), 0);
  EXPECT_EQ(Said(), "/a;1\n/boot\n/trail.\n/two..dots..\n/\xC3\xA4\xC3\xB6.txt\n");
}

TEST_F(Readers, FileOfMoreThan2GiB_IsStoredWhole) {
  folder.Write("tree/boot/loader.bin", "loader");
  folder.Write("tree/large", "start");
  fs::resize_file(folder.Native("tree/large"), 0x80000001);
  const int fd = open(folder.Native("tree/large").c_str(), O_WRONLY);
  ASSERT_EQ(pwrite(fd, "end!", 4, 0x80000001 - 4), 4);
  close(fd);
  RunProgram();
  EXPECT_THAT(Said(), HasSubstr(" 99."));
  EXPECT_EQ(fs::file_size(Iso()) % 2048, 0u);
  EXPECT_EQ(Run("bsdtar -xOf " + Quote(Iso()) + " large | cmp - " + Quote(folder.Native("tree/large"))), 0) << Said();
}

// A run that is ended by force must not leave half an image under the image's name.
TEST_F(Readers, KilledRun_LeavesNoImageAndTheNextRunSucceeds) {
  folder.Write("tree/boot/loader.bin", "loader");
  folder.Write("tree/large", "");
  fs::resize_file(folder.Native("tree/large"), 0xFFFFFFFF);
  std::vector<std::string> words = ScriptWords();
  words.insert(words.end(), {"-output", Iso(), folder.Native("tree")});
  for (const int signal : {SIGKILL, SIGTERM}) {
    const pid_t program = fork();
    if (program == 0) {
      execl("/bin/sh", "sh", "-c", ("exec " + Command(words) + " 2>/dev/null").c_str(), nullptr);
      _exit(127);
    }
    const auto is_under_way = [&] { return fs::exists(Iso() + ".part") && fs::file_size(Iso() + ".part") > 0; };
    while (!is_under_way() && waitpid(program, nullptr, WNOHANG) == 0)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    kill(program, signal);
    int status = 0;
    waitpid(program, &status, 0);
    EXPECT_TRUE(signal == SIGKILL ? WIFSIGNALED(status) : WIFEXITED(status) && WEXITSTATUS(status) == 1);
    EXPECT_FALSE(fs::exists(Iso()));
    EXPECT_EQ(fs::exists(Iso() + ".part"), signal == SIGKILL);
    fs::remove(Iso() + ".part");
  }
  fs::remove(folder.Native("tree/large"));
  folder.Write("image.iso.part", "of a killed run");
  RunProgram();
  EXPECT_TRUE(fs::exists(Iso()));
  EXPECT_FALSE(fs::exists(Iso() + ".part"));
}

TEST_F(Readers, FailedRun_SaysWhyOnStandardErrorAlone) {
  folder.Link("nowhere", "tree/broken");
  const std::string command = Command({"-follow-links", "-o", Iso(), folder.Native("tree")}) + " 2>/dev/null";
  EXPECT_EQ(Run("{ " + command + "; }"), 1);
  EXPECT_EQ(Said(), "");
}

}  // namespace
}  // namespace discwright::testing
