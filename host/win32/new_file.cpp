// Creates files that are either completed or deleted, and replaces the whole content of files.
#include "host/win32/new_file.h"

#include <atomic>

#include "base/paths.h"
#include "base/temporary_names.h"
#include "host/win32/errors.h"
#include "host/win32/file_facts.h"
#include "host/win32/regular_file.h"
#include "host/win32/windows_version.h"

namespace discwright::host {
namespace {

// Windows 95, 98 and Me cannot rename a file over another one. So the old file gets a temporary name first. After a
// crash in between, no file has the final name, but the old and the new content both exist under temporary names.
Status StepAside(const AnsiPath& from, const AnsiPath& to) {
  const AnsiPath aside(TemporaryName(to));
  if (!aside.status.ok()) return aside.status;
  if (MoveFileA(to.c_str(), aside.c_str()) == 0) return LastFailure();
  if (MoveFileA(from.c_str(), to.c_str()) == 0) {
    Status failure = LastFailure();
    MoveFileA(aside.c_str(), to.c_str());
    return failure;
  }
  return DeleteForSure(aside);
}

// The attributes that the new file takes over from the file that it replaces.
constexpr DWORD kKeptMarks = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;

// A time that the file system does not store is zero, and must not be set.
const FILETIME* OrNone(const FILETIME& time) {
  return time.dwHighDateTime != 0 || time.dwLowDateTime != 0 ? &time : nullptr;
}

// A failure is ignored, because some file systems cannot store the times.
void KeepTimes(HANDLE file, const AnsiPath& path) {
  WIN32_FIND_DATAA replaced{};
  if (!FindOne(path.native, replaced)) return;
  SetFileTime(file, OrNone(replaced.ftCreationTime), OrNone(replaced.ftLastAccessTime),
              OrNone(replaced.ftLastWriteTime));
}

}  // namespace

std::string TemporaryName(const AnsiPath& path) {
  static std::atomic<unsigned> counter = 0;
  for (;;) {
    std::string temporary = base::SiblingOf(path.core, base::TemporaryName(GetCurrentProcessId(), counter++));
    if (!IsThere(AnsiPath(temporary))) return temporary;
  }
}

Status MoveOver(const AnsiPath& from, const AnsiPath& to) {
  using Call = decltype(MoveFileExA);
  static Call* const move = IsNtFamily() ? NewerCall<Call>("kernel32.dll", "MoveFileExA") : nullptr;
  if (move == nullptr) return IsThere(to) ? StepAside(from, to) : StatusOfResult(MoveFileA(from.c_str(), to.c_str()));
  MakeWritable(to);
  return StatusOfResult(move(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING));
}

Status DeleteForSure(const AnsiPath& path) {
  MakeWritable(path);
  return StatusOfResult(DeleteFileA(path.c_str()));
}

NewFile::NewFile(const AnsiPath& path) : path_(path), temporary_(TemporaryName(path)), status_(temporary_.status) {
  if (!status_.ok()) return;
  handle_ = OwnedHandle(
      CreateFileA(temporary_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!handle_.valid()) status_ = LastFailure();
}

NewFile::~NewFile() {
  if (!handle_.valid() && !status_.ok()) return;
  handle_.Close();
  if (!is_whole_) DeleteFileA(temporary_.c_str());
}

Status NewFile::Commit(DWORD attributes) {
  // The content must be on the disk before the renaming, in case there is a crash directly after it.
  if (FlushFileBuffers(handle_.get()) == 0) return LastFailure();
  handle_.Close();
  if (SetFileAttributesA(temporary_.c_str(), attributes) == 0) return LastFailure();
  Status moved = MoveOver(temporary_, path_);
  is_whole_ = moved.ok();
  return moved;
}

Status WriteWholeFile(std::string_view path, std::string_view content, FileTimes times) {
  const AnsiPath ansi(path);
  Status status = OnlyRegular(ansi);
  if (!status.ok()) return status;
  const DWORD replaced = GetFileAttributesA(ansi.c_str());
  const bool exists = replaced != INVALID_FILE_ATTRIBUTES;
  if (exists && (replaced & FILE_ATTRIBUTE_READONLY) != 0) return StatusOf(ERROR_ACCESS_DENIED);
  NewFile file(ansi);
  status = file.status();
  if (status.ok()) status = WriteAll(file.handle(), std::as_bytes(std::span(content)));
  if (status.ok() && exists && times == FileTimes::kKept) KeepTimes(file.handle(), ansi);
  return status.ok() ? file.Commit(exists ? replaced & kKeptMarks : DWORD{FILE_ATTRIBUTE_ARCHIVE}) : status;
}

}  // namespace discwright::host
