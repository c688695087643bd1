// Moves and renames files and folders in the way of the desktop's shell. Fill in a ShellOperation and pass it to
// RunShellOperation.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace discwright::host {

enum class ShellVerb { kMove, kRename };

struct ShellOperation {
  ShellVerb verb = ShellVerb::kMove;
  void* owner_window = nullptr;  // the handle of the window that the shell's own windows belong to; null for none
  std::string source;            // a core path; for a move, its last name may contain wildcards
  std::string destination;
  std::uint16_t flags = 0;  // kShellSilent and kShellNoConfirmation, added up
  std::string title;        // the title of the shell's progress window
};

inline constexpr std::uint16_t kShellSilent = 4;           // no progress window
inline constexpr std::uint16_t kShellNoConfirmation = 16;  // answers every question with yes

struct ShellAnswer {
  int number = 0;  // the service's own error number; 0 is success
  bool aborted = false;
};

// Runs the operation. A move overwrites files of the same name, and merges folders that exist on both sides (not every
// shell does this). When a file and a folder have the same name, this is a failure, but everything else is moved. A
// rename to an existing name is refused. Links themselves are moved, and never followed. Files that were moved before a
// failure stay moved.
ShellAnswer RunShellOperation(const ShellOperation& operation);

}  // namespace discwright::host
