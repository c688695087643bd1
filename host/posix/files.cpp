// Creates folders, removes files and folders, and tells whether two paths lead to the same place.
#include "host/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <optional>

#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/native_path.h"

namespace discwright::host {
namespace {

// mkdir() that treats an existing folder, or a link to one, as a success.
Status MakeFolder(const std::string& native) {
  if (mkdir(native.c_str(), 0777) == 0) {
    NoteCreated(native);
    return Status::Success();
  }
  const int error = errno;
  struct stat facts {};
  const bool is_folder = stat(native.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
  return is_folder ? Status::Success() : StatusOf(error);
}

Status MakeNativeFolders(const std::string& native) {
  Status status = MakeFolder(native);
  if (status.error != ErrorClass::kNotFound || native == "/" || native.empty()) return status;
  status = MakeNativeFolders(NativeFolder(native));
  return status.ok() ? MakeFolder(native) : status;
}

// The facts of the file or folder to which both paths lead; std::nullopt when they lead to different places or to none.
std::optional<struct stat> FactsOfBoth(std::string_view a, std::string_view b) {
  struct stat first {};
  struct stat second {};
  const Result<std::string> native_a = RealPath(a);
  const Result<std::string> native_b = RealPath(b);
  if (!native_a.ok() || !native_b.ok()) return std::nullopt;
  const bool is_one = stat(native_a.value.c_str(), &first) == 0 && stat(native_b.value.c_str(), &second) == 0 &&
                      first.st_dev == second.st_dev && first.st_ino == second.st_ino;
  return is_one ? std::optional(first) : std::nullopt;
}

}  // namespace

bool SameFolder(std::string_view a, std::string_view b) {
  const std::optional<struct stat> facts = FactsOfBoth(a, b);
  return facts && S_ISDIR(facts->st_mode);
}

bool SameFile(std::string_view a, std::string_view b) {
  const std::optional<struct stat> facts = FactsOfBoth(a, b);
  return facts && !S_ISDIR(facts->st_mode);
}

bool LiesBelow(std::string_view folder, std::string_view path) {
  using Text = std::unique_ptr<char, decltype(&std::free)>;
  const Result<std::string> native_folder = RealPath(folder);
  const Result<std::string> native = RealPath(path);
  if (!native_folder.ok() || !native.ok()) return false;
  const Text top(realpath(native_folder.value.c_str(), nullptr), &std::free);
  const Text place(realpath(native.value.c_str(), nullptr), &std::free);
  return top && place && std::string_view(place.get()).starts_with(std::string(top.get()) + "/");
}

Status MakeFolders(std::string_view path) {
  const Result<std::string> native = RealPathOfNew(path);
  return native.ok() ? MakeNativeFolders(native.value) : native.status;
}

Status ClearAttributes(std::string_view path) {
  const Result<std::string> native = RealPath(path);
  if (!native.ok()) return native.status;
  struct stat facts {};
  if (lstat(native.value.c_str(), &facts) != 0) return LastFailure();
  const mode_t wanted = facts.st_mode | (S_ISDIR(facts.st_mode) ? S_IRWXU : S_IRUSR | S_IWUSR);
  if (S_ISLNK(facts.st_mode) || wanted == facts.st_mode) return Status::Success();
  return StatusOfResult(fchmodat(AT_FDCWD, native.value.c_str(), wanted & 07777u, AT_SYMLINK_NOFOLLOW));
}

Status RemoveFile(std::string_view path) {
  const Result<std::string> native = RealPath(path);
  return native.ok() ? StatusOfResult(unlink(native.value.c_str())) : native.status;
}

Status RemoveEmptyFolder(std::string_view path) {
  const Result<std::string> native = RealPath(path);
  return native.ok() ? StatusOfResult(rmdir(native.value.c_str())) : native.status;
}

}  // namespace discwright::host
