// Reading and replacing files as a whole.
#include "host/files.h"
#include "host/win32/errors.h"
#include "host/win32/file_facts.h"
#include "host/win32/new_file.h"
#include "host/win32/regular_file.h"

namespace discwright::host {
namespace {

// Marks that the replacing file takes over.
constexpr DWORD kKeptMarks = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;

// A time that the file system does not keep is zero, which is no time to set.
const FILETIME* OrNone(const FILETIME& time) {
  return time.dwHighDateTime != 0 || time.dwLowDateTime != 0 ? &time : nullptr;
}

// A file system that has no room for the times does not spoil the content.
void KeepTimes(HANDLE file, const DoorPath& path) {
  WIN32_FIND_DATAA replaced{};
  if (!FindOne(path.native, replaced)) return;
  SetFileTime(file, OrNone(replaced.ftCreationTime), OrNone(replaced.ftLastAccessTime),
              OrNone(replaced.ftLastWriteTime));
}

}  // namespace

Status ReadWholeFile(std::string_view path, std::string& content) {
  content.clear();
  const RegularFile file = OpenRegular(DoorPath(path), GENERIC_READ, OPEN_EXISTING, ShareEverything());
  if (!file.status.ok()) return file.status;
  const std::int64_t size = SizeOf(file.handle.get());
  if (size < 0) return LastFailure();
  content.resize(static_cast<std::size_t>(size));
  std::size_t count = 0;
  Status status = ReadSome(file.handle.get(), std::as_writable_bytes(std::span(content)), count);
  content.resize(status.ok() ? count : 0);
  return status;
}

Status WriteWholeFile(std::string_view path, std::string_view content, FileTimes times) {
  const DoorPath door(path);
  Status status = OnlyRegular(door);
  if (!status.ok()) return status;
  const DWORD replaced = GetFileAttributesA(door.c_str());
  const bool exists = replaced != INVALID_FILE_ATTRIBUTES;
  if (exists && (replaced & FILE_ATTRIBUTE_READONLY) != 0) return StatusOf(ERROR_ACCESS_DENIED);
  NewFile file(door);
  status = file.status();
  if (status.ok()) status = WriteAll(file.handle(), std::as_bytes(std::span(content)));
  if (status.ok() && exists && times == FileTimes::kKept) KeepTimes(file.handle(), door);
  return status.ok() ? file.Commit(exists ? replaced & kKeptMarks : DWORD{FILE_ATTRIBUTE_ARCHIVE}) : status;
}

}  // namespace discwright::host
