// Reads and writes profile files and the registry with the system's calls. Profile files in UTF-8, which these calls do
// not support, are read and written as text. So are values that the ANSI code page cannot hold.
#include "host/profile.h"

#include <windows.h>

#include "base/ini_text.h"
#include "base/paths.h"
#include "base/utf8.h"
#include "host/files.h"
#include "host/names.h"
#include "host/native_text.h"
#include "host/win32/errors.h"
#include "host/win32/file_facts.h"
#include "host/win32/native_path.h"

namespace discwright::host {
namespace {

// The default value that is passed to the call. No value in a file can be equal to it, so it means that the key does
// not exist.
constexpr const char* kNoValue = "\n";

// The arguments of the system's calls.
struct NativeKey {
  std::string file;
  std::string section;
  std::string key;
};

// The full path of a profile file. The calls look for a name without a folder in the folder of Windows.
std::string PlaceOf(std::string_view file) {
  const bool is_bare = !file.empty() && base::NameOf(file) == file;
  const std::string windows = is_bare ? WindowsFolder() : "";
  return windows.empty() ? PathFromNative(file) : base::InFolder(windows, file);
}

// Returns std::nullopt when the ANSI code page cannot hold one of them.
std::optional<NativeKey> ToNative(std::string_view file, std::string_view section, std::string_view key) {
  const std::optional<std::string> native_file = NativePath(file);
  const std::optional<std::string> native_section = CodePageBytes(section);
  const std::optional<std::string> native_key = CodePageBytes(key);
  if (!native_file || !native_section || !native_key) return std::nullopt;
  return NativeKey{*native_file, *native_section, *native_key};
}

// Windows 95 to Me keep the last used profile in memory. It is dropped, because other programs write these files, too.
void DropKeptProfile(const std::string& file) { WritePrivateProfileStringA(nullptr, nullptr, nullptr, file.c_str()); }

// Owns an open registry key and closes it in its destructor. The key is null when it could not be opened.
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

ProfileValue ReadProfileValue(std::string_view file_name, std::string_view section, std::string_view key) {
  const std::string file = PlaceOf(file_name);
  const Result<std::string> bytes = ReadWholeFile(file);
  if (bytes.status.error == ErrorClass::kNotFound) return ProfileValue();
  if (!bytes.ok()) return bytes.status;
  const std::optional<NativeKey> native = ToNative(file, section, key);
  if (!native || base::IsUtf8File(bytes.value)) return ReadTextProfile(file, section, key);
  DropKeptProfile(native->file);
  std::string value(bytes.value.size() + 3, '\0');  // longer than any value, and than the default
  value.resize(GetPrivateProfileStringA(native->section.c_str(), native->key.c_str(), kNoValue, value.data(),
                                        static_cast<DWORD>(value.size()), native->file.c_str()));
  return value == kNoValue ? ProfileValue() : ProfileValue(TextOfCodePage(value));
}

Status WriteProfileValue(std::string_view file_name, std::string_view section, std::string_view key,
                         std::string_view value) {
  const std::string file = PlaceOf(file_name);
  const Result<std::string> bytes = ReadWholeFile(file);
  if (!bytes.ok() && bytes.status.error != ErrorClass::kNotFound) return bytes.status;
  const std::optional<NativeKey> native = ToNative(file, section, key);
  const std::optional<std::string> native_value = CodePageBytes(base::OneLine(value));
  // The value is written as text when its bytes could make the file look like UTF-8 by chance. So it is when the file
  // is a link, because the system's call would change the link's target.
  if (!native || !native_value || base::IsUtf8File(bytes.value) || base::IsUtf8File(*native_value) ||
      IsLink(AnsiPath(file))) {
    return WriteTextProfile(file, section, key, value);
  }
  Status written = StatusOfResult(WritePrivateProfileStringA(native->section.c_str(), native->key.c_str(),
                                                             native_value->c_str(), native->file.c_str()));
  DropKeptProfile(native->file);
  return written;
}

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
  // Most programs store a value with a NUL at its end, but not all.
  return TextOfCodePage(std::string_view(bytes).substr(0, bytes.find('\0')));
}

}  // namespace discwright::host
