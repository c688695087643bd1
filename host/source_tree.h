// Reading a whole folder tree for a disc image: every entry with what an image needs to know of it, and file contents.
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
  std::string_view name;  // as it is on disk, byte for byte (UTF-8 on Windows); valid only while it is visited
  bool is_link = false;   // a symbolic link; everything below is its target's
  Status status;          // not ok: nothing below holds. kNotFound of a link: its target is missing
  EntryKind kind = EntryKind::kFile;
  std::uint64_t size = 0;        // bytes; 0 for folders
  std::int64_t modified = 0;     // seconds since 1970-01-01 00:00 UTC
  std::uint64_t volume = 0;      // together with `id` the same for all names of one file or folder, and for no other
  std::uint64_t id = 0;          // see `volume`
  bool has_other_names = false;  // a file with more than one hard link
};

// A file being read from its start to its end.
class SourceFile {
 public:
  virtual ~SourceFile() = default;
  // Reads the next bytes and gives their number, which is less than there is room for only at the end of the file.
  virtual Result<std::size_t> Read(std::span<std::uint8_t> bytes) = 0;
};

// Paths are relative to the tree's root, made of names as List gives them with "/" in between; "" is the root itself.
// They may have any length, except on Windows: there a whole path has at most 259 bytes, and a longer one is a failure.
// Links are followed.
class SourceTree {
 public:
  virtual ~SourceTree() = default;
  // Visits what stands in a folder, without "." and "..", in no particular order.
  virtual Status List(const std::string& path, const std::function<void(const TreeEntry&)>& visit) = 0;
  // The entry of `path` itself, with an empty name.
  virtual TreeEntry Look(const std::string& path) = 0;
  // Opens a file. Devices and pipes that took its place do not block.
  virtual Result<std::unique_ptr<SourceFile>> Open(const std::string& path) = 0;
};

// The tree below a folder, which is a core path.
Result<std::unique_ptr<SourceTree>> OpenSourceTree(std::string_view folder);

}  // namespace discwright::host
