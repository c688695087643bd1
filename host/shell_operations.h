// Moving and renaming files and folders as the desktop's shell does it.
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
  std::uint16_t flags = 0;  // kShellSilent, kShellNoConfirmation; added up
  std::string title;        // of the shell's progress window
};

inline constexpr std::uint16_t kShellSilent = 4;           // no progress window
inline constexpr std::uint16_t kShellNoConfirmation = 16;  // yes to every question

struct ShellAnswer {
  int number = 0;  // the service's own; 0 is success
  bool aborted = false;
};

// A move overwrites files of the same name, and joins folders that are on both sides (not every shell does); a file and
// a folder of one name are a failure, and all else is moved. A rename to a name that something has is refused. Links
// are moved themselves, and never followed. What was moved before a failure stays moved.
ShellAnswer RunShellOperation(const ShellOperation& operation);

}  // namespace discwright::host
