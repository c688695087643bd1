// Tests that the disc has the files of the chosen folders byte for byte, and that the build reports all others.
#include <sys/stat.h>
#include <sys/time.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <random>

#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

namespace {

class CopiedTrees : public BuildTest {
 protected:
  const fs::path utilities = place / "my utilities";
  const fs::path additional = place / "additional";

  // Runs a build with utilities, one of which cannot be stored on the disc.
  Outcome BuildWithWarnings() const {
    Outcome outcome = Build(Utilities(utilities));
    EXPECT_EQ(outcome.exit_code, 4) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr(image.string()));
    return outcome;
  }
  Contents Vexa() const { return WithoutTimes(Below(ReadWithBsdtar(image), "vexa")); }
};

void ExpectWarning(const Outcome& outcome, const fs::path& place, const std::string& cause) {
  EXPECT_THAT(LinesWith(outcome.err, "warning: " + place.string() + ": "), SizeIs(1)) << outcome.err;
  EXPECT_THAT(outcome.err, HasSubstr(cause));
}

void ExpectOneWarning(const Outcome& outcome, const fs::path& place, const std::string& cause) {
  ExpectWarning(outcome, place, cause);
  EXPECT_THAT(LinesWith(outcome.err, "with 1 warning "), SizeIs(1)) << outcome.err;
}

constexpr std::array kOddNames = {
    "with blanks in it.txt",
    "  blanks at both ends  ",
    "Übergröße.txt",
    "日本語.txt",
    "\xFC is Latin-1.txt",
    ".hidden file",
    "..two dots",
    "it's \"quoted\" `ticked` $HOME ${HOME} $(id) %PATH% & more; #1.txt",
    "comma, plus+ equal= tilde~1 (round) [square] {curly} at@ caret^ bang!.txt",
    "star* question?.txt",
    "less< greater> pipe| colon:.txt",
    "-output",
    "line\nbreak.txt",
    "back\\slash.txt",
    "back\uF05Cslash.txt",
    "back\uF05D\uF05Cslash.txt",
    "back\\\uF05C\\slash.txt",
    "several.dots.in.it.tar.gz",
    "no extension",
    "MiXeD CaSe.TxT",
};

void SetTime(const fs::path& file, std::int64_t seconds) {
  const timeval time{seconds, 0};
  const std::array<timeval, 2> times{time, time};
  ASSERT_EQ(utimes(file.c_str(), times.data()), 0) << file;
}

// Makes files with content that depends on their number only, so that it is the same on every machine.
class TreeMaker {
 public:
  TreeMaker(fs::path root, unsigned number) : root_(std::move(root)), random_(number) {}

  void MakeFiles(int folders, int files_each) {
    for (int folder = 0; folder < folders; ++folder) {
      for (int file = 0; file < files_each; ++file) {
        const std::string name = "file " + std::to_string(file) + (file % 7 == 0 ? ".TXT" : ".dat");
        Make(FolderName(folder) / name, file % 25 == 0 ? 0 : random_() % 4000);
      }
    }
  }

  void MakeOddOnes() {
    for (const char* name : kOddNames) {
      Make(fs::path("odd names") / name, 100 + random_() % 100);
      Make(fs::path("odd folders") / (std::string("in ") + name + " folder ") / name, 100);
    }
    Make(std::string(196, 'n') + ".txt", 200);
    Make(std::string(203, 'n') + ".txt", 207);  // the longest name that a disc can hold
    for (const char* folder : {"empty", "nested/empty", "nested/empty too/and deeper"}) {
      fs::create_directories(root_ / folder);
    }
    Make("a/b/c/d/e/f/g/h/i/j/eleven folders deep.txt", 10);
  }

  void MakeFileOfSeveralPieces() { Make("larger than one piece of the copy.bin", 17 * 1024 * 1024); }

 private:
  static fs::path FolderName(int number) {
    const fs::path folder = "Set " + std::to_string(number / 10);
    return number % 10 == 0 ? folder : folder / ("Größe " + std::to_string(number % 10));
  }

  void Make(const fs::path& name, std::size_t size) {
    std::string content(size, '\0');
    const unsigned first = static_cast<unsigned>(random_());
    for (std::size_t i = 0; i < size; ++i) content[i] = static_cast<char>((first + i * i / 7) & 0xFFu);
    WriteFile(root_ / name, content);
    SetTime(root_ / name, 946684800 + static_cast<std::int64_t>(random_() % 800000000));
    if (random_() % 5 == 0) fs::permissions(root_ / name, fs::perms::owner_read);
  }

