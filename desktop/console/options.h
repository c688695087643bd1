// Describes the command line of the headless program. main() calls ParseOptions and looks at `error` first.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "wizard/choices.h"

namespace discwright::desktop {

struct Options {
  std::string session;                  // empty: the session file in the program folder
  std::string save_session;             // empty: the choices are not saved
  std::string output;                   // empty: the place that the session names
  std::string password_file;            // empty: no password is set; "-": standard input
  std::vector<wizard::Choice> choices;  // from --set, in the order of the command line
  std::optional<std::string> controls;  // list the controls of this page, or of all pages when empty; build nothing
  bool force = false;                   // replace files of another kind, too
  bool quiet = false;
  bool help = false;
  bool version = false;
  std::string error;  // why the command line is wrong; empty on success
};

// Reads the command line. `arguments` do not include the program's name. Paths stay as the user spells them.
Options ParseOptions(std::span<const std::string> arguments);

// Returns the text of --help.
std::string UsageText();

}  // namespace discwright::desktop
