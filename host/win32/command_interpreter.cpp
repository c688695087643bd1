// Writes command lines for cmd.exe and command.com, which differ in their quotes and names.
#include "host/win32/command_interpreter.h"

#include <windows.h>

#include <algorithm>
#include <array>

#include "host/command_line.h"
#include "host/win32/windows_version.h"

namespace discwright::host {
namespace {

// The environment variable for the path of a script that cmd.exe would change.
constexpr const char* kScriptVariable = "DISCWRIGHT_SCRIPT";

bool IsFile(const std::string& native) {
  const DWORD attributes = GetFileAttributesA(native.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// Compares in any letter case.
bool EndsWith(const std::string& native, std::string_view end) {
  return native.size() >= end.size() && lstrcmpiA(native.c_str() + native.size() - end.size(), end.data()) == 0;
}

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

std::string Interpreter() {
  std::array<char, MAX_PATH> path{};
  const DWORD length = GetEnvironmentVariableA("COMSPEC", path.data(), static_cast<DWORD>(path.size()));
  if (length > 0 && length < path.size()) return {path.data(), length};
  return IsNtFamily() ? "cmd.exe" : "command.com";
}

// cmd.exe removes the outer pair of quotes. It would replace variables in a path with percent signs, but it does not do
// so in the value of a variable.
std::string ByCmd(const std::string& interpreter, const std::string& script, std::string_view arguments) {
  const bool has_percent = script.find('%') != script.npos;
  if (has_percent) SetEnvironmentVariableA(kScriptVariable, script.c_str());
  const std::string name = has_percent ? "%" + std::string(kScriptVariable) + "%" : script;
  return Quoted(interpreter) + " /c " + Quoted(Quoted(name).append(arguments));
}

// command.com is a DOS program, which can only be relied on to handle short names.
std::string ByCommandCom(const std::string& interpreter, const std::string& script, std::string_view arguments) {
  std::array<char, MAX_PATH> short_path{};
  const DWORD length = GetShortPathNameA(script.c_str(), short_path.data(), static_cast<DWORD>(short_path.size()));
  std::string name = length > 0 && length < short_path.size() ? short_path.data() : script;
  if (name.find(' ') != name.npos) name = Quoted(name);
  return interpreter + " /c " + name.append(arguments);
}

}  // namespace

std::string RunnableLine(std::string_view native) {
  const std::vector<LeadingPart> parts = LeadingParts(native);
  for (const LeadingPart& part : parts) {
    const std::string program(part.program);
    if (IsFile(program) && EndsWith(program, ".bat")) {
      const std::string interpreter = Interpreter();
      return EndsWith(interpreter, "command.com") ? ByCommandCom(interpreter, program, part.arguments)
                                                  : ByCmd(interpreter, program, part.arguments);
    }
    if (IsFile(program) || IsFile(program + ".exe")) break;
  }
  return std::string(native.substr(std::min(native.find_first_not_of(" \t"), native.size())));
}

}  // namespace discwright::host
