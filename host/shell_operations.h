// Moving and renaming as the desktop's shell does it. Windows only, so far.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace discwright::host {

enum class ShellVerb { kMove, kRename };

struct ShellOperation {
  ShellVerb verb = ShellVerb::kMove;
  void* owner_window = nullptr;  // the handle of the window that the shell's own windows belong to; null for none
  std::string source;            // a core path; of a move its last name may have wildcards
  std::string destination;
  std::uint16_t flags = 0;  // as the shell defines them
  std::string title;        // of the shell's progress window
};

struct ShellAnswer {
  int number = 0;  // the service's own; 0 is success
  bool aborted = false;
};

ShellAnswer RunShellOperation(const ShellOperation& operation);

}  // namespace discwright::host
