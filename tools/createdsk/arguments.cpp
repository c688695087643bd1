// Reads the command line of CreateDsk word by word.
#include "tools/createdsk/arguments.h"

namespace discwright::tools {

Result ParseArguments(std::span<const std::string> words, Arguments& arguments) {
  arguments = Arguments();
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word == "-sel") {
      arguments.selection = true;
    } else if (word == "-t") {
      if (arguments.format != nullptr) return Result::Failure("-t is given twice.");
      arguments.format = i + 1 < words.size() ? FindDiskFormat(words[++i]) : nullptr;
      if (arguments.format == nullptr) return Result::Failure("-t must be followed by 144 (1.44 MB) or 288 (2.88 MB).");
    } else if (word.empty() || word.front() == '-') {
      return Result::Failure("\"" + word + "\" is not an option.");
    } else if (!arguments.profile.empty()) {
      return Result::Failure("Only one profile can be named, not \"" + arguments.profile + "\" and \"" + word + "\".");
    } else {
      arguments.profile = word;
    }
  }
  if (arguments.format == nullptr) return Result::Failure("The size of the disk, -t 144 or -t 288, is missing.");
  if (arguments.profile.empty()) return Result::Failure("The name of the profile is missing.");
  return Result::Success();
}

}  // namespace discwright::tools
