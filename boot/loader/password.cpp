// Compares a password with what is typed.
#include "boot/loader/password.h"

namespace discwright::loader {

void PasswordEntry::Begin(std::string_view password) {
  password_ = password;
  typed_ = 0;
  right_ = 0;
}

void PasswordEntry::Type(std::uint8_t byte) {
  if (right_ == typed_ && right_ < password_.size() && static_cast<std::uint8_t>(password_[right_]) == byte) ++right_;
  ++typed_;
}

void PasswordEntry::EraseLast() {
  if (typed_ != 0) --typed_;
  if (right_ > typed_) right_ = typed_;
}

}  // namespace discwright::loader
