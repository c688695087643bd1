// Reads the images of three mastering programs, and compares everything in them with what was put in.
#include <cctype>
#include <map>
#include <memory>

#include "tests/host/temp_folder.h"
#include "tests/loader/iso_fixture.h"
#include "tests/support/shell.h"

namespace discwright::testing {
namespace {

using host::testing::BytesOfSize;
using host::testing::TempFolder;

constexpr char kAsTheBuild[] =
    " -iso-level 4 -omit-period -volid V -no-emul-boot -boot-load-size 4 -eltorito-boot "
    "boot/loader.bin -hide loader.bin -hide boot.catalog -follow-links -cache-inodes";

struct Program {
  std::string name;
  std::string command;
  bool keeps_names = true;  // it stores every name as it is
};
void PrintTo(const Program& program, std::ostream* out) { *out << program.name; }

std::vector<Program> KeepingPrograms() {
  return {{"Ours", "'" MKISOFS_PROGRAM "'" + std::string(kAsTheBuild)},
          {"Genisoimage", "genisoimage -quiet" + std::string(kAsTheBuild)},
          {"Xorriso", "xorriso -as mkisofs" + std::string(kAsTheBuild)}};
}

std::vector<Program> AllPrograms() {
  std::vector<Program> programs = KeepingPrograms();
  programs.push_back({"GenisoimageLevel1", "genisoimage -quiet -iso-level 1", false});
  programs.push_back({"GenisoimageJoliet", "genisoimage -quiet -iso-level 2 -J -R", false});
  programs.push_back({"XorrisoLevel1", "xorriso -as mkisofs -iso-level 1", false});
  programs.push_back({"XorrisoJoliet", "xorriso -as mkisofs -iso-level 3 -J -R", false});
  return programs;
}

// The image that a program makes of a folder.
std::string Mastered(const std::string& command, const TempFolder& folder) {
  const ShellEnd end =
      RunShell(command + " -o " + ShellPath(folder.Path("image.iso")) + " " + ShellPath(folder.Path("tree")));
  EXPECT_EQ(end.exit_code, 0) << end.output;
  return folder.Read("image.iso");
}

std::string InCapitals(std::string text) {
  for (char& letter : text) letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
  return text;
}

// Stands for the content of a file, so that the message of a failed comparison stays short.
std::string Digest(const std::string& content) {
  return std::to_string(content.size()) + " bytes, hash " + std::to_string(std::hash<std::string>()(content));
}

// Removes what a level of ISO 9660 adds to a name.
std::string WithoutVersion(std::string name) {
  if (name.ends_with(";1")) name.resize(name.size() - 2);
  if (name.ends_with(".")) name.pop_back();
  return name;
}

// {path in capitals: content} of everything below a folder of the image.
using Contents = std::map<std::string, std::string>;
void Collect(OpenedIso& iso, const VolumeEntry& folder, const std::string& path, Contents& contents) {
  EntryCollector entries;
  ASSERT_EQ(iso.volume.List(folder, entries), VolumeError::kNone) << path;
  for (const auto& [name, entry] : entries.entries) {
    const std::string below = path + InCapitals(WithoutVersion(name));
    contents[below] = entry.is_folder ? "<folder>" : Digest(iso.Read(entry));
    if (entry.is_folder) Collect(iso, entry, below + "/", contents);
  }
}

// Names that every level of ISO 9660 can store.
class EveryProgram : public ::testing::TestWithParam<Program> {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::make_unique<TempFolder>();
    for (const std::size_t size : {0, 1, 2047, 2048, 2049, 100001})
      Add("sizes/s" + std::to_string(size) + ".bin", BytesOfSize(size));
    Add("boot/loader.bin", BytesOfSize(40000));
    Add("boot/scripts/main.cds", "Set A=B\n");
    Add("boot/scripts/noext", "no extension");
    Add("1/2/3/4/5/6/deep.txt", "deep");
    for (int i = 0; i < 300; ++i) Add("folders/f" + std::to_string(i) + "/x.txt", "in folder " + std::to_string(i));
    for (int i = 0; i < 3000; ++i) Add("files/n" + std::to_string(i) + ".txt", "file " + std::to_string(i));
    contents_.erase("BOOT/LOADER.BIN");  // the build hides it
  }
  static void TearDownTestSuite() { folder_.reset(); }

  static void Add(const std::string& path, const std::string& content) {
    folder_->Write("tree/" + path, content);
    for (std::size_t slash = path.find('/'); slash != std::string::npos; slash = path.find('/', slash + 1))
      contents_[InCapitals(path.substr(0, slash))] = "<folder>";
    contents_[InCapitals(path)] = Digest(content);
  }

  // The image that the program makes of all this. It is made once.
  static const std::string& Image() {
    std::string& image = images_[GetParam().name];
    if (image.empty()) image = Mastered(GetParam().command, *folder_);
    return image;
  }

