// Finds programs, and writes the command lines that start them.
#include "host/posix/find_program.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "host/command_line.h"
#include "host/names.h"
#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/native_path.h"
#include "host/processes.h"

namespace discwright::host {
namespace {

bool EndsWithExtension(std::string_view name, std::string_view extension) {
  return FoldCase(name).ends_with(extension);
}

bool IsFile(const std::string& native) {
  struct stat facts {};
  return stat(native.c_str(), &facts) == 0 && S_ISREG(facts.st_mode);
}

bool IsExecutable(const std::string& native) { return access(native.c_str(), X_OK) == 0; }

// The spellings in which a program is looked for: as written, and with ".exe" removed or added.
std::vector<std::string> Spellings(std::string_view program) {
  if (program.empty()) return {};
  if (EndsWithExtension(program, ".exe")) {
    return {std::string(program), std::string(program.substr(0, program.size() - 4))};
  }
  return {std::string(program), std::string(program) + ".exe"};
}

Status FailureOf(std::string_view program, int error) {
  Status status = StatusOf(error);
  status.cause.append(": ").append(PathToNative(program));
  return status;
}

// The first arguments of the command, which start `program`. Empty when it cannot be started; then `refused` has the
// reason, unless the file just does not exist.
std::vector<std::string> StartOf(std::string_view program, Status& refused) {
  for (const std::string& spelling : Spellings(program)) {
    const Result<std::string> found = RealPath(spelling);
    if (!found.ok() && refused.ok()) refused = found.status;
    const std::string& native = found.value;
    if (!found.ok() || !IsFile(native)) continue;
    if (EndsWithExtension(native, ".bat")) return {"/bin/sh", native};
    if (IsExecutable(native)) return {native};
    if (refused.ok()) refused = FailureOf(program, EACCES);
  }
  return {};
}

// A path as a line contains it: in the native spelling, which is the one to show. A native path with a backslash in a
// name would be read as another path, so it stays a core path.
std::string AsInLine(const std::string& path) {
  const std::string native = NativePath(path);
  return native.find('\\') == native.npos ? native : path;
}

// An empty folder in PATH means the current folder, where no programs are installed, so it is skipped.
std::optional<std::string> FindInPath(std::string_view name) {
  const char* const list = std::getenv("PATH");
  for (std::string_view folders = list != nullptr ? list : ""; !folders.empty();) {
    const std::size_t end = std::min(folders.find(':'), folders.size());
    const std::string program = NativeJoin(folders.substr(0, end), name);
    if (end > 0 && IsFile(program) && IsExecutable(program)) return AsInLine(PathFromNative(program));
    folders.remove_prefix(std::min(end + 1, folders.size()));
  }
  return std::nullopt;
}

// Puts the path of a program in quotes for the start of a command line. A path that contains a quote stays without
// quotes, because the part in quotes would end there. ParseCommandLine then finds the end of the path by itself.
std::string QuotedProgram(const std::string& path) { return path.find('"') == path.npos ? "\"" + path + "\"" : path; }

// Quotes one argument of a line; see SplitArguments.
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

// The user may have put the program's path in quotes, as on Windows.
std::string_view WithoutQuotes(std::string_view program) {
  const bool is_quoted = program.size() >= 2 && program.front() == '"' && program.back() == '"';
  return is_quoted ? program.substr(1, program.size() - 2) : program;
}

// In Wine, drive Z: is the whole file system, unless the user has changed this.
std::string PathUnderWine(std::string native) {
  std::replace(native.begin(), native.end(), '/', '\\');
  return "Z:" + native;
}

}  // namespace

Command ParseCommandLine(std::string_view command_line) {
  const std::vector<LeadingPart> parts = LeadingParts(command_line);
  Status refused;
  for (const LeadingPart& part : parts) {
    Command command{{}, StartOf(part.program, refused)};
    if (command.arguments.empty()) continue;
    for (std::string& argument : SplitArguments(part.arguments)) command.arguments.push_back(std::move(argument));
    return command;
  }
  return {refused.ok() ? FailureOf(parts.front().program, ENOENT) : refused, {}};
}

std::optional<std::string> InstalledProgramLine(std::string_view name, const std::vector<std::string>& arguments) {
  const std::optional<std::string> program = FindInPath(name);
  if (!program) return std::nullopt;
  std::string line = QuotedProgram(*program);
  for (const std::string& argument : arguments) line.append(" ").append(Quoted(argument));
  return line;
}

std::optional<std::string> WindowsProgramLine(std::string_view program, std::string_view option,
                                              std::string_view path) {
  const std::string argument = std::string(option).append(PathUnderWine(PathToNative(path)));
  return InstalledProgramLine("wine", {PathToNative(WithoutQuotes(program)), argument});
}

}  // namespace discwright::host
