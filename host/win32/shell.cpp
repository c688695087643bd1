// Quotes for cmd.exe and command.com.
#include "host/win32/shell.h"

#include <windows.h>

#include <array>

#include "host/leading_parts.h"
#include "host/win32/windows_version.h"

namespace discwright::host {
namespace {

// Holds the path of a script that a shell would change.
constexpr const char* kScriptVariable = "DISCWRIGHT_SCRIPT";

bool IsFile(const std::string& native) {
  const DWORD attributes = GetFileAttributesA(native.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// In any letter case.
bool EndsWith(const std::string& native, std::string_view end) {
  return native.size() >= end.size() && lstrcmpiA(native.c_str() + native.size() - end.size(), end.data()) == 0;
}

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

std::string Shell() {
  std::array<char, MAX_PATH> path{};
  const DWORD length = GetEnvironmentVariableA("COMSPEC", path.data(), static_cast<DWORD>(path.size()));
  if (length > 0 && length < path.size()) return {path.data(), length};
  return IsNtFamily() ? "cmd.exe" : "command.com";
}

// cmd.exe takes away the outer pair of quotes. It would look for variables in a path with percent signs, but not in a
// variable's text.
std::string ByCmd(const std::string& shell, const std::string& script, std::string_view arguments) {
  const bool has_percent = script.find('%') != script.npos;
  if (has_percent) SetEnvironmentVariableA(kScriptVariable, script.c_str());
  const std::string name = has_percent ? "%" + std::string(kScriptVariable) + "%" : script;
  return Quoted(shell) + " /c " + Quoted(Quoted(name).append(arguments));
}

// command.com is a DOS program, at home with short names only.
std::string ByCommandCom(const std::string& shell, const std::string& script, std::string_view arguments) {
  std::array<char, MAX_PATH> short_path{};
  const DWORD length = GetShortPathNameA(script.c_str(), short_path.data(), static_cast<DWORD>(short_path.size()));
  std::string name = length > 0 && length < short_path.size() ? short_path.data() : script;
  if (name.find(' ') != name.npos) name = Quoted(name);
  return shell + " /c " + name.append(arguments);
}

}  // namespace

std::string RunnableCommandLine(std::string_view native) {
  const std::string_view line = WithoutLeadingBlanks(native);
  for (const LeadingPart& part : LeadingParts(line)) {
    const std::string program(part.program);
    if (IsFile(program) && EndsWith(program, ".bat")) {
      const std::string_view arguments = line.substr(part.length);
      const std::string shell = Shell();
      return EndsWith(shell, "command.com") ? ByCommandCom(shell, program, arguments)
                                            : ByCmd(shell, program, arguments);
    }
    if (IsFile(program) || IsFile(program + ".exe")) break;
  }
  return std::string(line);
}

}  // namespace discwright::host
