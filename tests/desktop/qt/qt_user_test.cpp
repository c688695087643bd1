// Tests of QtUser: the waits and what ends them, message boxes, links, and requests to end the program.
#include "desktop/qt/qt_user.h"

#include <QApplication>
#include <QDesktopServices>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QUrl>
#include <thread>

#include "tests/desktop/qt/window_fixture.h"

namespace discwright::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A wait that nothing ends would last this long. The tests do not depend on it: a wait that is not ended by its event
// is ended by the watchdog, which the test notices.
constexpr int kEndless = 3600 * 1000;
constexpr int kWatchdog = 20 * 1000;

class QtUserTest : public ::testing::Test {
 protected:
  QtUserTest() {
    Handle();  // what is left of other tests
    QObject::connect(&watchdog_, &QTimer::timeout, [this] { ended_by_watchdog = true; });
    watchdog_.start(kWatchdog);
  }
  static void Handle() {
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
  }
  void WaitUntil(const bool& happened) {
    while (!happened && !ended_by_watchdog) user.DoEvents(kEndless);
    EXPECT_FALSE(ended_by_watchdog);
  }

  testing::FakeConsole console;
  int interruptions = 0;
  QtUser user{[this] { ++interruptions; }};
  bool ended_by_watchdog = false;

 private:
  QTimer watchdog_;
};

TEST_F(QtUserTest, Wait_IsEndedByAnEvent) {
  bool happened = false;
  QTimer::singleShot(1, [&] { happened = true; });
  WaitUntil(happened);
}

TEST_F(QtUserTest, Wait_IsNotBegunWhenAnEventIsPending) {
  bool happened = false;
  QMetaObject::invokeMethod(
      qApp, [&] { happened = true; }, Qt::QueuedConnection);
  user.DoEvents(kEndless);
  EXPECT_TRUE(happened);
  EXPECT_FALSE(ended_by_watchdog);
}

TEST_F(QtUserTest, Wait_IsEndedByItsTime) {
  user.DoEvents(1);
  EXPECT_FALSE(ended_by_watchdog);
}

TEST_F(QtUserTest, Wait_IsEndedByWakeOfAnotherThread) {
  std::thread other([&] { user.Wake(); });
  user.DoEvents(kEndless);
  other.join();
  EXPECT_FALSE(ended_by_watchdog);
}

TEST_F(QtUserTest, WakeBeforeTheWait_EndsIt) {
  user.Wake();
  Handle();  // the event loop forgets that it was woken
  user.DoEvents(kEndless);
  EXPECT_FALSE(ended_by_watchdog);
}

TEST_F(QtUserTest, Wake_EndsNoMoreThanTheNextWait) {
  user.Wake();
  user.DoEvents(kEndless);
  bool happened = false;
  QTimer::singleShot(30, [&] { happened = true; });
  int waits = 0;
  while (!happened) {
    user.DoEvents(kEndless);
    ++waits;
  }
  EXPECT_LE(waits, 20);  // a wait that does not wait would be repeated thousands of times
}

TEST_F(QtUserTest, CallsWithoutAWait_HandleEvents) {
  bool happened = false;
  QMetaObject::invokeMethod(
      qApp, [&] { happened = true; }, Qt::QueuedConnection);
  while (!happened && !ended_by_watchdog) user.DoEvents(0);
  EXPECT_TRUE(happened);
}

TEST_F(QtUserTest, RequestToEndTheProgram_IsReportedOnce) {
  user.DoEvents(1);
  EXPECT_EQ(interruptions, 0);
  console.interrupts = 1;
  user.DoEvents(1);
  user.DoEvents(1);
  EXPECT_EQ(interruptions, 1);
}

TEST_F(QtUserTest, RequestToEndTheProgram_ClosesTheOpenMessageAndTheOpenChooser) {
  const testing::FakeHost host;
  console.interrupts = 1;
  host::Message question{"Cancel the build?", "Vexa Discwright"};
  question.question = true;
  EXPECT_FALSE(user.ShowMessage(question));
  EXPECT_EQ(user.ChooseFolder("/", "Choose a folder"), "");
  EXPECT_EQ(user.ChooseFile({"Choose a file", "Text (*.txt)|*.txt", "", false}), "");
  EXPECT_EQ(interruptions, 0);  // DoEvents reports it
}

