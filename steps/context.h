// What every build step and every page works on: the windows, the user, the programs that are run, the notes, and the
// state of the build. main() makes one Context, and everything above this room gets it as its first argument.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "forms/all_windows.h"
#include "host/processes.h"
#include "host/user_interface.h"
#include "steps/build_result.h"
#include "util/notes.h"

namespace discwright::steps {

struct Context {
  forms::Windows& windows;
  host::UserInterface& user;
  host::ProgramRunner& programs;
  util::Notes& notes;

  // Procedures of rooms above the one that needs them; bound once when the program is put together.
  std::function<void()> CancelApp = {};
  std::function<void(int intStep, bool ForceShow)> ShowHelp = {};

  // The program that a step waits for, and the mastering; null while there is none.
  std::unique_ptr<host::Launcher> ASyncApp = nullptr;
  std::unique_ptr<host::Launcher> LaunchApp = nullptr;
  host::ProcessEnd mastering_end = {};  // how the last mastering ended

  bool cancelled_by_user = false;
  bool closing = false;      // the main window goes when the build that is being cancelled has returned
  std::string failure = {};  // what halted the build; empty while nothing has
  bool wants_digest = true;  // whether the result of a build is to hold the image's SHA-256
  BuildResult result = {};   // of the last build

  forms::FrmDiscwright& main() const { return windows.main; }

  // Ends the build for a step that cannot go on: shows `box`, keeps its text as the reason of the failure, and cancels
  // the build. The step then returns.
  void Halt(const host::Message& box);
};

}  // namespace discwright::steps
