// The command line of the headless program.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "wizard/choices.h"

namespace discwright::desktop {

struct Options {
  std::string session;                  // empty: the program folder's own
  std::string save_session;             // empty: the choices are not kept
  std::string output;                   // empty: as the session says
  std::string password_file;            // empty: none; "-": standard input
  std::vector<wizard::Choice> choices;  // in the order given
  std::optional<std::string> controls;  // list controls and build nothing; the page, or empty for all pages
  bool force = false;                   // replace files that are something else than what is written
  bool quiet = false;
  bool help = false;
  bool version = false;
  std::string error;  // what is wrong with the command line; empty when nothing is
};

// `arguments` without the program's own name. Paths stay as the user spelled them.
Options ParseOptions(std::span<const std::string> arguments);

// What --help prints.
std::string UsageText();

}  // namespace discwright::desktop
