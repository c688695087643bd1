// Translates paths between the core's spelling and the system's.
#include "host/posix/native_path.h"

#include <unistd.h>
#include <climits>

#include <algorithm>
#include <array>

#include "host/names.h"

namespace discwright::host {
namespace {

constexpr std::string_view kBackslashInName = "\xEF\x81\x9C";  // U+F05C
// U+F05D stands before each U+F05C or U+F05D that belongs to the name itself.
constexpr std::string_view kEscape = "\xEF\x81\x9D";

bool IsEscaped(std::string_view text) { return text.starts_with(kBackslashInName) || text.starts_with(kEscape); }

// Appends a core name in the system's spelling.
void AppendNativeName(std::string& native, std::string_view name) {
  while (!name.empty()) {
    std::size_t length = 1;
    if (name.starts_with(kEscape) && IsEscaped(name.substr(kEscape.size()))) {
      name.remove_prefix(kEscape.size());
      length = kEscape.size();
      native.append(name, 0, length);
    } else if (name.starts_with(kBackslashInName)) {
      length = kBackslashInName.size();
      native += '\\';
    } else {
      native += name.front();
    }
    name.remove_prefix(length);
  }
}

void AppendUnchanged(std::string& native, std::string_view name) { native += name; }

std::string WorkingFolder() {
  std::array<char, PATH_MAX> buffer{};
  return getcwd(buffer.data(), buffer.size()) != nullptr ? std::string(buffer.data()) : std::string("/");
}

using AppendName = void(std::string& native, std::string_view name);

// Appends the components of `path`, which are divided by any of `separators`, to the native path.
void AppendComponents(std::string& native, std::string_view path, std::string_view separators, AppendName* append) {
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of(separators), path.size());
    const std::string_view name = path.substr(0, end);
    if (!name.empty() && name != ".") {
      native += '/';
      append(native, name);
    }
    path.remove_prefix(std::min(end + 1, path.size()));
  }
}

// `path` made absolute, without empty and "." components. Empty when it is empty or has a NUL, which the system would
// take for its end.
std::string Absolute(std::string_view path, std::string_view separators, AppendName* append) {
  if (path.empty() || path.find('\0') != path.npos) return {};
  std::string native;
  const bool is_relative = separators.find(path.front()) == separators.npos;
  if (is_relative) AppendComponents(native, WorkingFolder(), "/", AppendUnchanged);
  AppendComponents(native, path, separators, append);
  return native.empty() ? "/" : native;
}

}  // namespace

std::string NativePath(std::string_view path) { return Absolute(path, "\\/", AppendNativeName); }

std::string CoreName(std::string_view native_name) {
  std::string name;
  while (!native_name.empty()) {
    const std::size_t length = IsEscaped(native_name) ? kEscape.size() : 1;
    if (IsEscaped(native_name)) name += kEscape;
    name += native_name.front() == '\\' ? kBackslashInName : native_name.substr(0, length);
    native_name.remove_prefix(length);
  }
  return name;
}

std::string PathFromNative(std::string_view native) {
  std::string path = CoreName(Absolute(native, "/", AppendUnchanged));
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

std::string NativeFolder(const std::string& native) {
  const std::size_t slash = native.rfind('/');
  return slash == 0 || slash == native.npos ? "/" : native.substr(0, slash);
}

std::string_view NativeName(std::string_view native) { return native.substr(native.rfind('/') + 1); }

std::string NativeJoin(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.ends_with('/')) path += '/';
  return path.append(name);
}

}  // namespace discwright::host
