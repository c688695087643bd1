// Sorts the system's error codes into the few classes that a user can act on.
#include "host/win32/errors.h"

#include <array>

#include "host/native_text.h"

namespace discwright::host {
namespace {

ErrorClass ClassOf(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_DIRECTORY:
      return ErrorClass::kNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_CURRENT_DIRECTORY:
      return ErrorClass::kAccessDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ErrorClass::kDiskFull;
    case ERROR_NOT_READY:
    case ERROR_CRC:
    case ERROR_SEEK:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_GEN_FAILURE:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_IO_DEVICE:
      return ErrorClass::kNotReady;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return ErrorClass::kExists;
    case ERROR_CANT_RESOLVE_FILENAME:
      return ErrorClass::kLoop;
    default:
      return ErrorClass::kOther;
  }
}

std::string SentenceOf(DWORD error) {
  std::array<char, 512> text{};
  const DWORD flags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  const DWORD length = FormatMessageA(flags, nullptr, error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
  std::string_view sentence(text.data(), length);
  while (!sentence.empty() &&
         (sentence.back() == '\r' || sentence.back() == '\n' || sentence.back() == ' ' || sentence.back() == '.'))
    sentence.remove_suffix(1);
  return sentence.empty() ? "error " + std::to_string(error) : TextOfCodePage(sentence);
}

}  // namespace

Status StatusOf(DWORD error) {
  return error == ERROR_FILE_TOO_LARGE ? FileMayNotGrow() : Status::Failure(ClassOf(error), SentenceOf(error));
}

Status LastFailure() { return StatusOf(GetLastError()); }

Status StatusOfResult(BOOL result) { return result != 0 ? Status::Success() : LastFailure(); }

Status NameNotInCodePage() {
  return Status::Failure(ErrorClass::kOther,
                         "The name has characters that the code page of this Windows cannot hold; rename it");
}

Status NotARegularFile() { return Status::Failure(ErrorClass::kWrongKind, "Not a regular file"); }

}  // namespace discwright::host
