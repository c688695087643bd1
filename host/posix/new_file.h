// A file being written that gets its name only when it is whole, or disappears.
#pragma once

#include <sys/types.h>

#include <string>

#include "host/posix/unique_fd.h"
#include "host/status.h"

namespace discwright::host {

// A name beside `native` that nothing of this program has (see base/temporary_names.h). It is short and does not depend
// on the final name, which may be as long as the system allows.
std::string TemporaryName(const std::string& native);

// Whether `fd` is what stands at `native`. In left_files.cpp, like the next one.
bool IsAt(int fd, const std::string& native);

// Creates a temporary file; not valid, with errno, when that fails. It is locked until the last descriptor of it is
// closed: RemoveLeftFiles leaves it alone so long.
UniqueFd CreateLocked(const std::string& native, mode_t mode);

// Unless Commit succeeds, the destructor removes what was written, and a file that had the name stays as it was.
class NewFile {
 public:
  NewFile() = default;
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() { Discard(); }

  // Creates the file under its own name; kExists when that is taken.
  Status Create(const std::string& native, mode_t mode);

  // Creates it under a temporary name in the same folder; Commit then renames it over what has the name.
  Status CreateBeside(const std::string& native, mode_t mode);

  int fd() const { return fd_.get(); }

  // Closes the file, which reports late write errors, and gives it its name.
  Status Commit();

 private:
  void Discard();

  UniqueFd fd_;
  std::string name_;            // the final native path
  std::string temporary_name_;  // what it is called while being written; empty when there is nothing to discard
};

// Copies a file to a name that is free, without progress; kExists when the name is taken. In copy_file.cpp.
Status CopyToFreeName(const std::string& from, const std::string& to);

}  // namespace discwright::host
