// Defines Result, the return type of every step of a tool that can fail and so end the run. A step ends with `return
// Result::Success()` or `return Result::Failure("the image is full")`.
#pragma once

#include <string>
#include <utility>

namespace discwright::tools {

// Either success or a sentence for the user that names the place, the cause and, where there is one, the remedy.
struct [[nodiscard]] Result {
  std::string failure;  // the sentence; empty on success

  bool ok() const { return failure.empty(); }
  static Result Success() { return {}; }
  static Result Failure(std::string failure) { return {std::move(failure)}; }
};

}  // namespace discwright::tools
