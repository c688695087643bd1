// The command line of the headless program.
#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

namespace discwright::desktop {

struct Options {
  std::string session;                                           // empty: the program folder's own
  std::string output;                                            // empty: as the session says
  std::string password_file;                                     // empty: none; "-": standard input
  std::vector<std::pair<std::string, std::string>> assignments;  // control, value; in the order given
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
