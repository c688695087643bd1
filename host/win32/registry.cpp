// Reads the registry.
#include "host/profile.h"

#include <windows.h>

#include "host/native_text.h"

namespace discwright::host {
namespace {

// A key that is closed by its owner's end; null when it could not be opened.
class OpenKey {
 public:
  explicit OpenKey(const std::string& sub_key) {
    if (RegOpenKeyA(HKEY_LOCAL_MACHINE, sub_key.c_str(), &key_) != ERROR_SUCCESS) key_ = nullptr;
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;
  ~OpenKey() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  HKEY get() const { return key_; }

 private:
  HKEY key_ = nullptr;
};

}  // namespace

std::optional<std::string> LocalMachineText(std::string_view sub_key, std::string_view value_name) {
  const std::optional<std::string> native_key = CodePageBytes(sub_key);
  const std::optional<std::string> native_name = CodePageBytes(value_name);
  if (!native_key || !native_name) return std::nullopt;
  const OpenKey key(*native_key);
  DWORD type = 0;
  DWORD size = 0;
  if (key.get() == nullptr || RegQueryValueExA(key.get(), native_name->c_str(), nullptr, &type, nullptr, &size) != 0 ||
      (type != REG_SZ && type != REG_EXPAND_SZ))
    return std::nullopt;
  std::string bytes(size, '\0');
  auto* const buffer = reinterpret_cast<BYTE*>(bytes.data());
  if (RegQueryValueExA(key.get(), native_name->c_str(), nullptr, &type, buffer, &size) != 0) return std::nullopt;
  bytes.resize(size);
  // A value is stored with its NUL, unless whoever wrote it forgot.
  return TextOfCodePage(std::string_view(bytes).substr(0, bytes.find('\0')));
}

}  // namespace discwright::host
