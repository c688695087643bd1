// Asks and tells the user through windows of Qt: messages, choosers, help and links. Construct one QtUser and pass it
// to the wizard.
#pragma once

#include <QElapsedTimer>
#include <QWidget>
#include <atomic>
#include <functional>
#include <memory>

#include "host/user_interface.h"

namespace discwright::desktop {

class HelpWindow;

class QtUser : public host::UserInterface {
 public:
  // DoEvents calls `interrupted` once, after the first signal that asks the program to end.
  explicit QtUser(std::function<void()> interrupted);
  ~QtUser() override;

  bool ShowMessage(const host::Message& box) override;
  void DoEvents(int wait_milliseconds) override;
  void Wake() override;
  std::string ChooseFolder(std::string_view start_folder, std::string_view title) override;
  std::string ChooseFile(const host::FileRequest& request) override;
  bool HelpIsOpen(std::string_view window_class, std::string_view title) override;
  void ShowHelp(const host::HelpRequest& request) override;
  void OpenLink(std::string_view address) override;

 private:
  void HandleInterrupt();

  std::function<void()> interrupted_;
  bool interrupt_seen_ = false;
  std::atomic<bool> woken_ = false;
  QElapsedTimer since_events_;
  std::unique_ptr<HelpWindow> help_;
};

}  // namespace discwright::desktop
