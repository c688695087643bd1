// The launched programs that may still run; a child is what the system's own side of host/ makes of a program.
#pragma once

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

#include "host/threads.h"

namespace discwright::host {

// May be used from any thread. Does not keep a child alive.
template <typename Child>
class RunningChildren {
 public:
  void Add(const std::shared_ptr<Child>& child) {
    const std::lock_guard lock(mutex_);
    std::erase_if(children_, [](const std::weak_ptr<Child>& known) { return known.expired(); });
    children_.push_back(child);
  }

  // Calls `end` with every child that somebody still holds; returns those for which it said true.
  template <typename End>
  std::vector<std::shared_ptr<Child>> EndEach(End end) {
    const std::lock_guard lock(mutex_);
    std::vector<std::shared_ptr<Child>> ending;
    for (const std::weak_ptr<Child>& known : children_) {
      const std::shared_ptr<Child> child = known.lock();
      if (child != nullptr && end(*child)) ending.push_back(child);
    }
    return ending;
  }

 private:
  Mutex mutex_;
  std::vector<std::weak_ptr<Child>> children_;
};

}  // namespace discwright::host
