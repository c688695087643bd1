// Passes moves and renames to the shell's file-operation service.
#include "host/shell_operations.h"

#include <windows.h>
// This header must follow windows.h, because it needs its types.
#include <shellapi.h>

#include <algorithm>
#include <optional>

#include "host/native_text.h"

namespace discwright::host {
namespace {

// The structure is packed on 32-bit Windows only. With another layout, the service would read the wrong members.
static_assert(sizeof(void*) != 4 || sizeof(SHFILEOPSTRUCTA) == 30);

// The service's error number for a path that it cannot use.
constexpr int kInvalidFiles = 0x7C;

// Makes a list of one entry for the service. The list ends with two NULs, and every string has one already.
std::optional<std::string> ListOf(std::string_view text) {
  std::optional<std::string> ansi = CodePageBytes(text);
  if (ansi) ansi->push_back('\0');
  return ansi;
}

std::optional<std::string> PathList(std::string path) {
  // The service would take an empty list for every file of the current folder.
  if (path.empty() || path.find('\0') != path.npos) return std::nullopt;
  std::replace(path.begin(), path.end(), '/', '\\');
  return ListOf(path);
}

}  // namespace

ShellAnswer RunShellOperation(const ShellOperation& operation) {
  const std::optional<std::string> source = PathList(operation.source);
  const std::optional<std::string> destination = PathList(operation.destination);
  if (!source || !destination) return {kInvalidFiles, false};
  const std::string title = ListOf(operation.title).value_or(std::string(1, '\0'));
  SHFILEOPSTRUCTA record{};
  record.hwnd = static_cast<HWND>(operation.owner_window);
  record.wFunc = operation.verb == ShellVerb::kMove ? FO_MOVE : FO_RENAME;
  record.pFrom = source->c_str();
  record.pTo = destination->c_str();
  record.fFlags = operation.flags;
  record.lpszProgressTitle = title.c_str();
  const int number = SHFileOperationA(&record);
  return {number, record.fAnyOperationsAborted != 0};
}

}  // namespace discwright::host
