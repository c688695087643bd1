// A child process: started, watched, ended with its group, and never left as a zombie.
#pragma once

#include <sys/types.h>

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "host/processes.h"

namespace discwright::host {

// Thread-safe. Whoever holds one must call WaitForEnd, or LookEnded until it is true, so that the child is reaped.
class Child {
 public:
  explicit Child(pid_t pid) : pid_(pid) {}

  // Starts `arguments` in a process group of its own, with default signal handlers, standard input from nothing and
  // standard output and error to `output` (-1: the parent's). Null with the reason in `status` on failure.
  static std::shared_ptr<Child> Start(const std::vector<std::string>& arguments, int output, Status& status);

  bool LookEnded();        // whether it has ended; does not wait
  void WaitForEnd();       // waits without using processor time
  ProcessEnd End() const;  // valid once it has ended

  // Sends a signal to the group while the child itself has not ended; whether it did.
  bool SignalGroup(int signal);

  // Whether anything of the group is alive, also after the child's own end; and a signal to whatever is.
  bool GroupIsAlive() const;
  void SignalWhatIsLeft(int signal) const;

 private:
  bool Reap(int options);

  const pid_t pid_;
  mutable std::mutex mutex_;  // the pid is only the child's own until it is reaped
  bool reaped_ = false;
  int wait_status_ = 0;
};

}  // namespace discwright::host