  fs::path root_;
  std::mt19937 random_;
};

// Removes the folders that do not come from the additional files.
Contents WithoutOwnFolders(Contents contents) {
  std::erase_if(contents, [](const auto& entry) {
    return entry.first == "boot" || entry.first == "vexa" || entry.first.starts_with("boot/") ||
           entry.first.starts_with("vexa/");
  });
  return contents;
}

void ExpectOnDisc(const Contents& disc, const Contents& utilities, const Contents& additional) {
  EXPECT_EQ(Difference(utilities, Below(disc, "vexa")), "");
  EXPECT_EQ(Difference(additional, WithoutOwnFolders(disc)), "");
}

// Compares the contents of all files without their names, and then the files with ASCII names, which no reader changes.
void ExpectSameByContent(const Contents& expected, const Contents& actual) {
  std::vector<Content> expected_contents;
  std::vector<Content> actual_contents;
  for (const auto& [name, content] : expected) expected_contents.push_back(content);
  for (const auto& [name, content] : actual) actual_contents.push_back(content);
  std::sort(expected_contents.begin(), expected_contents.end());
  std::sort(actual_contents.begin(), actual_contents.end());
  EXPECT_TRUE(expected_contents == actual_contents);
  const Contents ascii = WithAsciiNames(expected);
  Contents same_names = actual;
  std::erase_if(same_names, [&](const auto& entry) { return !ascii.contains(entry.first); });
  EXPECT_EQ(Difference(ascii, same_names), "");
}

void ExpectOnDiscByContent(const Contents& disc, const Contents& utilities, const Contents& additional) {
  ExpectSameByContent(utilities, Below(disc, "vexa"));
  ExpectSameByContent(additional, WithoutOwnFolders(disc));
}

// Expects that the listing of a third reader, isoinfo, has every name.
void ExpectListed(const fs::path& image, const Contents& contents) {
  const std::string listing = RunProgram({"isoinfo", "-l", "-i", image.string()}).out;
  for (const auto& [path, content] : contents) {
    const std::string name = fs::path(path).filename().string();
    ASSERT_THAT(listing, HasSubstr("]  " + name)) << path;
  }
}

}  // namespace

TEST_F(CopiedTrees, FolderThatMayBeListedButNotSearched_IsNeverLostInSilence) {
  WriteFile(utilities / "a.txt", "content");
  WriteFile(utilities / "sub/file.txt", "content");
  fs::permissions(utilities / "sub", fs::perms::owner_read | fs::perms::owner_write);
  const Outcome outcome = Build(Utilities(utilities), {.obeys_permissions = true});
  EXPECT_EQ(outcome.exit_code, 4) << outcome.err;
  ExpectOneWarning(outcome, utilities / "sub/file.txt", "could not be copied: Permission denied");
  fs::permissions(utilities / "sub", fs::perms::owner_all);
}

TEST_F(CopiedTrees, ChosenFolderThatMayBeListedButNotSearched_IsNeverLostInSilence) {
  WriteFile(utilities / "file.txt", "content");
  fs::permissions(utilities, fs::perms::owner_read | fs::perms::owner_write);
  const Outcome outcome = Build(Utilities(utilities), {.obeys_permissions = true});
  EXPECT_EQ(outcome.exit_code, 4) << outcome.err;
  ExpectOneWarning(outcome, utilities / "file.txt", "nothing was copied");
  EXPECT_THAT(outcome.err, HasSubstr("Permission denied"));
  fs::permissions(utilities, fs::perms::owner_all);
}

