// Deliver, on the thread of whoever is told.
#include "host/delivering_launcher.h"

#include <algorithm>

namespace discwright::host {

void DeliveringLauncher::Configure(int buffer_size, int poll_interval) {
  constexpr int kShortestInterval = 10;
  buffer_size_ = std::max(buffer_size, 1);
  poll_interval_ = std::max(poll_interval, kShortestInterval);
}

void DeliveringLauncher::Deliver() {
  // Either function may destroy this launcher, so from here on nothing of it is used that is not held here.
  const std::shared_ptr<Delivery> delivery = delivery_;
  const auto received = data_received;
  const auto ended = process_ended;
  std::string piece;
  // Only what is there now: a program that writes faster than it is heard must not hold the caller for ever.
  for (std::size_t left = delivery->Pending(); left > 0 && delivery->Take(piece); --left) {
    if (received) received(piece);
  }
  if (delivery->TakeEnd() && ended) ended();
}

}  // namespace discwright::host
