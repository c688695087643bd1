// Creates files that are either finished or removed.
#include "host/win32/new_file.h"

#include <atomic>

#include "host/win32/attributes.h"
#include "host/win32/errors.h"
#include "host/win32/family.h"
#include "host/win32/newer_call.h"

namespace discwright::host {
namespace {

// Windows 95, 98 and Me cannot rename over a file. The old one steps aside first: a crash in between leaves the name
// free, the old content and the new under passing names, and loses neither.
Status StepAside(const DoorPath& from, const DoorPath& to) {
  const DoorPath aside(PassingName(to));
  if (!aside.status.ok()) return aside.status;
  if (MoveFileA(to.c_str(), aside.c_str()) == 0) return LastFailure();
  if (MoveFileA(from.c_str(), to.c_str()) == 0) {
    Status failure = LastFailure();
    MoveFileA(aside.c_str(), to.c_str());
    return failure;
  }
  return DeleteForSure(aside);
}

}  // namespace

std::string PassingName(const DoorPath& path) {
  static std::atomic<unsigned> counter = 0;
  for (;;) {
    const std::string name = ".discwright-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(counter++);
    std::string passing = SiblingOf(path.core, name);
    if (!IsThere(DoorPath(passing))) return passing;
  }
}

Status MoveOver(const DoorPath& from, const DoorPath& to) {
  using Call = decltype(MoveFileExA);
  static Call* const move = IsNtFamily() ? NewerCall<Call>("kernel32.dll", "MoveFileExA") : nullptr;
  if (move == nullptr) return IsThere(to) ? StepAside(from, to) : StatusOfResult(MoveFileA(from.c_str(), to.c_str()));
  MakeWritable(to);
  return StatusOfResult(move(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING));
}

Status DeleteForSure(const DoorPath& path) {
  MakeWritable(path);
  return StatusOfResult(DeleteFileA(path.c_str()));
}

NewFile::NewFile(const DoorPath& path) : path_(path), passing_(PassingName(path)), status_(passing_.status) {
  if (!status_.ok()) return;
  handle_ =
      OwnedHandle(CreateFileA(passing_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!handle_.valid()) status_ = LastFailure();
}

NewFile::~NewFile() {
  if (!handle_.valid() && !status_.ok()) return;
  handle_.Close();
  if (!is_whole_) DeleteFileA(passing_.c_str());
}

Status NewFile::Commit(DWORD attributes) {
  // A crash after the renaming must not find the content still on its way to the disk.
  if (FlushFileBuffers(handle_.get()) == 0) return LastFailure();
  handle_.Close();
  if (SetFileAttributesA(passing_.c_str(), attributes) == 0) return LastFailure();
  Status moved = MoveOver(passing_, path_);
  is_whole_ = moved.ok();
  return moved;
}

}  // namespace discwright::host
