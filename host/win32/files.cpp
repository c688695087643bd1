// Creates folders, moves and removes files and folders, and tells whether two paths lead to the same place.
#include "host/files.h"

#include <windows.h>

#include "base/paths.h"
#include "host/win32/errors.h"
#include "host/win32/file_facts.h"
#include "host/win32/native_path.h"
#include "host/win32/new_file.h"
#include "host/win32/regular_file.h"
#include "host/win32/windows_version.h"

namespace discwright::host {
namespace {

using MakePathCall = BOOL WINAPI(const char*);

// Creates all missing folders with a single call of the system. This call does not tell why it failed.
bool MakeAtOnce(const AnsiPath& path) {
  static MakePathCall* const make = NewerCall<MakePathCall>("imagehlp.dll", "MakeSureDirectoryPathExists");
  const std::string with_separator = path.native + "\\";
  return make != nullptr && with_separator.size() < MAX_PATH && make(with_separator.c_str()) != 0 && IsFolder(path);
}

Status MakeOneByOne(const AnsiPath& path) {
  if (!path.status.ok()) return path.status;
  if (CreateDirectoryA(path.c_str(), nullptr) != 0) return Status::Success();
  const DWORD error = GetLastError();
  if (IsFolder(path)) return Status::Success();
  const std::string parent = base::ParentFolder(path.core);
  if (error != ERROR_PATH_NOT_FOUND || parent == path.core) return StatusOf(error);
  Status status = MakeOneByOne(AnsiPath(parent));
  return status.ok() ? StatusOfResult(CreateDirectoryA(path.c_str(), nullptr)) : status;
}

// The facts of the file or folder to which both paths lead; std::nullopt when they lead to different places or to none.
std::optional<NativeFacts> FactsOfBoth(std::string_view a, std::string_view b) {
  const Result<NativeFacts> first = FactsOfPath(AnsiPath(a), Links::kFollow);
  const Result<NativeFacts> second = FactsOfPath(AnsiPath(b), Links::kFollow);
  if (!first.ok() || !second.ok() || !first.value.IsSameFile(second.value)) return std::nullopt;
  return first.value;
}

}  // namespace

bool SameFolder(std::string_view a, std::string_view b) {
  const std::optional<NativeFacts> facts = FactsOfBoth(a, b);
  return facts && facts->IsFolder();
}

bool SameFile(std::string_view a, std::string_view b) {
  const std::optional<NativeFacts> facts = FactsOfBoth(a, b);
  return facts && !facts->IsFolder();
}

bool LiesBelow(std::string_view folder, std::string_view path) {
  const std::size_t top = AbsolutePath(AnsiPath(folder).core).size();
  for (std::string place = AbsolutePath(AnsiPath(path).core); place.size() > top; place = base::ParentFolder(place)) {
    if (IsLink(AnsiPath(place))) return false;
  }
  return true;
}

Status MakeFolders(std::string_view path) {
  const AnsiPath ansi(path);
  if (!ansi.status.ok()) return ansi.status;
  const AnsiPath absolute(AbsolutePath(ansi.core));
  return absolute.status.ok() && MakeAtOnce(absolute) ? Status::Success() : MakeOneByOne(absolute);
}

// Only the read-only mark prevents a file from being deleted.
Status ClearAttributes(std::string_view path) { return MakeWritable(AnsiPath(path)); }

Status RemoveFile(std::string_view path) {
  const AnsiPath ansi(path);
  if (!ansi.status.ok()) return ansi.status;
  if (IsFolder(ansi)) return IsLink(ansi) ? StatusOfResult(RemoveDirectoryA(ansi.c_str())) : NotARegularFile();
  return StatusOfResult(DeleteFileA(ansi.c_str()));
}

Status RemoveEmptyFolder(std::string_view path) {
  const AnsiPath ansi(path);
  return ansi.status.ok() ? StatusOfResult(RemoveDirectoryA(ansi.c_str())) : ansi.status;
}

Status RenameFile(std::string_view from, std::string_view to) {
  const AnsiPath source(from);
  const AnsiPath target(to);
  if (!source.status.ok()) return source.status;
  if (!target.status.ok()) return target.status;
  const bool was_free = !IsThere(target);
  if (MoveFileA(source.c_str(), target.c_str()) != 0) return Status::Success();
  Status failure = LastFailure();
  // A copy to another drive that was interrupted may have left a part of the target.
  if (was_free && failure.error != ErrorClass::kExists && IsThere(source) && IsThere(target)) DeleteForSure(target);
  return failure;
}

}  // namespace discwright::host
