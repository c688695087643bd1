// What keeps an image from being made, one sentence for each file that is to blame.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace discwright::tools::mkisofs {

// Keeps the first few and counts the others.
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

}  // namespace discwright::tools::mkisofs
