// Reads the names in a folder: the one loop over readdir, which all others use.
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
  // Takes over what openat() gave; without a valid descriptor, errno says why.
  explicit FolderReader(UniqueFd folder);

  // The next entry, valid until the next call; "." and ".." are left out. Null at the end and after a failure.
  const dirent* Next();
  // The open folder, for the ...at() calls; only while the status is ok.
  int fd() const { return dirfd(stream_.get()); }
  // Not ok: the folder could not be opened, or not be read to its end.
  const Status& status() const { return status_; }

 private:
  std::unique_ptr<DIR, int (*)(DIR*)> stream_;
  Status status_;
};

// The names in a folder, sorted byte by byte.
Result<std::vector<std::string>> NamesIn(const std::string& folder);

// Whether a folder stands there, or a link that leads to one.
bool IsFolder(const std::string& native);

}  // namespace discwright::host
