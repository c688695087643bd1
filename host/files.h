// Files and folders of the host. Paths are the core's paths: components separated by "\" or "/", names in any letter
// case; each host finds the real name. Text is UTF-8, or the host's raw bytes where a name is not valid UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/status.h"

namespace discwright::host {

enum class EntryKind { kFile, kFolder, kSpecial };  // kSpecial: device, socket or pipe; never opened

struct Entry {
  std::string name;  // without a folder
  EntryKind kind = EntryKind::kFile;
  std::int64_t size = 0;  // bytes; 0 for folders
  bool is_link = false;   // a symbolic link; kind and size are those of its target
  bool loops = false;     // a link to a folder that is one of its own parents: never descend
  bool broken = false;    // a link whose target is missing; listed as a file of size 0
  Status problem = {};    // not ok: why the system does not tell what it is; listed as a file of size 0
};

using Listing = Result<std::vector<Entry>>;

// The entries of `folder` that match the DOS wildcard `pattern` ("*.*" matches every name), hidden and system files
// and folders included, without "." and "..", sorted by name byte by byte so that every run does the same. An entry
// that cannot be looked at is listed with its problem.
Listing ListFolder(std::string_view folder, std::string_view pattern);

// What stands at `path` (links followed). The failure is kNotFound when nothing is there or a link whose target is
// missing. Any other failure leaves open whether something is there. The entry has no problem.
Result<Entry> Look(std::string_view path);

// Whether both paths lead to one folder that exists, however they are written and whatever links they go through.
bool SameFolder(std::string_view a, std::string_view b);

// The same for two files of any kind; hard links of one file are one.
bool SameFile(std::string_view a, std::string_view b);

// A success when the file can be opened for reading, and kNotFound when nothing has that name. Folders, devices,
// sockets and pipes are not opened: they are a failure (kWrongKind).
Status CheckReadable(std::string_view path);

// Whether the file or folder at `path`, which is below `folder` by its spelling, also lies there when all links in
// `folder` are followed. On Windows, which cannot always say where a link leads, any link on the way gives false.
bool LiesBelow(std::string_view folder, std::string_view path);

// Creates every missing folder of the path; a path that exists already is a success.
Status MakeFolders(std::string_view path);

// Clears what would keep a file or folder from being deleted (read-only marks). Never follows a link.
Status ClearAttributes(std::string_view path);

Status RemoveFile(std::string_view path);  // a link is removed itself, never its target
Status RemoveEmptyFolder(std::string_view path);

// Moves a file, also across volumes. An existing target is an error (kExists) and stays as it is.
Status RenameFile(std::string_view from, std::string_view to);

// The largest file that ReadWholeFile reads when its caller names no other limit: far more than any file of settings.
inline constexpr std::int64_t kLargestText = std::int64_t{16} << 20;  // bytes

// Reads a file of at most `most` bytes. A larger one is a failure (kTooLarge), so that it never takes all the memory.
Result<std::string> ReadWholeFile(std::string_view path, std::int64_t most = kLargestText);
// How it refuses a file of `size` bytes.
inline Status TooLarge(std::int64_t size, std::int64_t most) {
  return Status::Failure(ErrorClass::kTooLarge, "it is too large: " + std::to_string(size) + " bytes; at most " +
                                                    std::to_string(most) + " bytes are possible");
}

enum class FileTimes {
  kNew,   // of the moment of writing
  kKept,  // those of the file that is replaced, as far as its file system has them
};

// Replaces the file's content as a whole: written beside it and renamed over it, so a reader (or a crash) sees the
// old content or the new, never a part. The attributes of a file that is replaced stay. A link is replaced by a file,
// and its target stays as it is; to write to the target, give FollowedPath(path).
Status WriteWholeFile(std::string_view path, std::string_view content, FileTimes times = FileTimes::kNew);

enum class CopyEvent { kStreamSwitch, kChunkFinished };
// Called at the start of a file and after each piece; `transferred` counts this file's bytes. False stops the copy.
using CopyRoutine = std::function<bool(CopyEvent event, std::int64_t transferred)>;

// The platform's own file copy: overwrites, keeps the modification time, makes the copy writable for its owner.
// A failed or stopped copy leaves no partial file.
Status CopyFileWithProgress(std::string_view from, std::string_view to, const CopyRoutine& routine);

enum class OpenMode {
  kRead,
  kReadWrite,    // created when missing, never truncated
  kCreateEmpty,  // created or truncated; a link in its place is deleted, and its target stays as it is
};

// A file opened for binary access at positions; closed by its destructor.
class BinaryFile {
 public:
  virtual ~BinaryFile() = default;
  virtual Result<std::int64_t> Length() = 0;  // bytes
  // Fills `bytes` from `position` (0-based). A short file is a failure.
  virtual Status ReadAt(std::int64_t position, std::span<std::byte> bytes) = 0;
  virtual Status WriteAt(std::int64_t position, std::span<const std::byte> bytes) = 0;
};

// Opens a regular file. Folders, devices, sockets and pipes are never opened: they are a failure (kWrongKind).
Result<std::unique_ptr<BinaryFile>> OpenBinary(std::string_view path, OpenMode mode);

// Reads a regular file from its start to its end and gives each piece to `take`. False from there stops the reading,
// which then is the failure StoppedReading().
Status ReadInPieces(std::string_view path, const std::function<bool(std::span<const std::byte> bytes)>& take);
inline Status StoppedReading() { return Status::Failure(ErrorClass::kOther, "the reading was stopped"); }

// The lower-case hexadecimal SHA-256 of a file's content. `go_on`, when given, is asked after each piece of the file;
// false is the failure StoppedReading().
Result<std::string> Sha256OfFile(std::string_view path, const std::function<bool()>& go_on = {});

}  // namespace discwright::host
