// The fixture for tests of the window: the whole program on a fake host, and a user who presses keys and clicks.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDialog>
#include <QMessageBox>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/qt/main_window.h"
#include "desktop/qt/qt_text.h"
#include "desktop/qt/qt_user.h"
#include "forms/user_actions.h"
#include "tests/desktop/fake_console.h"
#include "tests/support/fake_host.h"
#include "tests/support/fake_programs.h"
#include "wizard/navigation.h"
#include "wizard/pages.h"

namespace discwright::testing {

// One start of the program, with its parts connected as main() does it.
struct RunningProgram {
  explicit RunningProgram(host::ProgramRunner& runner) : programs(runner) {}

  host::ProgramRunner& programs;
  forms::Windows windows;
  util::Notes notes;
  desktop::QtUser user{[this] { forms::AskToClose(windows.main); }};
  steps::Context context{windows, user, programs, notes};
  forms::Subscription rules = wizard::Bind(context);
  desktop::MainWindow main{windows};
  desktop::DialogWindow win2k_info{wizard::LayoutOfDialog(windows.win2k_info), &main};
  desktop::DialogWindow win9x_info{wizard::LayoutOfDialog(windows.win9x_info), &main};
};

// What a message box has shown.
struct SeenMessage {
  std::string title, text, detail;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QMessageBox::StandardButtons buttons;
  bool has_owner = false;

  friend void PrintTo(const SeenMessage& message, std::ostream* out) { *out << message.title << ": " << message.text; }
};

// Acts in the windows that open over the main window: each runs an event loop of its own, in which the test cannot go
// on.
class WindowWatch : public QObject {
 public:
  WindowWatch();

  // Calls `act` in the next window that opens; `act` closes the window. Nothing must be called for a message box: its
  // default button is pressed with the Enter key then. Any other window without an act is a failure of the test, and is
  // closed.
  void InNext(std::function<void(QDialog&)> act) { acts_.push_back(std::move(act)); }
  std::size_t acts_left() const { return acts_.size(); }
  std::vector<SeenMessage> messages;  // of all message boxes, in order

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Act(QDialog& window);

  std::deque<std::function<void(QDialog&)>> acts_;
};

class WindowFixture : public ::testing::Test {
 protected:
  WindowFixture();
  ~WindowFixture() override;

  // Starts the program, or ends it and starts it again. The files of the fake host stay.
  void Start();
  desktop::MainWindow& main() { return program->main; }
  forms::FrmDiscwright& records() { return program->windows.main; }

  // Sets up the start of a test: chooses the contents, and fills every location with one that its page accepts.
  void Choose(bool win2k, bool win9x, bool advtools);
  void FillLocations();
  // Goes to a page with everything chosen: by Next to the pages 0 to 8, by Cancel to page 9.
  void GoTo(int page);

  // The widget of a control. It is one of the window that has the keyboard: the open dialog, or the main window.
  QWidget& Widget(const std::string& name);
  template <typename Kind>
  Kind& The(const std::string& name) {
    return dynamic_cast<Kind&>(Widget(name));
  }
  bool IsShown(const std::string& name) { return Widget(name).isVisible(); }
  bool IsUsable(const std::string& name) { return Widget(name).isVisible() && Widget(name).isEnabled(); }
  std::string ShownText(const std::string& label);  // without the mark of the access key
  std::string FieldText(const std::string& name);
  // The name of the widget that gets the keys; empty if none does.
  std::string Focus();
  int PageSeen();             // the page in view, found by its heading
  std::string HeadingSeen();  // the visible heading

  // The user. Keys go to the window that has the keyboard; a click goes to the place of the widget on the screen, even
  // if a modal window or a disabled widget keeps it from arriving.
  static void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  // An access key. Qt shows the button of the key as pressed for a moment; the function returns after its click.
  static void PressAlt(char letter);
  void TabTo(const std::string& name);         // presses Tab until the control has the focus
  static void Write(const std::string& text);  // the keys of a text
  void Click(const std::string& name);
  static void ClickOn(QWidget& widget);
  void WriteInto(const std::string& name, const std::string& text);  // clicks into the field and replaces its text
  static void Settle();                                              // lets Qt handle what is pending

  // The user in the windows that open.
  void AnswerNext(QMessageBox::StandardButton button);
  void PressKeyInNext(Qt::Key key);

  FakeHost host;
  FakeConsole console;
  FakePrograms programs;
  WindowWatch watch;
  std::unique_ptr<RunningProgram> program;
};

}  // namespace discwright::testing
