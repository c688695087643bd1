// What a call into the operating system came to, folded into the few classes that a user can act on.
#pragma once

#include <string>
#include <utility>

namespace discwright::host {

enum class ErrorClass {
  kNone,
  kNotFound,      // the name, or a folder on the way to it, is not there
  kAccessDenied,  // read only, locked, or in use
  kDiskFull,
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

}  // namespace discwright::host
