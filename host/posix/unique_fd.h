// Owns a file descriptor and closes it in its destructor: const UniqueFd fd(open(...)).
#pragma once

#include <unistd.h>

#include <utility>

namespace discwright::host {

class UniqueFd {
 public:
  UniqueFd() = default;
  explicit UniqueFd(int fd) : fd_(fd) {}
  UniqueFd(UniqueFd&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  UniqueFd& operator=(UniqueFd&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  UniqueFd(const UniqueFd&) = delete;
  UniqueFd& operator=(const UniqueFd&) = delete;
  ~UniqueFd() { Close(); }

  int get() const { return fd_; }
  bool valid() const { return fd_ >= 0; }
  int Release() { return std::exchange(fd_, -1); }
  // Returns the result of close(), or 0 when there was no descriptor to close.
  int Close() {
    const int fd = Release();
    return fd >= 0 ? close(fd) : 0;
  }

 private:
  int fd_ = -1;
};

}  // namespace discwright::host
