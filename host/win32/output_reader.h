// The thread's work that follows a launched program from its first output to its end.
#pragma once

#include <chrono>
#include <memory>

#include "host/delivery.h"
#include "host/output_pieces.h"
#include "host/win32/child.h"

namespace discwright::host {

class OutputReader {
 public:
  // Reads `pipe` (the program's standard output and error) until the child has ended.
  OutputReader(OwnedHandle pipe, std::shared_ptr<Child> child, std::shared_ptr<Delivery> delivery, int buffer_size,
               int poll_interval);

  // Returns when nobody can write to the pipe any more; the end is delivered as soon as the child itself has ended.
  void Run();

 private:
  using Clock = OutputPieces::Clock;

  DWORD Waiting() const;
  void Read(DWORD most);
  void ReadWhatIsThere();
  void DropTheRest();
  DWORD MillisecondsToWait(Clock::time_point now, DWORD pause) const;
  void Put(const std::string& piece);

  OwnedHandle pipe_;
  std::shared_ptr<Child> child_;
  std::shared_ptr<Delivery> delivery_;
  DWORD poll_interval_;  // milliseconds
  OutputPieces pieces_;
};

}  // namespace discwright::host
