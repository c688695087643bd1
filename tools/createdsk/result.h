// What a step of making a disk came to: success, or one sentence for the user that names the place, the cause and the
// remedy.
#pragma once

#include <string>
#include <utility>

namespace discwright::tools {

struct [[nodiscard]] Result {
  std::string failure;  // empty on success

  bool ok() const { return failure.empty(); }
  static Result Success() { return {}; }
  static Result Failure(std::string failure) { return {std::move(failure)}; }
};

}  // namespace discwright::tools
