// Owns a handle of the system and closes it in its destructor: const OwnedHandle file(CreateFileA(...)).
#pragma once

#include <windows.h>

#include <utility>

namespace discwright::host {

// Holds null when there is no handle. INVALID_HANDLE_VALUE becomes null.
class OwnedHandle {
 public:
  OwnedHandle() = default;
  explicit OwnedHandle(HANDLE handle) : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
  OwnedHandle(OwnedHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  OwnedHandle& operator=(OwnedHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  OwnedHandle(const OwnedHandle&) = delete;
  OwnedHandle& operator=(const OwnedHandle&) = delete;
  ~OwnedHandle() { Close(); }

  HANDLE get() const { return handle_; }
  bool valid() const { return handle_ != nullptr; }
  void Close() {
    if (handle_ != nullptr) CloseHandle(std::exchange(handle_, nullptr));
  }

 private:
  HANDLE handle_ = nullptr;
};

}  // namespace discwright::host
