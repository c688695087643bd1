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
  std::string control = {};  // the name of the field that it is about, for where no page shows it
  std::string detail = {};   // a line below the text: what is wrong there and what to do about it
};

struct FileRequest {
  std::string title;
  std::string filter;     // "Description (*.ext)|*.ext"
  std::string file_name;  // what the dialog opens with
  bool must_exist = false;
};

// What the help viewer is asked for; the numbers are those of HTML Help.
enum class HelpCommand { kTopicFile = 0, kContents = 1, kIndex = 2, kTopicId = 15 };

struct HelpRequest {
  void* owner = nullptr;  // the handle of the window that the viewer belongs to; null: none
  std::string path;       // "help file>window type"
  HelpCommand command = HelpCommand::kContents;
  std::string topic_file = {};  // with kTopicFile
  int topic_id = 0;             // with kTopicId
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

  // Whether there is a window of this class and title, which is that of the help viewer.
  virtual bool HelpIsOpen(std::string_view window_class, std::string_view title) = 0;
  virtual void ShowHelp(const HelpRequest& request) = 0;
  virtual void OpenLink(std::string_view address) = 0;
};

}  // namespace discwright::host