TEST_F(QtUserTest, QuestionAfterARequestToEndTheProgram_IsAnsweredYes) {
  console.interrupts = 1;
  user.DoEvents(1);
  host::Message question{"Cancel the build?", "Title"};
  question.question = true;
  testing::WindowWatch watch;
  EXPECT_TRUE(user.ShowMessage(question));
  EXPECT_THAT(watch.messages, IsEmpty());
}

// Takes the place of the web browser. Qt calls the slot setSource, which calls doSetSource.
class Browser : public QTextBrowser {
 public:
  Browser() { QDesktopServices::setUrlHandler("https", this, "setSource"); }
  ~Browser() override { QDesktopServices::unsetUrlHandler("https"); }
  std::vector<std::string> opened;

 protected:
  void doSetSource(const QUrl& address, QTextDocument::ResourceType /*type*/) override {
    opened.push_back(FromQt(address.toString()));
  }
};

TEST_F(QtUserTest, Link_IsOpenedInTheBrowserOfTheUser) {
  const Browser browser;
  user.OpenLink("https://discwright.example.org/");
  EXPECT_THAT(browser.opened, ElementsAre("https://discwright.example.org/"));
}

class MessageBoxTest : public QtUserTest {
 protected:
  testing::WindowWatch watch;
  host::Message message{
      "First line\r\nSecond <b>line</b> & more", "Error", host::MessageIcon::kCritical, false, "", "The detail"};
};

TEST_F(MessageBoxTest, Message_ShowsItsTextsAndAnOkButton) {
  watch.InNext([](QDialog& box) {
    EXPECT_EQ(dynamic_cast<QMessageBox&>(box).textFormat(), Qt::PlainText);
    box.close();
  });
  EXPECT_TRUE(user.ShowMessage(message));
  ASSERT_EQ(watch.messages.size(), 1U);
  EXPECT_EQ(watch.messages[0].text, "First line\nSecond <b>line</b> & more");
  EXPECT_EQ(watch.messages[0].detail, "The detail");
  EXPECT_EQ(watch.messages[0].title, "Error");
  EXPECT_EQ(watch.messages[0].icon, QMessageBox::Critical);
  EXPECT_EQ(watch.messages[0].buttons, QMessageBox::Ok);
}

TEST_F(MessageBoxTest, EachIcon_IsShown) {
  for (const auto& [icon, shown] : {std::pair(host::MessageIcon::kExclamation, QMessageBox::Warning),
                                    std::pair(host::MessageIcon::kNone, QMessageBox::NoIcon)}) {
    message.icon = icon;
    user.ShowMessage(message);
    EXPECT_EQ(watch.messages.back().icon, shown);
  }
}

TEST_F(MessageBoxTest, Question_IsAnsweredByItsButtonsAndClosingItIsNo) {
  message.question = true;
  for (const auto& [key, answer] : {std::pair(Qt::Key_Y, true), std::pair(Qt::Key_N, false),
                                    std::pair(Qt::Key_Escape, false), std::pair(Qt::Key_Enter, false)}) {
    watch.InNext([key = key](QDialog& box) {
      auto& question = dynamic_cast<QMessageBox&>(box);
      if (key == Qt::Key_Y) question.button(QMessageBox::Yes)->click();
      if (key == Qt::Key_N) question.button(QMessageBox::No)->click();
      if (key != Qt::Key_Y && key != Qt::Key_N) QTest::keyClick(box.windowHandle(), key);
    });
    EXPECT_EQ(user.ShowMessage(message), answer) << key;
  }
  EXPECT_EQ(watch.messages[0].buttons, QMessageBox::Yes | QMessageBox::No);
  EXPECT_EQ(watch.messages[0].icon, QMessageBox::Question);
}

TEST_F(MessageBoxTest, SystemModalMessage_StaysOnTop) {
  message.system_modal = true;
  watch.InNext([](QDialog& box) {
    EXPECT_TRUE(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    box.close();
  });
  user.ShowMessage(message);
}

}  // namespace
}  // namespace discwright::desktop
