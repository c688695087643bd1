// Sorts errno values into the few classes that a user can act on.
#include "host/posix/errors.h"

#include <cerrno>
#include <system_error>

namespace discwright::host {
namespace {

ErrorClass ClassOf(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return ErrorClass::kNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case ETXTBSY:
    case EBUSY:
      return ErrorClass::kAccessDenied;
    case ENOSPC:
    case EDQUOT:
      return ErrorClass::kDiskFull;
    case EIO:
    case ENXIO:
    case ENODEV:
    case ENOMEDIUM:
      return ErrorClass::kNotReady;
    case EEXIST:
      return ErrorClass::kExists;
    case ELOOP:
      return ErrorClass::kLoop;
    case EISDIR:
      return ErrorClass::kWrongKind;
    default:
      return ErrorClass::kOther;
  }
}

}  // namespace

Status StatusOf(int error) {
  if (error == EFBIG) return FileMayNotGrow();  // "File too large" would not say what to do
  return Status::Failure(ClassOf(error), std::generic_category().message(error));
}

Status LastFailure() { return StatusOf(errno); }

Status StatusOfResult(long result) { return result >= 0 ? Status::Success() : LastFailure(); }

Status NotARegularFile(bool is_folder) {
  if (is_folder) return StatusOf(EISDIR);
  return Status::Failure(ErrorClass::kWrongKind, "Not a regular file");
}

}  // namespace discwright::host
