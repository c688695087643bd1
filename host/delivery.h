// What passes from the thread that reads a program's output to the thread that is told of it.
#pragma once

#include <deque>
#include <functional>
#include <string>

#include "host/processes.h"
#include "host/threads.h"

namespace discwright::host {

// A bounded queue of output pieces followed by the program's end.
class Delivery {
 public:
  explicit Delivery(std::function<void()> wake) : wake_(std::move(wake)) {}

  // The reader's side. Put waits while the queue is full; what is put after the release is dropped.
  void Put(std::string piece);
  void PutEnd(ProcessEnd end);

  // The receiver's side. Take: the next piece, false when there is none at the moment. TakeEnd: true once, when the
  // program has ended and every piece was taken.
  std::size_t Pending() const;
  bool Take(std::string& piece);
  bool TakeEnd();
  ProcessEnd end() const;

  // From its return on nothing can be taken and `wake` is not called again.
  void Release();
  bool released() const;

 private:
  void Wake();

  mutable Mutex mutex_;
  Condition room_;
  std::deque<std::string> pieces_;
  ProcessEnd end_;
  bool has_ended_ = false;
  bool end_taken_ = false;
  bool released_ = false;
  Mutex wake_mutex_;  // held during a call of wake_
  std::function<void()> wake_;
};

}  // namespace discwright::host
