// What every build step and page works on: the windows, the user, the programs, the notes.
#pragma once

#include <functional>
#include <memory>

#include "forms/all_windows.h"
#include "host/processes.h"
#include "host/user_interface.h"
#include "util/notes.h"

namespace discwright::util {

struct Context {
  forms::Windows& windows;
  host::UserInterface& user;
  host::ProgramRunner& programs;
  Notes& notes;

  // Procedures of rooms above the one that needs them; bound once when the program is put together.
  std::function<void()> CancelApp;
  std::function<void(int intStep, bool ForceShow)> ShowHelp;

  // The program that a step waits for, and the mastering; null while there is none.
  std::unique_ptr<host::Launcher> ASyncApp;
  std::unique_ptr<host::Launcher> LaunchApp;
  // How the last mastering ended; the pages do not look at it, the headless program does.
  host::ProcessEnd mastering_end;

  forms::FrmDiscwright& main() const { return windows.main; }
};

}  // namespace discwright::util
