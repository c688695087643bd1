// The help viewer: a window with the lists of the topics at the left and one topic at the right.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "host/user_interface.h"

class QEvent;
class QUrl;

namespace discwright::desktop {

// The topics are the HTML files of the folder "help" beside the help file that a request names. The viewer is open
// while it is visible; closing it only hides it. It does not keep the program running.
class HelpWindow : public QWidget {
 public:
  // `open_link` gets the address when the user follows a link to the web.
  explicit HelpWindow(std::function<void(const std::string& address)> open_link);
  ~HelpWindow() override;

  // Shows what the request asks for. A hidden viewer appears and becomes the active window. A viewer that is open
  // already moves to the topic and is raised, and the keyboard stays with the window that has it: the viewer follows
  // the wizard. If the file of the topic cannot be read, nothing changes, and the result is a sentence for the user;
  // otherwise it is empty.
  std::string Show(const host::HelpRequest& request);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  struct Parts;

  void Arrange();
  void Connect();
  void Follow(const QUrl& link);
  void SwitchPane();

  std::function<void(const std::string&)> open_link_;
  std::unique_ptr<Parts> parts_;
};

}  // namespace discwright::desktop
