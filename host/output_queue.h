// The output of a launched program on its way from the thread that reads it to the thread that shows it.
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

// Cuts output into pieces at line ends and keeps them until they are taken. A piece is never larger than `largest`
// bytes. An unfinished line becomes a piece when it fills one, or when it was held back for `hold`.
class OutputQueue {
 public:
  using Clock = std::chrono::steady_clock;

  // `wake` is called after every piece and after the end, by the thread that adds them. The queue is locked meanwhile,
  // so `wake` must not use it.
  OutputQueue(std::size_t largest, std::chrono::milliseconds hold, std::function<void()> wake)
      : largest_(largest), hold_(hold), wake_(std::move(wake)) {}

  // For the thread that reads. Add waits while the queue is full, and puts an unfinished line that is due into the
  // queue even when `output` is empty. AddEnd puts in what is held back, and then the end.
  void Add(std::string_view output, Clock::time_point now);
  void AddEnd(ProcessEnd end);
  // What the reading thread threw. TakeEnd throws it on the thread that shows, which then ends the build.
  void AddFailure(std::exception_ptr failure);
  // The time until the unfinished line is due; `hold` when there is none.
  int MillisecondsToWait(Clock::time_point now) const;

  // For the thread that shows. Take gives the next piece; TakeEnd gives the end once, after the last piece was taken.
  std::size_t PieceCount() const;
  std::optional<std::string> Take();
  std::optional<ProcessEnd> TakeEnd();
  // After this nothing can be taken, what is added is dropped, and `wake` is not called again.
  void Release();

 private:
  void AddPiece(std::size_t length);

  const std::size_t largest_;
  const std::chrono::milliseconds hold_;
  std::string held_;       // of the thread that reads: the unfinished line
  Clock::time_point due_;  // of the thread that reads: when the unfinished line becomes a piece

  mutable Mutex mutex_;  // guards all that follows
  Condition has_room_;
  std::deque<std::string> pieces_;
  std::optional<ProcessEnd> end_;
  std::exception_ptr failure_;
  bool released_ = false;
  std::function<void()> wake_;
};

}  // namespace discwright::host
