// Quotes for cmd.exe and command.com.
#include "host/win32/shell.h"

#include <windows.h>

#include <array>

#include "host/leading_parts.h"
#include "host/win32/family.h"

namespace discwright::host {
namespace {

// Holds the path of a script that a shell would change.
constexpr const char* kScriptVariable = "DISCWRIGHT_SCRIPT";

bool IsFile(const std::string& native) {
  const DWORD attributes = GetFileAttributesA(native.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool IsBatchFile(const std::string& native) {
  return native.size() > 4 && lstrcmpiA(native.c_str() + native.size() - 4, ".bat") == 0;
}

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

std::string Shell(const char* fallback) {
  std::array<char, MAX_PATH> path{};
  const DWORD length = GetEnvironmentVariableA("COMSPEC", path.data(), static_cast<DWORD>(path.size()));
  return length > 0 && length < path.size() ? std::string(path.data(), length) : fallback;
}

// cmd.exe takes away the outer pair of quotes. It reads scripts in the code page of its console, which is not the ANSI
// code page before it is told so. It would look for variables in a path with percent signs, but not in a variable's
// text.
std::string ByCmd(const std::string& script, std::string_view arguments) {
  const bool has_percent = script.find('%') != script.npos;
  if (has_percent) SetEnvironmentVariableA(kScriptVariable, script.c_str());
  const std::string name = has_percent ? "%" + std::string(kScriptVariable) + "%" : script;
  const std::string code_page = "chcp " + std::to_string(GetOEMCP()) + ">nul 2>nul&";
  return Quoted(Shell("cmd.exe")) + " /c " + Quoted(code_page + Quoted(name).append(arguments));
}

// command.com is a DOS program, at home with short names only.
std::string ByCommandCom(const std::string& script, std::string_view arguments) {
  std::array<char, MAX_PATH> short_path{};
  const DWORD length = GetShortPathNameA(script.c_str(), short_path.data(), static_cast<DWORD>(short_path.size()));
  std::string name = length > 0 && length < short_path.size() ? short_path.data() : script;
  if (name.find(' ') != name.npos) name = Quoted(name);
  return Shell("command.com") + " /c " + name.append(arguments);
}

}  // namespace

std::string RunnableCommandLine(std::string_view native) {
  const std::string_view line = WithoutLeadingBlanks(native);
  for (const LeadingPart& part : LeadingParts(line)) {
    const std::string program(part.program);
    if (IsFile(program) && IsBatchFile(program)) {
      const std::string_view arguments = line.substr(part.length);
      return IsNtFamily() ? ByCmd(program, arguments) : ByCommandCom(program, arguments);
    }
    if (IsFile(program) || IsFile(program + ".exe")) break;
  }
  return std::string(line);
}

}  // namespace discwright::host
