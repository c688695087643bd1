// Cuts output at line ends.
#include "host/output_pieces.h"

#include <algorithm>

namespace discwright::host {

std::string OutputPieces::Cut(std::size_t length) {
  std::string piece = held_.substr(0, length);
  held_.erase(0, length);
  return piece;
}

std::vector<std::string> OutputPieces::Add(std::string_view output, Clock::time_point now) {
  if (held_.empty()) due_ = now + hold_;
  held_.append(output);
  std::vector<std::string> pieces;
  while (!held_.empty()) {
    const std::size_t line_end = std::string_view(held_).substr(0, largest_).rfind('\n');
    if (line_end == std::string::npos && held_.size() < largest_) break;
    pieces.push_back(Cut(line_end == std::string::npos ? largest_ : line_end + 1));
    due_ = now + hold_;
  }
  return pieces;
}

std::string OutputPieces::Due(Clock::time_point now) { return now >= due_ ? Rest() : std::string(); }

std::string OutputPieces::Rest() { return Cut(held_.size()); }

}  // namespace discwright::host
