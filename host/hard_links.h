// Hard links: which names are one file already, and giving a file one more name. Paths are spelled exactly as listings
// gave them; letter case is not looked up here.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/files.h"
#include "host/status.h"

namespace discwright::host {

// What tells a file from every other and shows whether its content may have changed.
struct FileFacts {
  std::uint64_t volume = 0;
  std::uint64_t number = 0;   // of the file on its volume; all its names share it
  std::int64_t size = 0;      // bytes
  std::int64_t modified = 0;  // nanoseconds since 1970, UTC
  std::uint64_t links = 0;    // how many names it has

  bool IsSameFile(const FileFacts& other) const { return volume == other.volume && number == other.number; }
  bool IsUnchanged(const FileFacts& other) const {
    return IsSameFile(other) && size == other.size && modified == other.modified;
  }
};

struct NamedFacts {
  std::string name;  // without a folder
  bool is_folder = false;
  FileFacts facts;     // of files only
  Status status = {};  // not ok: why nothing is known of it but its name
};

// The folders and regular files in `folder`, sorted by name byte by byte. Symbolic links and special files are left
// out. An entry that cannot be looked at is listed with its failure.
Result<std::vector<NamedFacts>> ListFacts(std::string_view folder);

// The facts of a regular file; nothing when there is none under this name. A symbolic link is not followed.
std::optional<FileFacts> FactsOf(std::string_view path);

// Opens a file for reading if it is still what its facts say; otherwise that is the failure. A link is not followed.
Result<std::unique_ptr<BinaryFile>> OpenUnchanged(std::string_view path, const FileFacts& facts);

enum class LinkEnd {
  kMade,
  kNameTaken,
  kTooManyLinks,  // the file has as many names as its file system allows
  kOtherVolume,
  kUnsupported,  // the file system has no hard links
  kFailed,
};

struct LinkAnswer {
  LinkEnd end = LinkEnd::kMade;
  Status status;  // not ok unless the link was made
};

// Gives the file `existing` the further name `fresh`, which must be free. Where the system's answer leaves open whether
// the file system has hard links at all, that is tried with an empty file beside `fresh`, which is removed again.
LinkAnswer MakeHardLink(std::string_view existing, std::string_view fresh);

// Moves a file over another of the same folder in one step: the name `to` always shows the one or the other.
Status MoveOver(std::string_view from, std::string_view to);

// Removes the name of a file unless it is the file's last one. True when it was removed.
bool RemoveSpareName(std::string_view path);

}  // namespace discwright::host