TEST_F(CopiedTrees, FiveThousandFilesWithOddNames_AreOnTheDiscByteForByte) {
  TreeMaker(utilities, 1).MakeFiles(90, 50);
  TreeMaker(utilities, 2).MakeOddOnes();
  TreeMaker(utilities, 5).MakeFileOfSeveralPieces();
  TreeMaker(additional, 3).MakeFiles(9, 50);
  TreeMaker(additional, 4).MakeOddOnes();
  const auto utilities_before = Fingerprint(utilities);
  const auto additional_before = Fingerprint(additional);
  ASSERT_GT(utilities_before.size() + additional_before.size(), 5000U);

  const Outcome outcome = Build(Join(Utilities(utilities), AdditionalFiles(additional)));

  ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_THAT(outcome.err, Not(HasSubstr("warning")));
  const Contents utilities_tree = ContentsOf(utilities);
  const Contents additional_tree = ContentsOf(additional);
  ExpectOnDisc(ReadWithBsdtar(image), utilities_tree, additional_tree);
  ExpectOnDiscByContent(ReadWithXorriso(image), utilities_tree, additional_tree);
  ExpectListed(image, Below(utilities_tree, "odd names"));
  EXPECT_EQ(Fingerprint(utilities), utilities_before);
  EXPECT_EQ(Fingerprint(additional), additional_before);
}

TEST_F(CopiedTrees, TemplateAndBootDisks_AreOnTheDisc) {
  ASSERT_EQ(Build().exit_code, 0);
  Contents expected = ContentsOf(program / "files" / "vexacd");
  expected.erase("boot/loader.bin");  // stored, but in no directory
  const Contents disc = ReadWithBsdtar(image);
  for (const char* disk : {"vexastart.img", "vexaemm.img", "vexanet.img"}) {
    const std::string name = "boot/images/" + std::string(disk);
    ASSERT_TRUE(disc.contains(name)) << name;
    expected[name] = disc.at(name);
  }
  expected["boot/images"] = {true, 0, 0, 0};
  EXPECT_EQ(Difference(expected, disc), "");
}

TEST_F(CopiedTrees, LinksToFilesAndFolders_AreOnTheDiscAsWhatTheyLeadTo) {
  WriteFile(place / "elsewhere" / "inside.txt", "inside");
  WriteFile(utilities / "real.txt", "real");
  fs::create_symlink("real.txt", utilities / "link.txt");
  fs::create_directory_symlink(place / "elsewhere", utilities / "linked folder");
  const Outcome outcome = Build(Utilities(utilities));
  ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  const Contents disc = Below(ReadWithBsdtar(image), "vexa");
  ASSERT_THAT(disc, SizeIs(4));
  EXPECT_EQ(disc.at("link.txt"), disc.at("real.txt"));
  EXPECT_EQ(disc.at("linked folder/inside.txt"), ContentsOf(place / "elsewhere").at("inside.txt"));
}

TEST_F(CopiedTrees, FolderWhoseNameBeginsWithADot_IsLeftOutWithAWarning) {
  WriteFile(utilities / ".hidden" / "in hidden.txt", "hidden");
  WriteFile(utilities / "visible.txt", "visible");
  const Outcome outcome = BuildWithWarnings();
  ExpectOneWarning(outcome, utilities / ".hidden", "begin with a dot are skipped");
  ASSERT_THAT(Vexa(), SizeIs(1));
  EXPECT_TRUE(Vexa().contains("visible.txt"));
}

TEST_F(CopiedTrees, Pipe_IsLeftOutWithAWarningAndNeverOpened) {
  WriteFile(utilities / "a.txt", "a");
  ASSERT_EQ(mkfifo((utilities / "pipe").c_str(), 0600), 0);
  WriteFile(utilities / "z.txt", "z");
  const Outcome outcome = BuildWithWarnings();
  ExpectOneWarning(outcome, utilities / "pipe", "it is a device, a socket or a pipe");
  EXPECT_THAT(Vexa(), SizeIs(2));
}

TEST_F(CopiedTrees, LinkToAPipe_IsLeftOutWithAWarning) {
  WriteFile(utilities / "a.txt", "a");
  ASSERT_EQ(mkfifo((place / "pipe").c_str(), 0600), 0);
  fs::create_symlink(place / "pipe", utilities / "link");
  ExpectOneWarning(BuildWithWarnings(), utilities / "link", "it is a device, a socket or a pipe");
}

TEST_F(CopiedTrees, LinkWithoutTarget_StopsTheCopyWithAWarning) {
  WriteFile(utilities / "a.txt", "a");
  fs::create_symlink("missing", utilities / "link");
  WriteFile(utilities / "z.txt", "z");
  const Outcome outcome = BuildWithWarnings();
  ExpectOneWarning(outcome, utilities / "link", "it is a link whose target is missing");
  EXPECT_THAT(outcome.err, HasSubstr("the rest of this folder and of the folders above it was not copied"));
  EXPECT_THAT(Vexa(), SizeIs(1));
}

