// Creates files that are either finished or removed.
#include "host/posix/new_file.h"

#include <fcntl.h>

#include <atomic>
#include <cerrno>
#include <cstdio>

#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/native_path.h"

namespace discwright::host {
namespace {

constexpr int kCreateFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;

}  // namespace

std::string PassingName(const std::string& native) {
  static std::atomic<unsigned> counter = 0;
  const std::string name = ".discwright-" + std::to_string(getpid()) + "-" + std::to_string(counter++);
  return NativeJoin(NativeFolder(native), name);
}

Status NewFile::Create(const std::string& native, mode_t mode) {
  fd_ = UniqueFd(open(native.c_str(), kCreateFlags, mode));
  if (!fd_.valid()) return LastFailure();
  name_ = passing_name_ = native;
  // At once and not in Commit: what others do in the folder while this file is written must be noticed.
  NoteCreated(native);
  return Status::Success();
}

Status NewFile::CreateBeside(const std::string& native, mode_t mode) {
  do {
    passing_name_ = PassingName(native);
    fd_ = UniqueFd(open(passing_name_.c_str(), kCreateFlags, mode));
  } while (!fd_.valid() && errno == EEXIST);
  name_ = native;
  if (fd_.valid()) return Status::Success();
  passing_name_.clear();
  return LastFailure();
}

Status NewFile::Commit() {
  if (fd_.Close() != 0) return LastFailure();
  if (passing_name_ != name_) {
    if (std::rename(passing_name_.c_str(), name_.c_str()) != 0) return LastFailure();
    NoteCreated(name_);
  }
  passing_name_.clear();
  return Status::Success();
}

void NewFile::Discard() {
  if (!passing_name_.empty()) unlink(passing_name_.c_str());
  passing_name_.clear();
}

}  // namespace discwright::host
