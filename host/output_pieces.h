// Cutting a program's output into pieces at line ends.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace discwright::host {

// Collects output. A piece is never larger than the largest size, ends after the last line end that fits, and holds an
// unfinished line only when that alone fills it or has been held back long enough.
class OutputPieces {
 public:
  using Clock = std::chrono::steady_clock;

  OutputPieces(std::size_t largest, std::chrono::milliseconds hold) : largest_(largest), hold_(hold) {}

  // Adds output that arrived at `now`; the pieces that it completes.
  std::vector<std::string> Add(std::string_view output, Clock::time_point now);

  // The unfinished line when it must not be held back longer; empty otherwise.
  std::string Due(Clock::time_point now);
  std::string Rest();  // whatever is left

  bool IsHolding() const { return !held_.empty(); }
  Clock::time_point due_time() const { return due_; }  // of the unfinished line

 private:
  std::string Cut(std::size_t length);

  std::size_t largest_;
  std::chrono::milliseconds hold_;
  std::string held_;
  Clock::time_point due_;
};

}  // namespace discwright::host
