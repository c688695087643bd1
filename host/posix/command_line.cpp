// Finds the program in a command line and splits its arguments.
#include "host/posix/command_line.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "host/leading_parts.h"
#include "host/names.h"
#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"

namespace discwright::host {
namespace {

constexpr std::string_view kBlanks = " \t";

bool EndsWithExtension(std::string_view name, std::string_view extension) {
  return FoldCase(name).ends_with(extension);
}

// How a program may be spelled: as written, and with ".exe" removed or added.
std::vector<std::string> Spellings(std::string_view program) {
  if (EndsWithExtension(program, ".exe")) {
    return {std::string(program), std::string(program.substr(0, program.size() - 4))};
  }
  return {std::string(program), std::string(program) + ".exe"};
}

// Looks for programs and remembers why the first file that it saw was none.
class ProgramFinder {
 public:
  // The arguments that start `program` itself; empty when it is no program.
  std::vector<std::string> Find(std::string_view program) {
    if (program.empty()) return {};
    if (first_tried_.empty()) first_tried_ = program;
    for (const std::string& spelling : Spellings(program)) {
      const std::string native = RealPath(spelling);
      struct stat facts {};
      if (stat(native.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) continue;
      if (EndsWithExtension(native, ".bat")) return {"/bin/sh", native};
      if (access(native.c_str(), X_OK) == 0) return {native};
      Refuse(program, EACCES);
    }
    return {};
  }

  Status Failure() {
    Refuse(first_tried_, ENOENT);
    return refused_;
  }

 private:
  void Refuse(std::string_view program, int error) {
    if (!refused_.ok()) return;
    refused_ = StatusOf(error);
    refused_.cause.append(": ").append(PathToNative(program));
  }

  std::string first_tried_;
  Status refused_;
};

// One argument of a line, taken from its front.
class ArgumentReader {
 public:
  explicit ArgumentReader(std::string_view& text) : text_(text) {}

  std::string Read() {
    while (!text_.empty() && (quoted_ || kBlanks.find(text_.front()) == kBlanks.npos)) Take();
    return std::move(argument_);
  }

 private:
  void Take() {
    const std::size_t backslashes = std::min(text_.find_first_not_of('\\'), text_.size());
    text_.remove_prefix(backslashes);
    const bool before_quote = !text_.empty() && text_.front() == '"';
    argument_.append(before_quote ? backslashes / 2 : backslashes, '\\');
    if (before_quote) {
      TakeQuote(backslashes % 2 == 1);
    } else if (backslashes == 0) {
      argument_ += text_.front();
      text_.remove_prefix(1);
    }
  }

  void TakeQuote(bool is_plain) {
    text_.remove_prefix(1);
    if (!is_plain && quoted_ && text_.starts_with('"')) {  // two quotes inside quotes are a plain one
      text_.remove_prefix(1);
      is_plain = true;
    }
    if (is_plain) {
      argument_ += '"';
    } else {
      quoted_ = !quoted_;
    }
  }

  std::string_view& text_;
  std::string argument_;
  bool quoted_ = false;
};

}  // namespace

std::vector<std::string> SplitArguments(std::string_view text) {
  std::vector<std::string> arguments;
  for (text = WithoutLeadingBlanks(text); !text.empty(); text = WithoutLeadingBlanks(text)) {
    arguments.push_back(ArgumentReader(text).Read());
  }
  return arguments;
}

Command ParseCommandLine(std::string_view command_line) {
  const std::string_view line = WithoutLeadingBlanks(command_line);
  ProgramFinder finder;
  for (const LeadingPart& part : LeadingParts(line)) {
    Command command{{}, finder.Find(part.program)};
    if (command.arguments.empty()) continue;
    for (std::string& argument : SplitArguments(line.substr(part.length))) {
      command.arguments.push_back(std::move(argument));
    }
    return command;
  }
  return {finder.Failure(), {}};
}

}  // namespace discwright::host
