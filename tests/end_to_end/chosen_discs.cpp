// Makes the discs, chooses them, and compares the tree of the CD with the expected one.
#include "tests/end_to_end/chosen_discs.h"

#include "tests/end_to_end/trees.h"

namespace discwright::testing {

namespace {

Disc Xp() { return WindowsXpDisc(Edition::kProfessional, 2); }

const Disc kUtilities = {{"probe.exe", "MZ probe of i386"}, {"Docs/read me.txt", "I386"}};

// The files of a tool as the CD must have them: its folder renamed, two files patched, the others unchanged.
Disc Patched(Disc disc, const std::string& folder, const std::string& lower_case, bool upper_case_too) {
  std::string& loader = disc["I386/SETUPLDR.BIN"];
  loader = Replaced(loader, "i386", lower_case);
  if (upper_case_too) loader = Replaced(loader, "I386", lower_case);
  std::string& script = disc["I386/TXTSETUP.SIF"];
  script = Replaced(script, "i386", lower_case);
  return Renamed(disc, "I386", folder);
}

// Adds `files` to `tree`, below `folder`. A file that is there already is replaced.
void Add(Disc& tree, const Disc& files, const std::string& folder = "") {
  for (const auto& [path, bytes] : files) tree[folder + path] = bytes;
}

Disc ExpectedTree(const fs::path& program) {
  Disc tree;
  const Disc xp = Xp();
  Add(tree, FilesBelow(xp, "I386"), "I386/");
  for (const auto& [path, bytes] : xp) {
    if (path.starts_with("WIN51")) tree[path] = bytes;
  }
  Add(tree, Windows98Disc(), "WIN98/");
  Add(tree, Patched(ErdCommanderDisc(), "ERDC", "erdc", true));
  Add(tree, Patched(BlueConDisc(), "OOBC", "oobc", false));
  Add(tree, kUtilities, "vexa/");
  const std::string sector = ReadFile(program / "files" / "bootsect" / "w2ksect.bin");
  tree["boot/images/w2ksect.bin"] = sector;
  tree["boot/images/erdc.bin"] = Replaced(sector, "I386", "ERDC");
  tree["boot/images/oobc.bin"] = Replaced(sector, "I386", "OOBC");
  for (const char* image : {"vexastart.img", "vexaemm.img", "vexawin.img", "vexanet.img"}) {
    tree[std::string("boot/images/") + image] = ReadFile(program / "vexacd" / "boot" / "images" / image);
  }
  for (const char* name : {"memdisk", "memdisk.txt", "gpl-2.txt"}) {
    tree[std::string("boot/") + name] = ReadFile(program / "files" / "vexacd" / "boot" / name);
  }
  tree["boot/scripts/main.cds"] = ReadFile(program / "vexacd" / "boot" / "scripts" / "main.cds");
  return tree;
}

std::string AsItIs(const fs::path& path) { return path.string(); }

}  // namespace

void ChosenDiscs::Insert(Shown names) const {
  names_ = names;
  testing::Insert(Xp(), folder_ / "xp", names);
  testing::Insert(Windows98Disc(), folder_ / "98", names);
  testing::Insert(ErdCommanderDisc(), folder_ / "erd", names);
  testing::Insert(BlueConDisc(), folder_ / "oobc", names);
  testing::Insert(kUtilities, folder_ / "utilities", Shown::kUpperCase);
  Remember();
}

void ChosenDiscs::Remember() const { fingerprint_ = Fingerprint(folder_); }

std::vector<std::string> ChosenDiscs::Choices(std::string (*path)(const fs::path&)) const {
  if (path == nullptr) path = AsItIs;
  std::vector<std::string> choices;
  for (const char* choice : {"ChkGet_Win2k", "ChkGet_Win9x", "ChkGet_Advtools", "ChkERDC", "ChkBCon", "ChkVexaUtils"}) {
    choices.insert(choices.end(), {"--set", std::string(choice) + "=1"});
  }
  const std::map<std::string, fs::path> locations = {
      {"Txt_i386_Loc", folder_ / "xp" / (names_ == Shown::kUpperCase ? "I386" : "i386")},
      {"TxtWin9x_Loc", folder_ / "98"},
      {"TxtERDC", folder_ / "erd"},
      {"TxtBCon", folder_ / "oobc"},
      {"TxtUtils_Loc", folder_ / "utilities"}};
  for (const auto& [control, location] : locations) {
    choices.insert(choices.end(), {"--set", control + "=" + path(location)});
  }
  return choices;
}

std::string ChosenDiscs::DifferenceToImage(const fs::path& image, const fs::path& program) const {
  const TemporaryFolder expected;
  Unpack(ExpectedTree(program), expected.path());
  return Difference(WithoutTimes(ContentsOf(expected.path())), WithoutTimes(ReadWithBsdtar(image)));
}

}  // namespace discwright::testing
