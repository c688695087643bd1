// Explains why a page refused a location.
#include "wizard/causes.h"

#include <span>
#include <string_view>

#include "host/files.h"
#include "host/names.h"
#include "util/paths.h"
#include "wizard/known_files.h"

namespace discwright::wizard {

namespace {

// Returns why nothing usable was found at the path `text`. `status` is the failure of looking there.
std::string WhyNotFound(const std::string& text, const std::string& wanted, const host::Status& status) {
  if (util::Trim(text).empty()) return "The field is empty: enter " + wanted + ".";
  if (text.starts_with('"') || text.ends_with('"')) {
    return text + " has quotation marks, which count as part of the name: leave them out.";
  }
  if (text.starts_with('~')) return text + " begins with \"~\", which is not expanded: write the whole path.";
  if (status.error == host::ErrorClass::kNotFound) return host::PathToNative(text) + " does not exist.";
  return host::PathToNative(text) + " cannot be read: " + status.cause + ".";
}

// Returns why the text is not the path of a folder that contains something; empty if it is.
std::string WhyNotUsable(const std::string& text) {
  const host::Result<host::Entry> entry = host::Look(text);
  if (!entry.ok()) return WhyNotFound(text, "a folder", entry.status);
  if (entry.value.kind != host::EntryKind::kFolder) return host::PathToNative(text) + " is a file: enter a folder.";
  const host::Listing listing = host::ListFolder(text, "*.*");
  if (!listing.status.ok()) return host::PathToNative(text) + " cannot be read: " + listing.status.cause + ".";
  return listing.value.empty() ? host::PathToNative(text) + " is empty." : "";
}

std::string Below(const std::string& folder, std::string_view name) {
  std::string path = folder;
  util::AddBackslash(path);
  return path.append(name);
}

std::string LacksFile(const std::string& text, const char* file) {
  return "There is no file " + host::PathToNative(Below(text, std::string_view(file).substr(1))) + ".";
}

// Returns why `text` is not the folder of the setup files. On a setup CD this folder is in the root and has one of the
// `names`.
std::string WhyNoSetupFolder(const std::string& text, const char* file, std::span<const char* const> names) {
  if (std::string why = WhyNotUsable(text); !why.empty()) return why;
  for (const char* name : names) {
    const std::string folder = Below(text, name);
    if (!util::FileExists(folder + file)) continue;
    return host::PathToNative(text) + " is the root of the CD: did you mean " + host::PathToNative(folder) + "?";
  }
  return LacksFile(text, file);
}

std::string WhyNoToolCd(const std::string& text, const char* file) {
  if (std::string why = WhyNotUsable(text); !why.empty()) return why;
  const std::string parent = util::ParentOf(text);
  if (util::FileExists(parent + file)) {
    // Without the separator, a drive such as "D:" would mean the current folder of that drive and not its root.
    return host::PathToNative(text) + " is a folder of the CD: did you mean its root, " +
           host::PathToNative(parent + "\\") + "?";
  }
  return LacksFile(text, file);
}

constexpr const char* kWin2KFolders[] = {"I386"};
constexpr const char* kWin9xFolders[] = {"WIN98", "WIN9X", "WINME", "WIN98SE"};

}  // namespace

std::string WhyNoFolder(const std::string& text) {
  std::string why = WhyNotUsable(text);
  return why.empty() ? host::PathToNative(text) + " cannot be used as a folder." : why;
}

std::string WhyNoServicePack(const std::string& text) {
  const std::string file = util::NamedFile(text);
  const host::Result<host::Entry> entry = host::Look(file);
  if (!entry.ok()) return WhyNotFound(file, "the file of the service pack", entry.status);
  if (entry.value.kind != host::EntryKind::kFile) {
    return host::PathToNative(file) + " is not a file: enter the path of the installer.";
  }
  const host::Status status = host::OpenBinary(file, host::OpenMode::kRead).status;
  return host::PathToNative(file) + " cannot be read: " + status.cause + ".";
}

std::string WhyNoWin2KSource(const std::string& text) { return WhyNoSetupFolder(text, kWin2KFile, kWin2KFolders); }
std::string WhyNoWin9xSource(const std::string& text) { return WhyNoSetupFolder(text, kWin9xFile, kWin9xFolders); }
std::string WhyNoErdCommander(const std::string& text) { return WhyNoToolCd(text, kErdCommanderFile); }
std::string WhyNoBlueCon(const std::string& text) { return WhyNoToolCd(text, kBlueConFiles); }

}  // namespace discwright::wizard
