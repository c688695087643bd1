// Passes the output of a launched program from the thread that reads it to the thread that shows it. The reading thread
// calls Add and AddEnd, the showing thread calls Take and TakeEnd.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "host/processes.h"
#include "host/threads.h"

namespace discwright::host {

// Cuts output into pieces at line ends and keeps them until they are taken. A piece has at most `largest` bytes. An
// unfinished line becomes a piece when it has this size, or when it was held back for the time `hold`.
class OutputQueue {
 public:
  using Clock = std::chrono::steady_clock;

  // `wake` is called after every piece and after the end, by the thread that adds them. The queue is locked meanwhile,
  // so `wake` must not use it.
  OutputQueue(std::size_t largest, std::chrono::milliseconds hold, std::function<void()> wake)
      : largest_(largest), hold_(hold), wake_(std::move(wake)) {}

  // These functions are for the reading thread. Add waits while the queue is full. It also adds an unfinished line that
  // is due, even when `output` is empty. AddEnd adds the text that is still held back, and then the end.
  void Add(std::string_view output, Clock::time_point now);
  void AddEnd(ProcessEnd end);
  // Stores an exception of the reading thread. TakeEnd throws it on the showing thread, which then ends the build.
  void AddFailure(std::exception_ptr failure);
  // The time until the unfinished line is due; `hold` when there is no unfinished line.
  int MillisecondsToWait(Clock::time_point now) const;

  // These functions are for the showing thread. Take returns the next piece. TakeEnd returns the end once, after the
  // last piece was taken.
  std::size_t PieceCount() const;
  std::optional<std::string> Take();
  std::optional<ProcessEnd> TakeEnd();
  // Afterwards nothing can be taken, added output is dropped, and `wake` is not called again.
  void Release();

 private:
  void AddPiece(std::size_t length);

  const std::size_t largest_;
  const std::chrono::milliseconds hold_;
  std::string held_;       // for the reading thread: the unfinished line
  Clock::time_point due_;  // for the reading thread: when the unfinished line becomes a piece

  mutable Mutex mutex_;  // guards all members below
  Condition has_room_;
  std::deque<std::string> pieces_;
  std::optional<ProcessEnd> end_;
  std::exception_ptr failure_;
  bool released_ = false;
  std::function<void()> wake_;
};

}  // namespace discwright::host
