// Reads, writes, copies, lists and deletes files and folders. Paths are the core's paths: components separated by "\"
// or "/", with names in any letter case; the host finds the real name. Text is UTF-8, or the raw bytes of the system
// where a name is not valid UTF-8. Failures are returned as in host/status.h.
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

enum class EntryKind { kFile, kFolder, kSpecial };  // kSpecial: a device, socket or pipe; never opened

struct Entry {
  std::string name;  // without a folder
  EntryKind kind = EntryKind::kFile;
  std::int64_t size = 0;  // bytes; 0 for folders
  bool is_link = false;   // a symbolic link; kind and size are those of its target
  bool loops = false;     // a link to a folder that contains the link; do not enter it
  bool broken = false;    // a link whose target is missing; listed as a file of size 0
  Status problem = {};    // not ok: why the system cannot tell what it is; listed as a file of size 0
};

using Listing = Result<std::vector<Entry>>;

// The entries of `folder` that match the DOS wildcard `pattern`; "*.*" matches every name. Hidden and system files and
// folders are included; "." and ".." are not. Entries are sorted by the bytes of their names, so that every run has the
// same order. An entry that the system cannot describe is listed with its problem.
Listing ListFolder(std::string_view folder, std::string_view pattern);

// Describes the file or folder at `path`, with links followed. The failure is kNotFound when it does not exist, or is a
// link whose target is missing. Any other failure does not tell whether it exists. The returned entry has no problem.
Result<Entry> Look(std::string_view path);

// Whether both paths lead to the same existing folder, in any spelling and through any links.
bool SameFolder(std::string_view a, std::string_view b);

// The same for files of any kind. Hard links to one file count as the same file.
bool SameFile(std::string_view a, std::string_view b);

// A success when the file can be opened for reading; kNotFound when the name does not exist. Folders, devices, sockets
// and pipes are not opened: they are a failure (kWrongKind).
Status CheckReadable(std::string_view path);

// Whether the file or folder at `path` is inside `folder` even when all links are followed. By its spelling it must be
// inside. Windows cannot always tell where a link leads, so there any link between the two makes the result false.
bool LiesBelow(std::string_view folder, std::string_view path);

// Creates every missing folder of the path. A path that already exists is a success.
Status MakeFolders(std::string_view path);

// Clears the attributes that would prevent a file or folder from being deleted (read-only marks). Never follows a link.
Status ClearAttributes(std::string_view path);

Status RemoveFile(std::string_view path);  // removes a link itself, never its target
Status RemoveEmptyFolder(std::string_view path);

// Moves a file, even to another volume. An existing target is a failure (kExists) and does not change.
Status RenameFile(std::string_view from, std::string_view to);

// The largest file that ReadWholeFile reads unless its caller gives another limit. It is far larger than any settings
// file.
inline constexpr std::int64_t kLargestText = std::int64_t{16} << 20;  // bytes

// Reads a file of at most `most` bytes. A larger file is a failure (kTooLarge), so that it cannot use up all the
// memory.
Result<std::string> ReadWholeFile(std::string_view path, std::int64_t most = kLargestText);
// The failure of ReadWholeFile for a file of `size` bytes.
inline Status TooLarge(std::int64_t size, std::int64_t most) {
  return Status::Failure(ErrorClass::kTooLarge, "it is too large: " + std::to_string(size) + " bytes; at most " +
                                                    std::to_string(most) + " bytes are possible");
}

enum class FileTimes {
  kNew,   // the time of writing
  kKept,  // the times of the replaced file, as far as its file system stores them
};

// Replaces the whole content of a file. The new content is written to another file in the same folder, which is then
// renamed. So a reader sees either the old or the new content, even after a crash. The new file has the attributes of
// the old one. A link is replaced by a file, and its target does not change; to write to the target, pass
// FollowedPath(path).
Status WriteWholeFile(std::string_view path, std::string_view content, FileTimes times = FileTimes::kNew);

enum class CopyEvent { kStreamSwitch, kChunkFinished };
// Is called at the start of a file and after each piece. `transferred` counts the bytes of this file. When it returns
// false, the copy stops.
using CopyRoutine = std::function<bool(CopyEvent event, std::int64_t transferred)>;

// Copies a file with the system's own functions. Overwrites an existing file, keeps the modification time, and makes
// the copy writable for its owner. A failed or stopped copy leaves no partial file.
Status CopyFileWithProgress(std::string_view from, std::string_view to, const CopyRoutine& routine);

// Copies a file like the last function, without progress. The copy appears at `to` when it is complete, never in part;
// until then it has a temporary name in the same folder. It has the permissions of the file.
Status CopyWholeFile(std::string_view from, std::string_view to);

enum class OpenMode {
  kRead,
  kReadWrite,    // created when missing, never truncated
  kCreateEmpty,  // created or truncated; a link is deleted first, and its target does not change
};

// A file that is read and written at byte positions. The destructor closes it.
class BinaryFile {
 public:
  virtual ~BinaryFile() = default;
  virtual Result<std::int64_t> Length() = 0;  // bytes
  // Fills `bytes` from `position` (0-based). Fails when the file ends before `bytes` is full.
  virtual Status ReadAt(std::int64_t position, std::span<std::byte> bytes) = 0;
  virtual Status WriteAt(std::int64_t position, std::span<const std::byte> bytes) = 0;
};

// Opens a regular file. Folders, devices, sockets and pipes are never opened: they are a failure (kWrongKind).
Result<std::unique_ptr<BinaryFile>> OpenBinary(std::string_view path, OpenMode mode);

// Reads a regular file from start to end and passes each piece to `take`. When `take` returns false, the reading stops
// with the failure StoppedReading().
Status ReadInPieces(std::string_view path, const std::function<bool(std::span<const std::byte> bytes)>& take);
inline Status StoppedReading() { return Status::Failure(ErrorClass::kOther, "the reading was stopped"); }

// The SHA-256 of a file's content, in lower-case hexadecimal digits. `go_on`, if given, is called after each piece of
// the file; when it returns false, the result is the failure StoppedReading().
Result<std::string> Sha256OfFile(std::string_view path, const std::function<bool()>& go_on = {});

}  // namespace discwright::host
