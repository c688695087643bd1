// The objects and the state that build steps and pages share: the windows, the user interface, the running programs,
// the notes, and the state of the build. main() makes one Context and passes it to every function that needs it.
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

  // Functions of pipeline/ and wizard/ that rooms below those call. wizard::Bind sets both.
  std::function<void()> CancelApp = {};
  std::function<void(int intStep, bool ForceShow)> ShowHelp = {};

  std::unique_ptr<host::Launcher> ASyncApp = nullptr;   // the program that a step waits for; null when there is none
  std::unique_ptr<host::Launcher> LaunchApp = nullptr;  // the running mastering; null when there is none
  host::ProcessEnd mastering_end = {};                  // how the last mastering ended
  bool image_was_written = false;                       // whether its output says that the image is complete

  std::shared_ptr<void> claim = nullptr;  // keeps other programs from building in the program folder

  bool cancelled_by_user = false;
  bool closing = false;      // hide the main window as soon as the cancelled build has returned
  bool is_asking = false;    // the user is being asked whether to cancel the build
  std::string failure = {};  // why a step halted the build; empty when none has
  bool wants_digest = true;  // whether a build computes the SHA-256 of its image
  BuildResult result = {};   // the result of the last build

  forms::FrmDiscwright& main() const { return windows.main; }

  // Lets the user in. Returns false when the build has been cancelled. Loops over files call this between two files and
  // end when it is false.
  bool GoOn() const;

  // Ends the build when a step cannot continue: shows `message`, keeps its text as the reason of the failure, and
  // cancels the build. The step must return afterwards. If several steps call it, the first reason is kept.
  void Halt(const host::Message& message);
};

}  // namespace discwright::steps
