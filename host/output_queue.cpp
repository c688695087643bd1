// Cuts output at line ends and passes it from one thread to another.
#include "host/output_queue.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace discwright::host {
namespace {

// This limits the memory for output that is not taken. When the queue is full, the program waits until its pipe is read
// again.
constexpr std::size_t kMostPieces = 64;

}  // namespace

void OutputQueue::Add(std::string_view output, Clock::time_point now) {
  if (held_.empty()) due_ = now + hold_;
  held_.append(output);
  while (!held_.empty()) {
    const std::size_t line_end = std::string_view(held_).substr(0, largest_).rfind('\n');
    const bool has_line = line_end != std::string::npos;
    if (!has_line && held_.size() < largest_) break;
    AddPiece(has_line ? line_end + 1 : largest_);
    due_ = now + hold_;
  }
  if (now >= due_) AddPiece(held_.size());
}

void OutputQueue::AddEnd(ProcessEnd end) {
  AddPiece(held_.size());
  const std::lock_guard lock(mutex_);
  end_ = std::move(end);
  if (!released_ && wake_) wake_();
}

void OutputQueue::AddFailure(std::exception_ptr failure) {
  const std::lock_guard lock(mutex_);
  failure_ = std::move(failure);
  if (!released_ && wake_) wake_();
}

void OutputQueue::AddPiece(std::size_t length) {
  if (length == 0) return;
  std::string piece = held_.substr(0, length);
  held_.erase(0, length);
  const std::lock_guard lock(mutex_);
  while (!released_ && pieces_.size() >= kMostPieces) has_room_.Wait(mutex_);
  if (released_) return;
  pieces_.push_back(std::move(piece));
  if (wake_) wake_();
}

int OutputQueue::MillisecondsToWait(Clock::time_point now) const {
  const auto left = held_.empty() ? hold_ : std::chrono::ceil<std::chrono::milliseconds>(due_ - now);
  return static_cast<int>(std::max<std::chrono::milliseconds::rep>(left.count(), 0));
}

std::size_t OutputQueue::PieceCount() const {
  const std::lock_guard lock(mutex_);
  return pieces_.size();
}

std::optional<std::string> OutputQueue::Take() {
  const std::lock_guard lock(mutex_);
  if (pieces_.empty()) return std::nullopt;
  std::string piece = std::move(pieces_.front());
  pieces_.pop_front();
  has_room_.NotifyOne();
  return piece;
}

std::optional<ProcessEnd> OutputQueue::TakeEnd() {
  const std::lock_guard lock(mutex_);
  if (released_ || !pieces_.empty()) return std::nullopt;
  if (failure_) std::rethrow_exception(failure_);
  return std::exchange(end_, std::nullopt);
}

void OutputQueue::Release() {
  const std::lock_guard lock(mutex_);
  released_ = true;
  pieces_.clear();
  has_room_.NotifyOne();
}

}  // namespace discwright::host
