// Reads a command line with the help of the table of options.
#include "desktop/console/options.h"

#include <array>
#include <string_view>

namespace discwright::desktop {

namespace {

struct OptionRow {
  const char* name;
  const char* short_name;  // empty when the option has none
  const char* value;       // what the help calls its value, in brackets when it is optional; null when it takes none
  const char* help;
  void (*apply)(Options& options, const std::string& value);
};

void AddAssignment(Options& options, const std::string& value) {
  const std::size_t equals = value.find('=');
  if (equals == 0 || equals == std::string::npos) {
    options.error = "--set needs CONTROL=VALUE, not '" + value + "'";
    return;
  }
  options.choices.push_back({value.substr(0, equals), value.substr(equals + 1)});
}

constexpr std::array<OptionRow, 10> kOptions = {{
    {"--session", "", "FILE", "choices from a session file (default: vexacd.ini in the program folder)",
     [](Options& options, const std::string& value) { options.session = value; }},
    {"--save-session", "", "FILE", "write the choices of this run as a session file, to use them again",
     [](Options& options, const std::string& value) { options.save_session = value; }},
    {"--output", "-o", "FILE.iso", "the image to make",
     [](Options& options, const std::string& value) { options.output = value; }},
    {"--set", "", "CONTROL=VALUE", "one choice, by the name of its control; may be repeated", AddAssignment},
    {"--password-file", "", "FILE", "protect the boot menu; the password is the first line of FILE (-: standard input)",
     [](Options& options, const std::string& value) { options.password_file = value; }},
    {"--controls", "", "[PAGE]", "list the controls with their values, of one page or all; build nothing",
     [](Options& options, const std::string& value) { options.controls = value; }},
    {"--force", "", nullptr, "replace files of another kind, too",
     [](Options& options, const std::string&) { options.force = true; }},
    {"--quiet", "", nullptr, "print only messages and warnings",
     [](Options& options, const std::string&) { options.quiet = true; }},
    {"--help", "", nullptr, "print this help", [](Options& options, const std::string&) { options.help = true; }},
    {"--version", "", nullptr, "print the version",
     [](Options& options, const std::string&) { options.version = true; }},
}};

const OptionRow* FindOption(std::string_view name) {
  for (const OptionRow& row : kOptions) {
    if (name == row.name || (*row.short_name != '\0' && name == row.short_name)) return &row;
  }
  return nullptr;
}

// "--session=FILE" is the same as "--session FILE".
struct Argument {
  std::string name;
  std::optional<std::string> value;
};

Argument Split(const std::string& argument) {
  const std::size_t equals = argument.starts_with("--") ? argument.find('=') : std::string::npos;
  if (equals == std::string::npos) return {argument, std::nullopt};
  return {argument.substr(0, equals), argument.substr(equals + 1)};
}

bool IsOptional(const OptionRow& row) { return *row.value == '['; }

void Apply(Options& options, const OptionRow& row, const Argument& argument) {
  if (row.value == nullptr) {
    if (argument.value) options.error = argument.name + " takes no value";
    row.apply(options, "");
    return;
  }
  // An empty value counts as missing. If a script passes a variable that is not set, the value is empty, and the
  // program must not run as if the option were absent.
  const std::string value = argument.value.value_or("");
  if (value.empty() && !IsOptional(row)) {
    options.error = argument.name + " needs " + row.value;
  } else {
    row.apply(options, value);
  }
}

}  // namespace

Options ParseOptions(std::span<const std::string> arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size() && options.error.empty(); ++i) {
    Argument argument = Split(arguments[i]);
    const OptionRow* row = FindOption(argument.name);
    if (row == nullptr) {
      options.error = "unknown option '" + argument.name + "'";
      break;
    }
    if (row->value != nullptr && !argument.value && i + 1 < arguments.size()) {
      const bool is_next_option = IsOptional(*row) && arguments[i + 1].starts_with("-");
      if (!is_next_option) argument.value = arguments[++i];
    }
    Apply(options, *row, argument);
  }
  return options;
}

std::string UsageText() {
  constexpr std::size_t kColumn = 26;
  std::string text =
      "usage: discwright-build [options]\n\n"
      "Makes a rescue CD image without a window, from a session file and the options below.\n\n";
  for (const OptionRow& row : kOptions) {
    std::string line = "  " + std::string(row.short_name) + (*row.short_name != '\0' ? ", " : "") + row.name;
    if (row.value != nullptr) line += " " + std::string(row.value);
    line.resize(std::max(line.size() + 2, kColumn), ' ');
    text += line + row.help + "\n";
  }
  text +=
      "\nCheck boxes take 0 or 1, options True or False, text boxes any text:\n"
      "  discwright-build -o rescue.iso --set ChkVexaUtils=1 --set \"TxtUtils_Loc=/media/tools\"\n"
      "--controls lists them all. Without -o the image is made at TxtISOLoc.\n\n"
      "exit codes: 0 the image was made; 1 the build failed; 2 wrong usage; 3 a page did not accept its choices;\n"
      "  4 the image was made, but something named in a warning is missing from it or was left behind;\n"
      "  130 cancelled with Ctrl-C: the copy in progress is finished first; a second Ctrl-C stops at once\n";
  return text;
}

}  // namespace discwright::desktop