TEST_F(CopiedTrees, LinkToItsOwnParent_StopsTheCopyWithAWarning) {
  WriteFile(utilities / "folder" / "a.txt", "a");
  fs::create_directory_symlink("..", utilities / "folder" / "up");
  ExpectOneWarning(BuildWithWarnings(), utilities / "folder" / "up", "a link back to one of its own parent folders");
  EXPECT_THAT(Vexa(), SizeIs(2));
}

TEST_F(CopiedTrees, LinksToEachOther_StopTheCopyWithAWarning) {
  WriteFile(utilities / "a.txt", "a");
  fs::create_symlink("second", utilities / "first");
  fs::create_symlink("first", utilities / "second");
  ExpectOneWarning(BuildWithWarnings(), utilities / "first", "could not be copied: Too many levels of symbolic links");
}

TEST_F(CopiedTrees, NamesThatDifferInLetterCaseOnly_OnlyTheFirstIsThereWithAWarningForTheOther) {
  WriteFile(utilities / "README", "one");
  WriteFile(utilities / "readme", "another");
  WriteFile(utilities / "z.txt", "z");
  ExpectOneWarning(BuildWithWarnings(), utilities / "readme", "differs from it only in letter case");
  Contents expected = WithoutTimes(ContentsOf(utilities));
  expected.erase("readme");
  EXPECT_EQ(Difference(expected, Vexa()), "");
}

TEST_F(CopiedTrees, ProgramFolderBelowTheChosenFolder_WorkspaceIsNotCopiedIntoItself) {
  WriteFile(utilities / "a.txt", "a");
  const Outcome outcome = Build(Utilities(place.path()));
  EXPECT_EQ(outcome.exit_code, 4) << outcome.err;
  ExpectWarning(outcome, program / "vexacd" / "vexa", "it is the destination of the copy");
  const Contents disc = Vexa();
  EXPECT_TRUE(disc.contains("my utilities/a.txt"));
  EXPECT_TRUE(disc.contains("program/vexacd/boot"));
  EXPECT_FALSE(disc.contains("program/vexacd/vexa"));
}

TEST_F(CopiedTrees, LinkToTheProgramFolder_WorkspaceIsNotCopiedIntoItself) {
  WriteFile(utilities / "a.txt", "a");
  fs::create_directory_symlink(program.folder(), utilities / "link");
  const fs::path workspace = utilities / "link" / "vexacd" / "vexa";
  ExpectWarning(BuildWithWarnings(), workspace, "it is the destination of the copy");
  EXPECT_TRUE(Vexa().contains("link/vexacd/boot"));
}

TEST_F(CopiedTrees, UtilitiesAndAdditionalFilesThatFail_AreBothReported) {
  WriteFile(utilities / ".hidden" / "a.txt", "a");
  WriteFile(utilities / "b.txt", "b");
  WriteFile(additional / ".also hidden" / "c.txt", "c");
  WriteFile(additional / "d.txt", "d");
  const Outcome outcome = Build(Join(Utilities(utilities), AdditionalFiles(additional)));
  EXPECT_EQ(outcome.exit_code, 4);
  EXPECT_THAT(outcome.err, HasSubstr("warning: " + (utilities / ".hidden").string() + ": "));
  EXPECT_THAT(outcome.err, HasSubstr("warning: " + (additional / ".also hidden").string() + ": "));
  EXPECT_THAT(outcome.err, HasSubstr("The image was made, with 2 warnings (see above)."));
}

TEST_F(CopiedTrees, FolderOfEmptyFiles_IsReportedAsNotCopied) {
  WriteFile(utilities / "empty.txt", "");
  ExpectOneWarning(BuildWithWarnings(), utilities,
                   "this folder contains only empty files, or names that begin with a dot");
}

TEST_F(CopiedTrees, FolderGivenInAnotherLetterCase_IsFound) {
  WriteFile(utilities / "a.txt", "a");
  std::string other_case = utilities.string();
  std::transform(other_case.begin(), other_case.end(), other_case.begin(), ::toupper);
  ASSERT_FALSE(fs::exists(other_case));
  const Outcome outcome = Build(Utilities(other_case));
  ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_EQ(Difference(WithoutTimes(ContentsOf(utilities)), Vexa()), "");
}

}  // namespace discwright::testing
