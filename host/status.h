// How calls of the host fail: they return a Status, or a Result when they also give something. Failures are sorted into
// the few classes that a user can act on.
#pragma once

#include <string>
#include <type_traits>
#include <utility>

namespace discwright::host {

enum class ErrorClass {
  kNone,
  kNotFound,      // the name, or a folder on the way to it, is not there
  kAccessDenied,  // read only, locked, or in use
  kDiskFull,
  kTooLarge,   // the file is larger than it may be, or may not grow any more
  kNotReady,   // the drive or device gave an input/output error
  kExists,     // the name, or one that differs only in letter case, is taken
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

// The system does not let a file grow. Unlike for a full disk, making room does not help.
inline Status FileMayNotGrow() {
  return Status::Failure(ErrorClass::kTooLarge,
                         "the file may not grow any more: the file system (FAT: 4 GB) or a limit of this account does "
                         "not allow it");
}

// What a call that gives something and can fail gives back:
//
//   const Result<std::string> content = ReadWholeFile(path);
//   if (!content.ok()) return content.status;
//   Use(content.value);
template <typename T>
struct [[nodiscard]] Result {
  T value{};      // without content, null or 0 after a failure
  Status status;  // not ok: why there is no value

  Result() = default;
  // Both are implicit, for "return failure;" and "return value;".
  Result(Status failure) : status(std::move(failure)) {}  // NOLINT(google-explicit-constructor)
  // Takes what becomes a T, which no Result does: copies and moves are not taken for it.
  template <typename Given, typename = std::enable_if_t<std::is_convertible_v<Given, T>>>
  Result(Given&& given) : value(std::forward<Given>(given)) {}  // NOLINT(google-explicit-constructor)

  bool ok() const { return status.ok(); }
};

}  // namespace discwright::host
