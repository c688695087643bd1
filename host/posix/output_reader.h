// The thread's work that follows a launched program from its first output to its end.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>

#include "host/delivery.h"
#include "host/output_pieces.h"
#include "host/posix/child.h"
#include "host/posix/unique_fd.h"

namespace discwright::host {

class OutputReader {
 public:
  // Reads `pipe` (the program's standard output and error) until the child has ended.
  OutputReader(UniqueFd pipe, std::shared_ptr<Child> child, std::shared_ptr<Delivery> delivery, int buffer_size,
               int poll_interval);

  // Returns when nobody can write to the pipe any more; the end is delivered as soon as the child itself has ended.
  void Run();

 private:
  using Clock = OutputPieces::Clock;
  static constexpr std::size_t kPipePiece = 16384;  // bytes per read

  bool IsReadable(int milliseconds) const;
  int MillisecondsToWait(Clock::time_point now) const;
  bool ReadOnce(std::size_t most);
  void ReadWhatIsThere();
  void DropTheRest();

  UniqueFd pipe_;
  std::shared_ptr<Child> child_;
  std::shared_ptr<Delivery> delivery_;
  std::chrono::milliseconds poll_interval_;
  OutputPieces pieces_;
  Clock::time_point next_look_;  // when the child's state is looked at
};

}  // namespace discwright::host
