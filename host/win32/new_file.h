// Writes a file that gets its final name only when it is complete, and is deleted otherwise. Create a NewFile, write to
// handle(), and call Commit.
#pragma once

#include <string>

#include "host/files.h"
#include "host/status.h"
#include "host/win32/native_path.h"
#include "host/win32/owned_handle.h"

namespace discwright::host {

// A name in the folder of `path` that does not exist yet (see base/temporary_names.h). It is short and does not depend
// on the final name, which may be as long as the system allows.
std::string TemporaryName(const AnsiPath& path);

// Renames a file to `to`, in one step where the system can. An existing file there is replaced, even a read-only one.
Status MoveOver(const AnsiPath& from, const AnsiPath& to);

// Deletes a file, even a read-only one.
Status DeleteForSure(const AnsiPath& path);

// A file that is being written. Unless Commit succeeds, the destructor deletes it, and a file that had the final name
// does not change.
class NewFile {
 public:
  // Creates a file under a temporary name in the folder of `path`; status() tells whether this succeeded.
  explicit NewFile(const AnsiPath& path);
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile();

  const Status& status() const { return status_; }
  HANDLE handle() const { return handle_.get(); }

  // Gives the file these attributes, writes it to the disk, closes it and gives it its final name.
  Status Commit(DWORD attributes);

 private:
  AnsiPath path_;
  AnsiPath temporary_;
  OwnedHandle handle_;
  Status status_;
  bool is_whole_ = false;
};

// Copies a file on Windows 95, 98 and Me, whose own copy function does not report its progress. Creates or replaces
// `to` with the content, the modification time and the attributes of `from`. A failure may leave a partial file. This
// function is in copy_file.cpp. It is declared here for the tests, which run it on the NT family, too.
Status CopyByHand(const AnsiPath& from, const AnsiPath& to, const CopyRoutine& routine);

}  // namespace discwright::host
