// Writes the parts of batch files for cmd.exe and command.com.
#include "host/script.h"

#include <windows.h>

#include "host/names.h"
#include "host/native_text.h"
#include "host/win32/errors.h"
#include "host/win32/native_text.h"

namespace discwright::host {
namespace {

// The characters that separate arguments or have a special meaning for a shell. None of them is outside ASCII.
constexpr std::string_view kSpecial = " \t&()^;,=%!|<>";

// The short form of an absolute path. When the path does not exist yet, the short form of its folder, with the name
// itself.
std::string Shortened(const std::string& path) {
  if (std::string short_path = ShortPath(path); !short_path.empty()) return short_path;
  const std::size_t separator = path.rfind('\\');
  if (separator == path.npos) return path;
  // The path of a drive's root must end in its separator.
  std::string folder = ShortPath(path.substr(0, separator + 1));
  if (folder.empty()) return path;
  if (!folder.ends_with('\\')) folder += '\\';
  return folder + path.substr(separator + 1);
}

std::string WithoutQuotes(std::string_view path) {
  std::string without(path);
  std::erase(without, '"');  // no name contains a quote
  return without;
}

// Writes one argument of a line in a batch file, where a percent sign must be doubled to stand for itself.
std::string Argument(const std::string& text) {
  if (text.find_first_of(kSpecial) == text.npos) return text;
  std::string quoted = "\"";
  for (const char character : text) quoted.append(character == '%' ? 2 : 1, character);
  return quoted + "\"";
}

}  // namespace

std::array<std::string, 3> ScriptPrologue(std::string_view folder) {
  const std::string argument = ScriptPath(folder);
  // The shell cannot have a current folder on another computer; pushd gives it a drive there.
  if (folder.starts_with("\\\\")) return {"@echo off", "rem The program is on another computer.", "pushd " + argument};
  return {"@echo off", std::string(folder.substr(0, 2)), "cd " + argument};
}

std::string ScriptProgram(std::string_view name) { return Argument(std::string(name)); }

std::string ScriptPath(std::string_view path) {
  return Argument(FoldCase(Shortened(PathFromNative(WithoutQuotes(path)))));
}

std::string_view ScriptLineEnd() { return "\r\n"; }

// Both shells read scripts in the OEM code page. In the ANSI code page, a name with characters outside ASCII would be
// read as another name.
Result<std::string> ScriptBytes(std::string_view text) {
  std::optional<std::string> bytes = BytesInCodePage(text, CP_OEMCP);
  if (!bytes) return NameNotInCodePage();
  return std::move(*bytes);
}

}  // namespace discwright::host
