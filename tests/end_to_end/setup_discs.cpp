// Makes the files of the synthetic discs.
#include "tests/end_to_end/setup_discs.h"

#include <algorithm>
#include <cctype>
#include <chrono>

#include "tests/boot/setup_loader.h"
#include "tests/end_to_end/trees.h"

namespace discwright::testing {

namespace {

std::string Cabinet(const std::string& name, std::size_t size) {
  std::string bytes = "MSCF" + std::string(4, '\0') + name;
  while (bytes.size() < size) bytes += static_cast<char>('A' + bytes.size() % 53);
  return bytes;
}

// The setup folder of a disc of the NT family. More files name the folder than the build patches.
Disc SetupFolderOfNt() {
  return {
      {"I386/SETUPLDR.BIN", SetupLoader()},
      {"I386/TXTSETUP.SIF", "[SetupData]\r\nSetupSourcePath = \\i386\r\n; the same in capitals: \\I386\r\n"},
      {"I386/DOSNET.INF", "[Directories]\r\nd1 = \\i386\r\n[Files]\r\nd1,SETUPLDR.BIN\r\n"},
      {"I386/NTDETECT.COM", std::string("\xE9\x00\x00 i386 I386", 13)},
      {"I386/DRIVER.CAB", Cabinet("driver.sys of i386", 70'000)},
      {"I386/EMPTY.TXT", ""},
      {"I386/SYSTEM32/NTDLL.DLL", std::string("MZ\x90\x00", 4) + "i386"},
      {"I386/SYSTEM32/CONFIG/DEFAULT", std::string("regf\x00\x01", 6)},
      {"I386/WINNTUPG/NT40.INF", "[Version]\r\n"},
  };
}

Disc WindowsNt(const std::string& product) {
  Disc disc = SetupFolderOfNt();
  disc["I386/LANG/KOR/GULIM.TT_"] = Cabinet("gulim.ttc", 9'000);
  disc["I386/LANG/JPN/MSGOTHIC.TT_"] = Cabinet("msgothic.ttc", 8'000);
  disc["I386/" + product + ".CAT"] = "catalogue of " + product;
  disc["AUTORUN.INF"] = "[AutoRun]\r\nopen=SETUP.EXE\r\n";
  disc["SETUP.EXE"] = "MZ setup";
  disc["README.HTM"] = "<html>i386</html>";
  disc["SUPPORT/TOOLS/SETUP.EXE"] = "MZ support";
  return disc;
}

Disc WithBaseCabinets(Disc disc, int first, int last) {
  for (int number = first; number <= last; ++number) {
    const std::string name = "BASE" + std::to_string(number) + ".CAB";
    disc[name] = Cabinet(name, 3'000 + static_cast<std::size_t>(number));
  }
  return disc;
}

Disc Windows9x() {
  return {
      {"SETUP.EXE", "MZ setup"},     {"MINI.CAB", Cabinet("mini", 5'000)}, {"PRECOPY1.CAB", Cabinet("precopy1", 5'000)},
      {"EXTRACT.EXE", "MZ extract"}, {"SETUPTIP.TXT", "tip\r\n"},          {"OEMINFO/OEM.TXT", "oem"}};
}

std::string InLowerCase(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(), [](unsigned char letter) { return std::tolower(letter); });
  return name;
}

}  // namespace

Disc Windows2000Disc(int service_pack) {
  Disc disc = WindowsNt("NT5");
  disc["CDROM_IP.5"] = "Windows 2000 Professional\r\n";
  disc["CDROM_NT.5"] = "Windows 2000\r\n";
  for (int level = 1; level <= service_pack; ++level) {
    disc[level == 1 ? "CDROM_SP.TST" : "CDROMSP" + std::to_string(level) + ".TST"] = "service pack\r\n";
  }
  return disc;
}

Disc WindowsXpDisc(Edition edition, int service_pack) {
  Disc disc = WindowsNt("NT51");
  const std::string tag = edition == Edition::kHome ? "WIN51IC" : "WIN51IP";
  disc["WIN51"] = "Windows\r\n";
  disc[tag] = "Windows\r\n";
  for (int level = 1; level <= service_pack; ++level) disc[tag + ".SP" + std::to_string(level)] = "service pack\r\n";
  return disc;
}

Disc Windows98Disc() { return WithBaseCabinets(Windows9x(), 4, 6); }
Disc WindowsMeDisc() { return WithBaseCabinets(Windows9x(), 2, 3); }

Disc ErdCommanderDisc() {
  Disc disc = SetupFolderOfNt();
  disc["I386/SYSTEM32/CONFIG/SOFTWARE"] = "regf, the tool's own registry, i386";
  disc["I386/SYSTEM32/ERDCMDR.EXE"] = "MZ commander";
  disc["WIN51"] = "a tag file of the tool";
  disc["AUTORUN.INF"] = "[AutoRun]\r\nicon=erd.ico\r\n";
  return disc;
}

Disc BlueConDisc() {
  Disc disc = SetupFolderOfNt();
  disc["I386/SYSTEM32/OOBC.EXE"] = "MZ console";
  disc["I386/SYSTEM32/OOBCRES.DLL"] = "MZ resources, i386";
  disc["AUTORUN.INF"] = "[AutoRun]\r\nicon=oobc.ico\r\n";
  disc["DOC/MANUAL.PDF"] = "%PDF";
  return disc;
}

void Insert(const Disc& disc, const fs::path& folder, Shown names) {
  using namespace std::chrono_literals;
  const auto old =
      fs::file_time_type::clock::from_sys(std::chrono::sys_seconds(std::chrono::sys_days(1999y / 12 / 7) + 12h));
  for (const auto& [name, bytes] : disc) {
    const fs::path file = folder / (names == Shown::kLowerCase ? InLowerCase(name) : name);
    WriteFile(file, bytes);
    fs::last_write_time(file, old);
    fs::permissions(file, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  }
}

void Unpack(const Disc& disc, const fs::path& folder) {
  for (const auto& [name, bytes] : disc) WriteFile(folder / name, bytes);
}

Disc Renamed(const Disc& disc, const std::string& folder, const std::string& name) {
  Disc renamed;
  for (const auto& [path, bytes] : disc) {
    renamed[path.starts_with(folder + "/") ? name + path.substr(folder.size()) : path] = bytes;
  }
  return renamed;
}

Disc FilesBelow(const Disc& disc, const std::string& folder) {
  Disc below;
  for (const auto& [path, bytes] : disc) {
    if (path.starts_with(folder + "/")) below[path.substr(folder.size() + 1)] = bytes;
  }
  return below;
}

std::string Replaced(std::string text, const std::string& find, const std::string& replace) {
  for (std::size_t place = text.find(find); place != std::string::npos;
       place = text.find(find, place + replace.size())) {
    text.replace(place, find.size(), replace);
  }
  return text;
}

}  // namespace discwright::testing
