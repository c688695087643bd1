// What the user is asked and shown; a window, the headless program and a recording test double stand behind it.
#pragma once

#include <string>
#include <string_view>

namespace discwright::host {

enum class MessageIcon { kNone, kCritical, kExclamation };

struct Message {
  std::string text;  // lines separated by CR LF
  std::string title;
  MessageIcon icon = MessageIcon::kCritical;
  bool system_modal = false;
  std::string place = {};  // the field that it is about and what stands there, for where no page shows them
};

struct FileRequest {
  std::string title;
  std::string filter;     // "Description (*.ext)|*.ext"
  std::string file_name;  // what the dialog opens with
  bool must_exist = false;
};

class UserInterface {
 public:
  virtual ~UserInterface() = default;

  virtual void ShowMessage(const Message& box) = 0;  // returns when the user has closed it

  // Lets pending clicks and repaints happen. With `wait_milliseconds` above 0 first sleeps until there is something
  // to do, Wake was called, or the time is over.
  virtual void DoEvents(int wait_milliseconds) = 0;

  // Ends a running or the next DoEvents wait. The one member that other threads may call.
  virtual void Wake() = 0;

  // The chosen folder or file; empty when the user cancelled.
  virtual std::string ChooseFolder(std::string_view start_folder, std::string_view title) = 0;
  virtual std::string ChooseFile(const FileRequest& request) = 0;

  virtual bool HelpIsOpen() = 0;
  virtual void ShowHelpTopic(std::string_view help_path, int topic_id) = 0;
  virtual void OpenLink(std::string_view address) = 0;
};

}  // namespace discwright::host
