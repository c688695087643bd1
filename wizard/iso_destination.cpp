// Tests whether the ISO file can be created, with a test file beside it.
#include "wizard/iso_destination.h"

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <string_view>

#include "base/paths.h"
#include "base/temporary_names.h"
#include "host/files.h"
#include "host/names.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::wizard {

namespace {

constexpr std::string_view kTestLine = "Test\r\n";

// The image would replace the link, and the user would look for it at the target.
bool IsBrokenLink(const std::string& folder, const std::string& file) {
  const host::Listing listing = host::ListFolder(folder, file);
  return std::any_of(listing.value.begin(), listing.value.end(), [](const host::Entry& entry) { return entry.broken; });
}

// The test file does not have the image's own name: if the program is killed here, no file of six bytes must be taken
// for an image. It has the same characters in its name, so that one which the disk cannot hold is noticed. The next run
// deletes what is left of it.
host::Status TryToCreate(const std::string& path) {
  host::Status named = host::OpenBinary(path, host::OpenMode::kRead).status;
  if (named.error != host::ErrorClass::kNotFound) return named;  // for example a name that is too long
  const std::string test_path = base::SiblingOf(path, base::TestName(base::NameOf(path)));
  auto test_file = host::OpenBinary(test_path, host::OpenMode::kCreateEmpty);
  if (!test_file.ok()) return test_file.status;
  const host::Status status = test_file.value->WriteAt(0, std::as_bytes(std::span(kTestLine)));
  test_file.value.reset();  // closes the file
  const host::Status removed = host::RemoveFile(test_path);
  // Another run that tests the same name may have deleted it.
  return status.ok() && removed.error != host::ErrorClass::kNotFound ? removed : status;
}

std::string WhyNoFolderFor(const std::string& path, const std::string& folder) {
  if (path.starts_with('~')) return path + " begins with \"~\", which is not expanded: write the whole path.";
  const std::string shown = host::PathToNative(folder);
  const host::Result<host::Entry> entry = host::Look(folder);
  if (entry.status.error == host::ErrorClass::kNotFound) {
    return "The folder " + shown + " does not exist: create it, or choose another place for the image.";
  }
  if (entry.ok() && entry.value.kind != host::EntryKind::kFolder) {
    return shown + " is not a folder: choose another place for the image.";
  }
  const std::string cause = entry.ok() ? host::ListFolder(folder, "*.*").status.cause : entry.status.cause;
  return shown + " cannot be read: " + cause + ". Choose another place for the image.";
}

std::string WhyNotCreated(const std::string& path) {
  std::string folder;
  std::string file;
  util::SplitPath(path, folder, file);
  if (folder.empty()) folder.push_back('\\');  // the file is in the root folder
  const std::string shown = host::PathToNative(path);
  if (file.empty()) return shown + " is a folder: add the name of the image.";
  if (!util::FolderExists(folder)) return WhyNoFolderFor(path, folder);
  if (IsBrokenLink(folder, file)) {
    return shown + " is a link whose target is missing: remove it, or choose another name.";
  }
  const host::Status status = TryToCreate(path);
  return status.ok() ? "" : shown + " cannot be written: " + status.cause + ".";
}

// Whether the program needs this file: it ships with the program, or the program keeps choices or answers in it.
bool IsOfTheProgram(const std::string& path) {
  return std::any_of(util::kProgramFolder.begin(), util::kProgramFolder.end(),
                     [&](const util::FolderItem& row) { return util::IsOneFile(path, util::PathOf(row.item)); });
}

}  // namespace

// The path is examined first, so that the test never opens, and thereby empties, an existing file that cannot be read.
std::string WhyNoIsoDestination(const std::string& text) {
  if (util::StripQuotes(text).empty()) return "The field is empty: enter the path of the image.";
  const std::string shown = host::PathToNative(util::NamedFile(text));
  if (IsOfTheProgram(util::NamedFile(text))) return shown + " is a file that the program needs: choose another name.";
  const host::Result<host::Entry> entry = host::Look(util::NamedFile(text));
  if (entry.ok()) {
    if (entry.value.kind == host::EntryKind::kFile) return "";
    if (entry.value.kind == host::EntryKind::kFolder) return shown + " is a folder: add the name of the image.";
    return shown + " is a device or a pipe: choose another name.";
  }
  if (util::FileExists(text)) return "";  // true here only for a wildcard that matches a file or folder
  if (entry.status.error == host::ErrorClass::kNotFound) return WhyNotCreated(util::StripQuotes(text));
  return shown + " cannot be examined: " + entry.status.cause + ". Choose another place for the image.";
}

bool HoldsSomethingElse(const std::string& text) {
  constexpr std::int64_t kMarkAt = std::int64_t{16} * 2048 + 1;
  constexpr std::string_view kMark = "CD001";
  const std::string path = util::NamedFile(text);
  const host::Result<host::Entry> entry = host::Look(path);
  // A file that cannot be looked at is refused by WhyNoIsoDestination.
  if (!entry.ok() || entry.value.kind != host::EntryKind::kFile || entry.value.size == 0) return false;
  const auto file = host::OpenBinary(path, host::OpenMode::kRead);
  std::array<char, kMark.size()> mark{};
  const bool has_mark = file.ok() && entry.value.size >= kMarkAt + static_cast<std::int64_t>(mark.size()) &&
                        file.value->ReadAt(kMarkAt, std::as_writable_bytes(std::span(mark))).ok() &&
                        std::string_view(mark.data(), mark.size()) == kMark;
  return !has_mark;
}

}  // namespace discwright::wizard
