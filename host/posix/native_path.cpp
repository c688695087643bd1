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

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
  std::string result;
  std::size_t start = 0;
  for (std::size_t at = text.find(what); at != text.npos; at = text.find(what, start)) {
    result.append(text, start, at - start).append(with);
    start = at + what.size();
  }
  return result.append(text, start);
}

std::string WorkingFolder() {
  std::array<char, PATH_MAX> buffer{};
  return getcwd(buffer.data(), buffer.size()) != nullptr ? std::string(buffer.data()) : std::string("/");
}

// Appends the components of `path`, which any of `separators` divides, to the native path.
void AppendComponents(std::string& native, std::string_view path, std::string_view separators) {
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of(separators), path.size());
    const std::string_view name = path.substr(0, end);
    if (!name.empty() && name != ".") native.append("/").append(name);
    path.remove_prefix(std::min(end + 1, path.size()));
  }
}

// `path` made absolute and clean; empty when it is empty or holds a NUL, which the system would read as its end.
std::string Absolute(std::string_view path, std::string_view separators) {
  if (path.empty() || path.find('\0') != path.npos) return {};
  std::string native;
  if (separators.find(path.front()) == separators.npos) AppendComponents(native, WorkingFolder(), "/");
  AppendComponents(native, path, separators);
  return native.empty() ? "/" : native;
}

}  // namespace

std::string NativePath(std::string_view path) { return ReplaceAll(Absolute(path, "\\/"), kBackslashInName, "\\"); }

std::string CoreName(std::string_view native_name) { return ReplaceAll(native_name, "\\", kBackslashInName); }

std::string PathFromNative(std::string_view native) {
  std::string path = CoreName(Absolute(native, "/"));
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
