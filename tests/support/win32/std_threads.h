// std::mutex and std::condition_variable for GoogleTest's headers. The C++ library of this compiler lacks them.
#pragma once

#include <mutex>

#include "host/threads.h"

namespace std {

using mutex = discwright::host::Mutex;

class condition_variable {
 public:
  void notify_all() { condition_.NotifyAll(); }
  template <typename Predicate>
  void wait(unique_lock<mutex>& lock, Predicate predicate) {
    while (!predicate()) condition_.Wait(*lock.mutex());
  }

 private:
  discwright::host::Condition condition_;
};

}  // namespace std