  static inline std::unique_ptr<TempFolder> folder_;
  static inline Contents contents_;
  static inline std::map<std::string, std::string> images_;
};

TEST_P(EveryProgram, Image_HasTheContentThatWasPutIn) {
  for (const std::size_t buffer_sectors : {1, 16}) {
    OpenedIso iso(Image(), buffer_sectors);
    ASSERT_EQ(iso.volume.Open(), VolumeError::kNone);
    VolumeEntry root;
    ASSERT_EQ(iso.volume.Find("", root), VolumeError::kNone);
    Contents found;
    Collect(iso, root, "", found);
    // Where the program shows them, they are no part of the comparison.
    for (const char* path : {"BOOT/LOADER.BIN", "BOOT.CATALOG", "BOOT.CAT"}) found.erase(path);
    EXPECT_TRUE(found == contents_) << found.size() << " entries instead of " << contents_.size();
  }
}

TEST_P(EveryProgram, Paths_AreFoundInAnyCaseAndWithVersion) {
  OpenedIso iso(Image(), 16);
  ASSERT_EQ(iso.volume.Open(), VolumeError::kNone);
  for (const char* path : {"boot/scripts/main.cds", "BOOT\\SCRIPTS\\MAIN.CDS", "Boot/Scripts/Main.cds;1"})
    EXPECT_EQ(iso.ReadPath(path), "Set A=B\n") << path;
  for (const char* path : {"boot/scripts/noext", "boot/scripts/NOEXT.", "boot/scripts/noext;1"})
    EXPECT_EQ(iso.ReadPath(path), "no extension") << path;
  EXPECT_EQ(iso.ReadPath("1/2/3/4/5/6/DEEP.TXT"), "deep");
  for (const int i : {0, 1, 150, 298, 299})
    EXPECT_EQ(iso.ReadPath("folders/F" + std::to_string(i) + "/X.txt"), "in folder " + std::to_string(i));
  for (const int i : {0, 1, 999, 1000, 1777, 2998, 2999})
    EXPECT_EQ(iso.ReadPath("Files\\N" + std::to_string(i) + ".TXT"), "file " + std::to_string(i));
  for (const char* path : {"files/n3000.txt", "folders/f300", "boot/scripts", "sizes/s1.bin/x"})
    EXPECT_NE(iso.ReadPath(path).find("folder"), std::string::npos) << path;
}

std::string NameOf(const ::testing::TestParamInfo<Program>& info) { return info.param.name; }
INSTANTIATE_TEST_SUITE_P(Iso9660, EveryProgram, ::testing::ValuesIn(AllPrograms()), NameOf);

class KeepingProgram : public ::testing::TestWithParam<Program> {
 protected:
  KeepingProgram() { folder_.Write("tree/boot/loader.bin", BytesOfSize(3000)); }

  TempFolder folder_;
};

TEST_P(KeepingProgram, NamesOfAnyKind_AreFoundAsTheyStand) {
  const std::vector<std::string> names = {
      std::string(200, 'n'),  "MixedCase.Txt", ".leading", "two..dots", "with blanks and +,=#(){}&~.txt",
      "\xC3\xA4\xC3\xB6.txt", "trail.",        "trail",    "version;2"};
  for (const std::string& name : names) folder_.Write("tree/folder/" + name, "content of " + name);
  OpenedIso iso(Mastered(GetParam().command, folder_));
  ASSERT_EQ(iso.volume.Open(), VolumeError::kNone);
  for (const std::string& name : names) EXPECT_EQ(iso.ReadPath("Folder\\" + name), "content of " + name) << name;
}

INSTANTIATE_TEST_SUITE_P(Iso9660, KeepingProgram, ::testing::ValuesIn(KeepingPrograms()), NameOf);

// Our own program refuses such names.
TEST(Iso9660Images, NamesThatDifferInCase_AreToldApart) {
  const TempFolder folder;
  for (const char* name : {"case.txt", "CASE.TXT", "Case.txt"}) folder.Write(std::string("tree/") + name, name);
  for (const char* command : {"genisoimage -quiet -iso-level 4", "xorriso -as mkisofs -iso-level 4"}) {
    OpenedIso iso(Mastered(command, folder));
    ASSERT_EQ(iso.volume.Open(), VolumeError::kNone);
    for (const char* name : {"case.txt", "CASE.TXT", "Case.txt"}) EXPECT_EQ(iso.ReadPath(name), name) << command;
  }
}

TEST(Iso9660Images, FilesThatGenisoimageMarksAsHidden_DoNotExist) {
  const TempFolder folder;
  folder.Write("tree/shown", "x");
  folder.Write("tree/secret", "x");
  OpenedIso iso(Mastered("genisoimage -quiet -iso-level 4 -hidden secret", folder));
  ASSERT_EQ(iso.volume.Open(), VolumeError::kNone);
  EXPECT_EQ(iso.ReadPath("shown"), "x");
  EXPECT_EQ(iso.ReadPath("secret"), Words(VolumeError::kNotFound));
}

}  // namespace
}  // namespace discwright::testing
