// Starting programs that are made for Windows, which here are programs like any other.
#include "host/windows_programs.h"

namespace discwright::host {

// No quotes around paths with blanks, and that is meant: the start looks for the shortest leading part that names a
// file, and the program takes all that follows its option for one path.
std::optional<std::string> WindowsProgramLine(std::string_view program, std::string_view option,
                                              std::string_view path) {
  return std::string(program).append(" ").append(option).append(path);
}

}  // namespace discwright::host
