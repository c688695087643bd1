// Starts programs that are made for Windows by the command "wine", where it is installed.
#include "host/windows_programs.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "host/posix/case_lookup.h"
#include "host/posix/native_path.h"
#include "host/system.h"

namespace discwright::host {
namespace {

bool IsProgram(const std::string& native) {
  struct stat facts {};
  return stat(native.c_str(), &facts) == 0 && S_ISREG(facts.st_mode) && access(native.c_str(), X_OK) == 0;
}

// As it is shown when the line is, except where a backslash in a name would be read as a separator.
std::string AsInLine(const std::string& path) {
  const std::string native = NativePath(path);
  return native.find('\\') == native.npos ? native : path;
}

// The path of the first "wine" in the folders of PATH. An empty one would be the current folder, where nobody has
// installed a program.
std::optional<std::string> FindWine() {
  const char* const list = std::getenv("PATH");
  for (std::string_view folders = list != nullptr ? list : ""; !folders.empty();) {
    const std::size_t end = std::min(folders.find(':'), folders.size());
    const std::string wine = NativeJoin(folders.substr(0, end), "wine");
    if (end > 0 && IsProgram(wine)) return AsInLine(PathFromNative(wine));
    folders.remove_prefix(std::min(end + 1, folders.size()));
  }
  return std::nullopt;
}

// The path of a program that the user has put in quotes, as on Windows, where they go to the system with the line.
std::string_view WithoutQuotes(std::string_view program) {
  const bool is_quoted = program.size() >= 2 && program.front() == '"' && program.back() == '"';
  return is_quoted ? program.substr(1, program.size() - 2) : program;
}

// A program at the start of a line. A quote cannot stand between quotes there; without them the line's reader finds
// the end of the program by itself.
std::string QuotedProgram(const std::string& path) { return path.find('"') == path.npos ? "\"" + path + "\"" : path; }

// One argument of a line, see SplitArguments.
std::string Quoted(std::string_view argument) {
  std::string quoted = "\"";
  std::size_t backslashes = 0;
  for (const char character : argument) {
    if (character == '"') quoted.append(backslashes + 1, '\\');
    backslashes = character == '\\' ? backslashes + 1 : 0;
    quoted += character;
  }
  return quoted.append(backslashes, '\\').append("\"");
}

// Drive Z: of Wine is the whole file system, unless the user has changed that.
std::string PathUnderWine(std::string native) {
  std::replace(native.begin(), native.end(), '/', '\\');
  return "Z:" + native;
}

}  // namespace

std::optional<std::string> WindowsProgramLine(std::string_view program, std::string_view option,
                                              std::string_view path) {
  const std::optional<std::string> wine = FindWine();
  if (!wine) return std::nullopt;
  std::string line = QuotedProgram(*wine);
  line.append(" ").append(Quoted(RealPath(WithoutQuotes(program))));
  return line.append(" ").append(Quoted(std::string(option).append(PathUnderWine(RealPath(path)))));
}

}  // namespace discwright::host
