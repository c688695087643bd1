// Describes how calls to the system end. A function returns a Status, or a Result when it also returns a value.
// Failures are sorted into the few classes that a user can act on.
#pragma once

#include <string>
#include <type_traits>
#include <utility>

namespace discwright::host {

enum class ErrorClass {
  kNone,
  kNotFound,      // the name, or a folder on the way to it, does not exist
  kAccessDenied,  // read only, locked, or in use
  kDiskFull,
  kTooLarge,   // the file is larger than it may be, or may not grow any more
  kNotReady,   // the drive or device reported an input/output error
  kExists,     // the name, or one that differs only in letter case, already exists
  kLoop,       // a link leads back to one of its own parents
  kWrongKind,  // a folder where a file is needed, or a device, pipe or socket
  kOther,
};

// `cause` is the system's own sentence for the failure, without the path; empty on success.
struct Status {
  ErrorClass error = ErrorClass::kNone;
  std::string cause;

  bool ok() const { return error == ErrorClass::kNone; }
  static Status Success() { return {}; }
  static Status Failure(ErrorClass error, std::string cause) { return {error, std::move(cause)}; }
};

// The failure for a file that the system does not let grow. Unlike for a full disk, deleting other files does not help.
inline Status FileMayNotGrow() {
  return Status::Failure(ErrorClass::kTooLarge,
                         "the file may not grow any more: the file system (FAT: 4 GB) or a limit of this account does "
                         "not allow it");
}

// The result of a call that returns a value and can fail:
//
//   const Result<std::string> content = ReadWholeFile(path);
//   if (!content.ok()) return content.status;
//   Use(content.value);
template <typename T>
struct [[nodiscard]] Result {
  T value{};      // empty, null or 0 after a failure
  Status status;  // not ok: why there is no value

  Result() = default;
  // These constructors are implicit, so that functions can write "return failure;" and "return value;".
  Result(Status failure) : status(std::move(failure)) {}  // NOLINT(google-explicit-constructor)
  // Accepts everything that converts to T. A Result does not convert to T, so this is never used to copy or move a
  // Result.
  template <typename Given, typename = std::enable_if_t<std::is_convertible_v<Given, T>>>
  Result(Given&& given) : value(std::forward<Given>(given)) {}  // NOLINT(google-explicit-constructor)

  bool ok() const { return status.ok(); }
};

}  // namespace discwright::host
