// Collects what keeps an image from being made. Problems holds one sentence for each file at fault, CauseOf returns the
// cause of a failure of the operating system.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/status.h"

namespace discwright::tools::mkisofs {

// Keeps the first few problems and counts the others.
class Problems {
 public:
  static constexpr std::size_t kMostKept = 20;

  void Add(std::string_view path, std::string_view cause) { Add(std::string(path) + ": " + std::string(cause)); }
  void Add(std::string sentence) {
    if (kept_.size() < kMostKept) kept_.push_back(std::move(sentence));
    ++count_;
  }
  bool empty() const { return count_ == 0; }
  std::size_t count() const { return count_; }
  const std::vector<std::string>& kept() const { return kept_; }

 private:
  std::vector<std::string> kept_;
  std::size_t count_ = 0;
};

// Returns the cause of a failure. A full disk always has the same English words, because the build's progress monitor
// looks for them; the system's own sentence may be in another language.
inline std::string CauseOf(const host::Status& status) {
  return status.error == host::ErrorClass::kDiskFull ? "No space left on device" : status.cause;
}

}  // namespace discwright::tools::mkisofs
