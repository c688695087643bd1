// What every system's launcher shares: its settings, and handing over what a delivery holds.
#pragma once

#include <functional>
#include <memory>

#include "host/delivery.h"
#include "host/processes.h"

namespace discwright::host {

// Left to the system: Start, which gives the delivery to the thread that reads.
class DeliveringLauncher : public Launcher {
 public:
  explicit DeliveringLauncher(std::function<void()> wake) : delivery_(std::make_shared<Delivery>(std::move(wake))) {}
  DeliveringLauncher(const DeliveringLauncher&) = delete;
  DeliveringLauncher& operator=(const DeliveringLauncher&) = delete;
  ~DeliveringLauncher() override { delivery_->Release(); }

  void Configure(int buffer_size, int poll_interval) override;
  void Deliver() override;
  ProcessEnd End() const override { return delivery_->end(); }

 protected:
  const std::shared_ptr<Delivery>& delivery() const { return delivery_; }
  int buffer_size() const { return buffer_size_; }      // bytes, at least 1
  int poll_interval() const { return poll_interval_; }  // milliseconds, never so few that looking is busy waiting

 private:
  std::shared_ptr<Delivery> delivery_;
  int buffer_size_ = 8192;
  int poll_interval_ = 500;
};

}  // namespace discwright::host
