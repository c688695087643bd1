// Hands output from the reading thread to the receiving one.
#include "host/delivery.h"

#include <mutex>

namespace discwright::host {
namespace {

// Bounds the memory of output that nobody fetches; the program then waits for its reader.
constexpr std::size_t kMostPending = 64;

}  // namespace

void Delivery::Put(std::string piece) {
  {
    const std::lock_guard lock(mutex_);
    while (!released_ && pieces_.size() >= kMostPending) room_.Wait(mutex_);
    if (released_) return;
    pieces_.push_back(std::move(piece));
  }
  Wake();
}

void Delivery::PutEnd(ProcessEnd end) {
  {
    const std::lock_guard lock(mutex_);
    end_ = std::move(end);
    has_ended_ = true;
  }
  Wake();
}

std::size_t Delivery::Pending() const {
  const std::lock_guard lock(mutex_);
  return pieces_.size();
}

bool Delivery::Take(std::string& piece) {
  const std::lock_guard lock(mutex_);
  if (released_ || pieces_.empty()) return false;
  piece = std::move(pieces_.front());
  pieces_.pop_front();
  room_.NotifyOne();
  return true;
}

bool Delivery::TakeEnd() {
  const std::lock_guard lock(mutex_);
  if (released_ || !has_ended_ || end_taken_ || !pieces_.empty()) return false;
  end_taken_ = true;
  return true;
}

ProcessEnd Delivery::end() const {
  const std::lock_guard lock(mutex_);
  return end_;
}

void Delivery::Release() {
  {
    const std::lock_guard lock(mutex_);
    released_ = true;
    pieces_.clear();
    room_.NotifyOne();
  }
  const std::lock_guard lock(wake_mutex_);
  wake_ = nullptr;
}

bool Delivery::released() const {
  const std::lock_guard lock(mutex_);
  return released_;
}

void Delivery::Wake() {
  const std::lock_guard lock(wake_mutex_);
  if (wake_) wake_();
}

}  // namespace discwright::host
