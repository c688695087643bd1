// Batch files for cmd.exe and command.com.
#include "host/script.h"

#include <windows.h>

#include "host/names.h"
#include "host/native_text.h"
#include "host/win32/errors.h"
#include "host/win32/native_text.h"

namespace discwright::host {
namespace {

// What separates arguments or means something to a shell. Beyond ASCII nothing does.
constexpr std::string_view kSpecial = " \t&()^;,=%!|<>";

// The short form of an absolute path; of one that is not there yet, that of its folder with its own name.
std::string Shortened(const std::string& path) {
  if (std::string short_path = ShortPath(path); !short_path.empty()) return short_path;
  const std::size_t separator = path.rfind('\\');
  if (separator == path.npos) return path;
  // The root of a drive is a folder only with its separator.
  std::string folder = ShortPath(path.substr(0, separator + 1));
  if (folder.empty()) return path;
  if (!folder.ends_with('\\')) folder += '\\';
  return folder + path.substr(separator + 1);
}

std::string WithoutQuotes(std::string_view path) {
  std::string without(path);
  std::erase(without, '"');  // no name has one
  return without;
}

// One argument of a line in a batch file, where a percent sign stands for itself only when doubled.
std::string Argument(const std::string& text) {
  if (text.find_first_of(kSpecial) == text.npos) return text;
  std::string quoted = "\"";
  for (const char character : text) quoted.append(character == '%' ? 2 : 1, character);
  return quoted + "\"";
}

}  // namespace

std::array<std::string, 3> ScriptPrologue(std::string_view folder) {
  const std::string argument = ScriptPath(folder);
  // The shell has no current folder on another computer; this gives it a drive there.
  if (folder.starts_with("\\\\")) return {"@echo off", "rem The program is on another computer.", "pushd " + argument};
  return {"@echo off", std::string(folder.substr(0, 2)), "cd " + argument};
}

std::string ScriptProgram(std::string_view name) { return Argument(std::string(name)); }

std::string ScriptPath(std::string_view path) {
  return Argument(FoldCase(Shortened(PathFromNative(WithoutQuotes(path)))));
}

std::string_view ScriptLineEnd() { return "\r\n"; }

// Both shells read scripts in the OEM code page. In the ANSI code page a name beyond ASCII would be another name there.
Result<std::string> ScriptBytes(std::string_view text) {
  std::optional<std::string> bytes = BytesInCodePage(text, CP_OEMCP);
  if (!bytes) return NameNotInCodePage();
  return std::move(*bytes);
}

}  // namespace discwright::host
