// A launched program: started without a window, watched, and ended with all that it started.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "host/processes.h"
#include "host/win32/owned_handle.h"

namespace discwright::host {

// Thread-safe.
class Child {
 public:
  // For Start only.
  Child(const PROCESS_INFORMATION& started, OwnedHandle job)
      : process_(started.hProcess), id_(started.dwProcessId), job_(std::move(job)) {}

  // Starts a native command line with standard input from nothing and standard output and error to a new pipe, whose
  // other end is put into `output`. Null with the reason in `status` on failure.
  static std::shared_ptr<Child> Start(std::string command_line, OwnedHandle& output, Status& status);

  bool WaitForEnd(DWORD milliseconds) const;  // whether it has ended; INFINITE waits for it
  ProcessEnd End() const;                     // valid once it has ended

  // Ends it with what it started; whether it was running.
  bool Terminate() const;

 private:
  OwnedHandle process_;
  DWORD id_;
  OwnedHandle job_;  // holds it and all that it starts; none on systems without jobs
};

}  // namespace discwright::host
