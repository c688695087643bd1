// Finds out which names belong to the same file, and creates hard links. Pass paths spelled exactly as listings return
// them; these functions do not look for names in another letter case.
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

// Identifies a file, and shows whether its content may have changed.
struct FileFacts {
  std::uint64_t volume = 0;
  std::uint64_t number = 0;   // the number of the file on its volume; all names of the file share it
  std::int64_t size = 0;      // bytes
  std::int64_t modified = 0;  // nanoseconds since 1970, UTC
  std::uint64_t links = 0;    // how many names the file has

  bool IsSameFile(const FileFacts& other) const { return volume == other.volume && number == other.number; }
  bool IsUnchanged(const FileFacts& other) const {
    return IsSameFile(other) && size == other.size && modified == other.modified;
  }
};

struct NamedFacts {
  std::string name;  // without a folder
  bool is_folder = false;
  FileFacts facts;     // only for files
  Status status = {};  // not ok: why only the name is known
};

// The folders and regular files in `folder`, sorted by the bytes of their names. Symbolic links and special files are
// left out. An entry that the system cannot describe is listed with its failure.
Result<std::vector<NamedFacts>> ListFacts(std::string_view folder);

// The facts of a regular file; std::nullopt when the path is not one. A symbolic link is not followed.
std::optional<FileFacts> FactsOf(std::string_view path);

// Opens a file for reading. Fails when the file no longer has these facts. A link is not followed.
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
  Status status;  // a success only when the link was made
};

// Gives the file `existing` the additional name `fresh`, which must be free. When the system's error does not show
// whether the file system supports hard links, this is tried with an empty file in the folder of `fresh`, which is
// deleted again.
LinkAnswer MakeHardLink(std::string_view existing, std::string_view fresh);

// Renames a file over another file in the same folder in one step: at every moment `to` is one of the two files.
Status MoveOver(std::string_view from, std::string_view to);

// Removes a name of a file unless it is the file's last one. Returns whether it was removed.
bool RemoveSpareName(std::string_view path);

}  // namespace discwright::host
