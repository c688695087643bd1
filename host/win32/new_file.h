// A file being written that gets its name only when it is whole, or disappears.
#pragma once

#include <string>

#include "host/files.h"
#include "host/status.h"
#include "host/win32/native_path.h"
#include "host/win32/owned_handle.h"

namespace discwright::host {

// A name beside `path` that nothing has (see base/temporary_names.h). It is short and does not depend on the final
// name, which may be as long as the system allows.
std::string TemporaryName(const AnsiPath& path);

// Moves a file over what may have the name `to`, in one step where the system can. A read-only file there is replaced.
Status MoveOver(const AnsiPath& from, const AnsiPath& to);

// Deletes a file even when it is marked read only.
Status DeleteForSure(const AnsiPath& path);

// Unless Commit succeeds, the destructor removes what was written, and a file that had the name stays as it was.
class NewFile {
 public:
  // Creates a file under a temporary name beside `path`; see status().
  explicit NewFile(const AnsiPath& path);
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile();

  const Status& status() const { return status_; }
  HANDLE handle() const { return handle_.get(); }

  // Gives the file these attributes, writes it to the disk, closes it and gives it its name.
  Status Commit(DWORD attributes);

 private:
  AnsiPath path_;
  AnsiPath temporary_;
  OwnedHandle handle_;
  Status status_;
  bool is_whole_ = false;
};

// The copy of Windows 95, 98 and Me, whose own copy says nothing of its progress; in copy_file.cpp. It makes `to`, or
// replaces it, with the content, the modification time and the attributes of `from`. A failure may leave a part. Here
// for the tests, which run it on the NT family, too.
Status CopyByHand(const AnsiPath& from, const AnsiPath& to, const CopyRoutine& routine);

}  // namespace discwright::host
