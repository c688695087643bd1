// Looks for a program in PATH and writes the line that starts it.
#include "host/posix/installed_program.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "host/names.h"
#include "host/posix/native_path.h"

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

// The path of the first program `name` in the folders of PATH. An empty folder would be the current one, where nobody
// has installed a program.
std::optional<std::string> FindInPath(std::string_view name) {
  const char* const list = std::getenv("PATH");
  for (std::string_view folders = list != nullptr ? list : ""; !folders.empty();) {
    const std::size_t end = std::min(folders.find(':'), folders.size());
    const std::string program = NativeJoin(folders.substr(0, end), name);
    if (end > 0 && IsProgram(program)) return AsInLine(PathFromNative(program));
    folders.remove_prefix(std::min(end + 1, folders.size()));
  }
  return std::nullopt;
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

}  // namespace

std::optional<std::string> InstalledProgramLine(std::string_view name, const std::vector<std::string>& arguments) {
  const std::optional<std::string> program = FindInPath(name);
  if (!program) return std::nullopt;
  std::string line = QuotedProgram(*program);
  for (const std::string& argument : arguments) line.append(" ").append(Quoted(argument));
  return line;
}

}  // namespace discwright::host
