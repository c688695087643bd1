// What every build step and page works on: the windows, the user, the programs, the notes.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "forms/all_windows.h"
#include "host/processes.h"
#include "host/user_interface.h"
#include "util/build_result.h"
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
  host::ProcessEnd mastering_end = {};  // how the last mastering ended

  bool cancelled_by_user = false;
  bool closing = false;      // the main window goes when the build that is being cancelled has returned
  std::string failure = {};  // what halted the build; empty while nothing has
  bool wants_digest = true;  // whether the result of a build is to hold the image's SHA-256
  BuildResult result = {};   // of the last build

  forms::FrmDiscwright& main() const { return windows.main; }

  // A step that cannot go on: shows its box, keeps the box's text as the reason of the failure, cancels the build.
  void Halt(const host::Message& box) {
    user.ShowMessage(box);
    if (failure.empty()) failure = box.text;
    CancelApp();
  }
};

}  // namespace discwright::util
