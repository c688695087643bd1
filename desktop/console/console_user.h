// Defines the user interface of the headless program. It prints message boxes on standard error, answers questions
// with Yes, chooses no file or folder, and reports Ctrl-C. Construct one ConsoleUser and pass it to the build.
#pragma once

#include <functional>

#include "desktop/console/terminal.h"
#include "host/user_interface.h"

namespace discwright::desktop {

class ConsoleUser : public host::UserInterface {
 public:
  // `terminal` must outlive this object. DoEvents calls `interrupted` once, after the first Ctrl-C. The second one ends
  // the program.
  ConsoleUser(Terminal& terminal, std::function<void()> interrupted)
      : terminal_(terminal), interrupted_(std::move(interrupted)) {}

  // A question is not printed, and its answer is Yes: a user who presses Ctrl-C wants the build to end, and one who
  // gives
  // --force wants the file to be replaced.
  bool ShowMessage(const host::Message& box) override;
  void DoEvents(int wait_milliseconds) override;
  void Wake() override;
  std::string ChooseFolder(std::string_view, std::string_view) override { return ""; }
  std::string ChooseFile(const host::FileRequest&) override { return ""; }
  bool HelpIsOpen(std::string_view, std::string_view) override { return false; }
  void ShowHelp(const host::HelpRequest&) override {}
  void OpenLink(std::string_view) override {}

 private:
  Terminal& terminal_;
  std::function<void()> interrupted_;
  bool interrupt_seen_ = false;
};

}  // namespace discwright::desktop
