// Reads the names in a folder. This is the only loop over readdir(); all other code uses it:
//
//   FolderReader reader(native);
//   while (const dirent* found = reader.Next()) ...
//   if (!reader.status().ok()) ...
#pragma once

#include <dirent.h>

#include <memory>
#include <string>
#include <vector>

#include "host/posix/unique_fd.h"
#include "host/status.h"

namespace discwright::host {

class FolderReader {
 public:
  explicit FolderReader(const std::string& native);
  // Takes ownership of the result of openat(). When it is not a valid descriptor, errno must hold the reason.
  explicit FolderReader(UniqueFd folder);

  // Returns the next entry, which is valid until the next call, or null at the end and after a failure. Leaves out "."
  // and "..".
  const dirent* Next();
  // The open folder, for openat() and similar calls. Call this only while the status is ok.
  int fd() const { return dirfd(stream_.get()); }
  // Not ok when the folder could not be opened, or not be read to its end.
  const Status& status() const { return status_; }

 private:
  std::unique_ptr<DIR, int (*)(DIR*)> stream_;
  Status status_;
};

// The names in a folder, sorted byte by byte.
Result<std::vector<std::string>> NamesIn(const std::string& folder);

// Whether the path is a folder, or a link that leads to one.
bool IsFolder(const std::string& native);

}  // namespace discwright::host
