// Reads a whole folder tree for a disc image: the facts of every entry that an image needs, and the contents of files.
// Call OpenSourceTree, and List("", visit) for the entries of the root.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "host/files.h"
#include "host/status.h"

namespace discwright::host {

struct TreeEntry {
  std::string_view name;  // the name on the disk, byte for byte (UTF-8 on Windows); valid only during the visit
  bool is_link = false;   // a symbolic link; all members below describe its target
  Status status;          // not ok: the members below are not valid; kNotFound for a link: its target is missing
  EntryKind kind = EntryKind::kFile;
  std::uint64_t size = 0;        // bytes; 0 for folders
  std::int64_t modified = 0;     // seconds since 1970-01-01 00:00 UTC
  std::uint64_t volume = 0;      // with `id`: equal for all names of one file or folder, and for no others
  std::uint64_t id = 0;          // see `volume`
  bool has_other_names = false;  // a file with more than one hard link
};

// A file that is read from start to end.
class SourceFile {
 public:
  virtual ~SourceFile() = default;
  // Reads the next bytes and returns their number. The number is smaller than the size of `bytes` only at the end of
  // the file.
  virtual Result<std::size_t> Read(std::span<std::uint8_t> bytes) = 0;
};

// A folder tree. Paths are relative to its root; "" is the root itself. A path consists of names that List has
// returned, with "/" between them. Paths may have any length, except on Windows: there a whole path has at most 259
// bytes, and a longer one is a failure. Links are followed.
class SourceTree {
 public:
  virtual ~SourceTree() = default;
  // Calls `visit` for every entry of a folder except "." and "..", in no particular order.
  virtual Status List(const std::string& path, const std::function<void(const TreeEntry&)>& visit) = 0;
  // The entry of `path` itself, with an empty name.
  virtual TreeEntry Look(const std::string& path) = 0;
  // Opens a file. The call does not block when a device or pipe has taken the file's place.
  virtual Result<std::unique_ptr<SourceFile>> Open(const std::string& path) = 0;
};

// Opens the tree below a folder, which is a core path.
Result<std::unique_ptr<SourceTree>> OpenSourceTree(std::string_view folder);

}  // namespace discwright::host
