// Compares a password with what is typed. The typed bytes are not kept, so that a password may have any length.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace discwright::loader {

class PasswordEntry {
 public:
  void Begin(std::string_view password);
  void Type(std::uint8_t byte);
  void EraseLast();
  [[nodiscard]] bool IsRight() const { return typed_ == password_.size() && right_ == typed_; }
  [[nodiscard]] std::size_t typed() const { return typed_; }

 private:
  std::string_view password_;
  std::size_t typed_ = 0;
  std::size_t right_ = 0;  // how many of the first typed bytes are those of the password
};

}  // namespace discwright::loader
