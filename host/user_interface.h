// Shows messages, dialogs and help to the user, and asks questions. A window, the headless program and a recording test
// double implement UserInterface; pass one to code that needs the user.
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
  std::string control = {};  // the name of the field that the message is about, in case no page shows it
  std::string detail = {};   // a line below the text: what is wrong there and what to do about it
  bool question = false;     // the user answers Yes or No
};

struct FileRequest {
  std::string title;
  std::string filter;     // "Description (*.ext)|*.ext"
  std::string file_name;  // what the dialog shows first: a path of the core, a bare name, or any other text of a field
  bool must_exist = false;
};

// What the help viewer shows; the numbers are those of HTML Help.
enum class HelpCommand { kTopicFile = 0, kContents = 1, kIndex = 2, kTopicId = 15 };

struct HelpRequest {
  void* owner = nullptr;  // the handle of the window that the viewer belongs to; null for none
  std::string path;       // "help file>window type"
  HelpCommand command = HelpCommand::kContents;
  std::string topic_file = {};  // with kTopicFile
  int topic_id = 0;             // with kTopicId
  bool to_front = true;         // an open viewer comes to the front; false: it stays where it is
};

class UserInterface {
 public:
  virtual ~UserInterface() = default;

  // Returns when the user has closed the message. The result is whether the user agreed: true for an ordinary message,
  // and for a question whether the answer was Yes. Closing a question without an answer means No.
  virtual bool ShowMessage(const Message& box) = 0;

  // Handles pending clicks and repaints. With `wait_milliseconds` above 0, it first sleeps until there is something to
  // do, Wake was called, or the time is over.
  virtual void DoEvents(int wait_milliseconds) = 0;

  // Ends a running wait of DoEvents, or the next one. Only this function may be called by other threads.
  virtual void Wake() = 0;

  // These return the chosen folder or file, or an empty text when the user has cancelled. `start_folder` and the result
  // are paths of the core: see PathToNative and PathFromNative in host/names.h.
  virtual std::string ChooseFolder(std::string_view start_folder, std::string_view title) = 0;
  virtual std::string ChooseFile(const FileRequest& request) = 0;

  // Whether a window with this class and title, which are those of the help viewer, exists.
  virtual bool HelpIsOpen(std::string_view window_class, std::string_view title) = 0;
  virtual void ShowHelp(const HelpRequest& request) = 0;
  virtual void OpenLink(std::string_view address) = 0;
};

}  // namespace discwright::host
