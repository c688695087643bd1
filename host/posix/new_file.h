// Writes a file that gets its final name only when it is complete, and is deleted otherwise. Call Create or
// CreateBeside, write to fd(), and call Commit.
#pragma once

#include <sys/types.h>

#include <string>

#include "host/posix/unique_fd.h"
#include "host/status.h"

namespace discwright::host {

// A name in the folder of `native` that this program uses for no other file (see base/temporary_names.h). It is short
// and does not depend on the final name, which may be as long as the system allows.
std::string TemporaryName(const std::string& native);

// Whether `native` is a path of the file of `fd`. This function and the next one are in left_files.cpp.
bool IsAt(int fd, const std::string& native);

// Creates a temporary file. When this fails, the descriptor is not valid and errno has the reason. The file is locked
// until its last descriptor is closed; until then RemoveLeftFiles does not delete it.
UniqueFd CreateLocked(const std::string& native, mode_t mode);

// A file that is being written. Unless Commit succeeds, the destructor deletes it, and a file that had the final name
// does not change.
class NewFile {
 public:
  NewFile() = default;
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() { Discard(); }

  // Creates the file under its final name. The failure is kExists when the name is taken.
  Status Create(const std::string& native, mode_t mode);

  // Creates the file under a temporary name in the same folder. Commit then renames it, and replaces a file that has
  // the final name.
  Status CreateBeside(const std::string& native, mode_t mode);

  int fd() const { return fd_.get(); }

  // Closes the file, which reports late write errors, and gives it its final name.
  Status Commit();

 private:
  void Discard();

  UniqueFd fd_;
  std::string name_;            // the final native path
  std::string temporary_name_;  // the name during the writing; empty when there is no file to delete
};

// Copies a file to a name that is free, without progress. The failure is kExists when the name is taken. This function
// is in copy_file.cpp.
Status CopyToFreeName(const std::string& from, const std::string& to);

}  // namespace discwright::host
