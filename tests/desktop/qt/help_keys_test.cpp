// Tests of the ways to the help window from the main window. What the help shows is tested with the help window.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>

#include "tests/desktop/qt/window_fixture.h"

namespace discwright::desktop {
namespace {

// The help window reads its topics from a real folder.
class HelpKeysTest : public testing::WindowFixture {
 protected:
  HelpKeysTest() {
    host.shows_slashes = true;
    host.program_folder = FromQt(folder_.path());
    QDir(folder_.path()).mkdir("help");
    for (int topic = 1110; topic <= 1210; topic += 10) AddTopic(QString::number(topic));
    for (const char* name : {"contents", "index", "start"}) AddTopic(name);
  }

  static QWidget* HelpWindow() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && window->windowTitle() == "The Vexa Rescue CD Help") return window;
    }
    return nullptr;
  }
  static bool HelpShows(const QString& topic) {
    if (HelpWindow() == nullptr) return false;
    const QList<QTextBrowser*> browsers = HelpWindow()->findChildren<QTextBrowser*>();
    return std::any_of(browsers.begin(), browsers.end(), [&](const QTextBrowser* browser) {
      return browser->isVisible() && browser->toPlainText().contains("topic " + topic);
    });
  }

 private:
  void AddTopic(const QString& name) {
    QFile file(folder_.filePath("help/" + name + ".html"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(("<html><body><p>topic " + name + "</p></body></html>").toUtf8());
  }

  QTemporaryDir folder_;
};

TEST_F(HelpKeysTest, F1AltHAndTheButton_OpenTheTopicOfThePage) {
  for (const std::function<void()>& ask : std::vector<std::function<void()>>{
           [] { PressKey(Qt::Key_F1); }, [] { PressAlt('h'); }, [this] { Click("CmdHelp"); }}) {
    Start();
    GoTo(3);
    EXPECT_EQ(HelpWindow(), nullptr);
    ask();
    EXPECT_TRUE(HelpShows("1140"));
    EXPECT_EQ(PageSeen(), 3);
  }
}

TEST_F(HelpKeysTest, F1InAField_OpensTheHelp) {
  GoTo(2);
  Click("Txt_i386_Loc");
  PressKey(Qt::Key_F1);
  EXPECT_TRUE(HelpShows("1130"));
}

TEST_F(HelpKeysTest, OpenHelp_MovesAlongWithNextAndBack) {
  PressKey(Qt::Key_F1);
  Settle();
  Click("CmdNext");
  EXPECT_TRUE(HelpShows("1120"));
  Click("CmdBack");
  EXPECT_TRUE(HelpShows("1110"));
  main().activateWindow();
  Settle();
  EXPECT_EQ(PageSeen(), 0);
}

TEST_F(HelpKeysTest, ClosedHelp_StaysClosed) {
  Click("CmdNext");
  EXPECT_EQ(HelpWindow(), nullptr);
  PressKey(Qt::Key_F1);
  ASSERT_NE(HelpWindow(), nullptr);
  HelpWindow()->close();
  main().activateWindow();
  Settle();
  Click("CmdNext");
  EXPECT_EQ(HelpWindow(), nullptr);
  EXPECT_EQ(PageSeen(), 6);
}

TEST_F(HelpKeysTest, MessageWhileTheUserReadsTheHelp_BelongsToTheMainWindow) {
  GoTo(2);
  WriteInto("Txt_i386_Loc", "X:\\nowhere");
  PressKey(Qt::Key_F1);
  ASSERT_NE(HelpWindow(), nullptr);
  HelpWindow()->activateWindow();
  Settle();
  watch.InNext([this](QDialog& box) {
    EXPECT_EQ(box.parentWidget(), &main());
    box.close();
  });
  Click("CmdNext");
  Settle();
  EXPECT_EQ(Focus(), "Txt_i386_Loc");
}

TEST_F(HelpKeysTest, EndOfTheProgram_ClosesTheHelp) {
  PressKey(Qt::Key_F1);
  ASSERT_NE(HelpWindow(), nullptr);
  program.reset();
  EXPECT_EQ(HelpWindow(), nullptr);
  Start();
}

}  // namespace
}  // namespace discwright::desktop
