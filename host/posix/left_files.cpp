// Deletes temporary files that no program writes any more. A file that is being written is locked, and the system
// releases the locks of a killed program.
#include "host/left_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/temporary_names.h"
#include "host/names.h"
#include "host/posix/folder_reader.h"
#include "host/posix/native_path.h"
#include "host/posix/new_file.h"

namespace discwright::host {

bool IsAt(int fd, const std::string& native) {
  struct stat opened {};
  struct stat named {};
  return fstat(fd, &opened) == 0 && lstat(native.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
         opened.st_ino == named.st_ino;
}

namespace {

// Whether the file of `fd` is known to have lost its name. When this cannot be found out, the result is false.
bool HasLostItsName(int fd, const std::string& native) {
  struct stat opened {};
  struct stat named {};
  if (lstat(native.c_str(), &named) != 0) return errno == ENOENT;
  return fstat(fd, &opened) == 0 && (opened.st_dev != named.st_dev || opened.st_ino != named.st_ino);
}

}  // namespace

UniqueFd CreateLocked(const std::string& native, mode_t mode) {
  for (;;) {
    UniqueFd fd(open(native.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode));
    // Another program that takes the new file for one of a killed run holds the lock until it has deleted the file, so
    // this waits for that program. On a file system without locks nobody gets a lock, and nothing is deleted there.
    while (fd.valid() && flock(fd.get(), LOCK_EX) != 0 && errno == EINTR) {
    }
    if (!fd.valid() || !HasLostItsName(fd.get(), native)) return fd;
  }
}

void RemoveLeftFiles(std::string_view folder) {
  FolderReader reader(PathToNative(folder));
  while (const dirent* found = reader.Next()) {
    if (!base::IsTemporaryName(found->d_name)) continue;
    const UniqueFd fd(openat(reader.fd(), found->d_name, O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat facts {};
    if (!fd.valid() || fstat(fd.get(), &facts) != 0 || !S_ISREG(facts.st_mode)) continue;
    if (flock(fd.get(), LOCK_EX | LOCK_NB) == 0) unlinkat(reader.fd(), found->d_name, 0);
  }
}

}  // namespace discwright::host
