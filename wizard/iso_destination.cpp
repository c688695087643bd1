// Tries an ISO destination out without leaving a trace.
#include "wizard/iso_destination.h"

#include <algorithm>
#include <memory>
#include <span>
#include <string_view>

#include "host/files.h"
#include "util/paths.h"

namespace discwright::wizard {

namespace {

constexpr std::string_view kProbeLine = "Test\r\n";

// Creating a file through such a link would leave the link's target behind when the link is removed again.
bool IsBrokenLink(const std::string& folder, const std::string& file) {
  const host::Listing listing = host::ListFolder(folder, file);
  return std::any_of(listing.entries.begin(), listing.entries.end(),
                     [](const host::Entry& entry) { return entry.broken; });
}

bool CanCreate(const std::string& path) {
  host::Status status;
  std::unique_ptr<host::BinaryFile> probe = host::OpenBinary(path, host::OpenMode::kCreateEmpty, status);
  if (probe == nullptr) return false;
  const bool written = probe->WriteAt(0, std::as_bytes(std::span(kProbeLine))).ok();
  probe.reset();
  const bool removed = host::RemoveFile(path).ok();
  return written && removed;
}

}  // namespace

// Looking first keeps the probe from emptying a file that exists but cannot be read.
bool IsoDestinationIsCorrect(const std::string& text) {
  if (const auto entry = host::Look(util::NamedFile(text))) return entry->kind == host::EntryKind::kFile;
  if (util::FileExists(text)) return true;  // a wildcard that matches something
  const std::string path = util::StripQuotes(text);
  std::string folder;
  std::string file;
  util::SplitPath(path, folder, file);
  if (folder.empty()) folder.push_back('\\');  // a file of the root folder
  return !file.empty() && util::FolderExists(folder) && !IsBrokenLink(folder, file) && CanCreate(path);
}

}  // namespace discwright::wizard
