// Tests of the help viewer: what it shows for each request, its links, and its keys.
#include "desktop/qt/help_window.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "desktop/qt/qt_text.h"
#include "tests/support/fake_host.h"
#include "wizard/help.h"

namespace discwright::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// The program folder is a temporary folder with a few topics.
class HelpWindowTest : public ::testing::Test {
 protected:
  HelpWindowTest() {
    host.shows_slashes = true;
    Write("1110.html", "<h1>First</h1><a href='1120.html#below'>on</a>" + Lines() + "<p><a name='below'>Below</a></p>");
    Write("1120.html", "<h1>Second</h1>" + Lines() + "<h2><a name='below'>Below</a></h2>" + Lines());
    Write("start.html", "<h1>Start page</h1><a href='missing.html'>gone</a>");
    Write("web.html", "<a href='https://discwright.example.org/a%20b'>web</a>");
    Write("contents.html", "<a href='1110.html'>First</a> <a href='1120.html'>Second</a>");
    Write("index.html", "<a href='1120.html#below'>Below</a>");
  }

  static std::string Lines() {
    std::string lines;
    for (int i = 0; i < 200; ++i) lines += "<p>A line.</p>";
    return lines;
  }
  void Write(const std::string& name, const std::string& html) {
    QDir(folder.path()).mkpath(QStringLiteral("odd # 100% > folder/help"));
    QFile file(InHelp(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(html.data(), static_cast<qint64>(html.size()));
  }
  QString Program() const { return folder.path() + QStringLiteral("/odd # 100% > folder"); }
  QString InHelp(const std::string& name) const { return Program() + QStringLiteral("/help/") + ToQt(name); }

  host::HelpRequest Request(host::HelpCommand command) const {
    std::string program = FromQt(Program());
    std::replace(program.begin(), program.end(), '/', '\\');
    return {nullptr, program + "\\vexacd_builder.chm>Down", command};
  }
  std::string ShowTopic(int id) {
    host::HelpRequest request = Request(host::HelpCommand::kTopicId);
    request.topic_id = id;
    return window->Show(request);
  }
  std::string ShowFile(const std::string& name) {
    host::HelpRequest request = Request(host::HelpCommand::kTopicFile);
    request.topic_file = name;
    return window->Show(request);
  }

  QTextBrowser& Page(const char* name) const {
    for (QTextBrowser* page : window->findChildren<QTextBrowser*>()) {
      if (page->accessibleName() == QLatin1String(name)) return *page;
    }
    throw std::runtime_error(name);
  }
  QTextBrowser& Topic() const { return Page("Topic"); }
  std::string Text() const { return FromQt(Topic().toPlainText()); }
  std::string Heading() const { return FromQt(Topic().toPlainText().section(QLatin1Char('\n'), 0, 0)); }
  // Waits, because a button that is pressed by its key is shown pressed for a moment before it acts.
  bool Shows(const std::string& heading) const {
    return QTest::qWaitFor([&] { return Heading() == heading; });
  }
  std::string OpenList() const { return FromQt(window->findChild<QTabWidget*>()->currentWidget()->accessibleName()); }
  // Goes to the first link of a page and follows it, as the keyboard does.
  void FollowFirstLink(QTextBrowser& page) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    page.setFocus();
    QTest::keyClick(&page, Qt::Key_Tab);
    QTest::keyClick(&page, Qt::Key_Return);
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }

  testing::FakeHost host;
  QTemporaryDir folder;
  std::vector<std::string> opened;
  std::unique_ptr<HelpWindow> window =
      std::make_unique<HelpWindow>([this](const std::string& address) { opened.push_back(address); });
};

TEST_F(HelpWindowTest, TopicId_ShowsItsFileInAnActiveWindowWithTheTitleOfTheViewer) {
  EXPECT_EQ(ShowTopic(1120), "");
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  EXPECT_EQ(FromQt(window->windowTitle()), wizard::kHelpViewerTitle);
  EXPECT_EQ(Heading(), "Second");
  EXPECT_TRUE(Topic().hasFocus());
}

TEST_F(HelpWindowTest, EveryPage_HasItsShippedTopic) {
  for (int page = 0; page < 11; ++page) {
    host::HelpRequest request{nullptr, SHIPPED_HELP "/../vexacd_builder.chm>Down", host::HelpCommand::kTopicId};
    request.topic_id = wizard::HelpTopic(page);
    EXPECT_EQ(window->Show(request), "");
    EXPECT_FALSE(Topic().documentTitle().isEmpty()) << page;
    EXPECT_GT(Text().size(), 500U) << page;
  }
}

TEST_F(HelpWindowTest, TopicFile_ShowsThatFile) {
  EXPECT_EQ(ShowFile("1110.html"), "");
  EXPECT_EQ(Heading(), "First");
}

TEST_F(HelpWindowTest, ContentsAndIndex_ShowTheStartPageWithThatListInFront) {
  EXPECT_EQ(window->Show(Request(host::HelpCommand::kIndex)), "");
  EXPECT_EQ(OpenList(), "Index");
  EXPECT_EQ(Heading(), "Start page");
  EXPECT_EQ(window->Show(Request(host::HelpCommand::kContents)), "");
  EXPECT_EQ(OpenList(), "Contents");
}

TEST_F(HelpWindowTest, OpenViewer_MovesToTheTopicAndLeavesTheKeyboardToTheWizard) {
  ShowTopic(1110);
  QWidget wizard_window;
  wizard_window.show();
  wizard_window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&wizard_window));
  EXPECT_EQ(ShowTopic(1120), "");
  QApplication::processEvents();
  EXPECT_EQ(Heading(), "Second");
  EXPECT_TRUE(wizard_window.isActiveWindow());
  window->close();
  ShowTopic(1110);
  EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
}

TEST_F(HelpWindowTest, MinimizedViewer_ComesBack) {
  ShowTopic(1110);
  window->showMinimized();
  ShowTopic(1110);
  EXPECT_FALSE(window->isMinimized());
}

TEST_F(HelpWindowTest, SameTopicAgain_StaysWhereItWasScrolled) {
  ShowTopic(1110);
  Topic().verticalScrollBar()->setValue(200);
  ShowTopic(1110);
  EXPECT_EQ(Topic().verticalScrollBar()->value(), 200);
}

TEST_F(HelpWindowTest, MissingTopic_IsASentenceThatNamesTheFileAndChangesNothing) {
  EXPECT_THAT(ShowTopic(1130), ::testing::AllOf(HasSubstr(FromQt(InHelp("1130.html"))), HasSubstr("copy the folder")));
  EXPECT_FALSE(window->isVisible());
  ShowTopic(1110);
  EXPECT_NE(ShowTopic(1130), "");
  EXPECT_EQ(Heading(), "First");
}

TEST_F(HelpWindowTest, LinkToAMissingFile_ShowsWhichFileIsMissing) {
  ShowFile("start.html");
  FollowFirstLink(Topic());
  EXPECT_THAT(Text(), HasSubstr(FromQt(InHelp("missing.html"))));
}

TEST_F(HelpWindowTest, MissingLists_SayWhichFileIsMissing) {
  QFile::remove(InHelp("index.html"));
  ShowTopic(1110);
  EXPECT_THAT(FromQt(Page("Index").toPlainText()), HasSubstr(FromQt(InHelp("index.html"))));
}

TEST_F(HelpWindowTest, LinkWithAnAnchor_ScrollsTheOtherTopicToIt) {
  ShowTopic(1110);
  FollowFirstLink(Topic());
  EXPECT_EQ(Heading(), "Second");
  EXPECT_GT(Topic().verticalScrollBar()->value(), 0);
}

TEST_F(HelpWindowTest, LinksOfTheLists_OpenAtTheRight) {
  ShowTopic(1120);
  FollowFirstLink(Page("Contents"));
  EXPECT_EQ(Heading(), "First");
  window->Show(Request(host::HelpCommand::kIndex));
  FollowFirstLink(Page("Index"));
  EXPECT_EQ(Heading(), "Second");
  EXPECT_THAT(FromQt(Page("Index").toPlainText()), HasSubstr("Below"));
}

TEST_F(HelpWindowTest, LinkToTheWeb_IsHandedOverAndTheTopicStays) {
  ShowFile("web.html");
  FollowFirstLink(Topic());
  EXPECT_THAT(opened, ElementsAre("https://discwright.example.org/a%20b"));
  EXPECT_EQ(Text(), "web");
}

TEST_F(HelpWindowTest, BackForwardAndStart_WorkByTheirKeys) {
  ShowTopic(1110);
  ShowTopic(1120);
  Press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_TRUE(Shows("First"));
  Press(Qt::Key_Right, Qt::AltModifier);
  EXPECT_TRUE(Shows("Second"));
  Press(Qt::Key_B, Qt::AltModifier);
  EXPECT_TRUE(Shows("First"));
  Press(Qt::Key_F, Qt::AltModifier);
  EXPECT_TRUE(Shows("Second"));
  Press(Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(Shows("Start page"));
}

TEST_F(HelpWindowTest, BackAndForward_AreGreyWhereThereIsNothingToGoTo) {
  const auto enabled = [this] {
    std::vector<std::string> names;
    for (const QPushButton* button : window->findChildren<QPushButton*>()) {
      if (button->isEnabled()) names.push_back(FromQt(button->accessibleName()));
    }
    return names;
  };
  ShowTopic(1110);
  EXPECT_THAT(enabled(), ElementsAre("Start"));
  ShowTopic(1120);
  EXPECT_THAT(enabled(), ElementsAre("Back", "Start"));
  Press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_THAT(enabled(), ElementsAre("Forward", "Start"));
}

TEST_F(HelpWindowTest, TabsAndPanes_AreReachedByKeys) {
  ShowTopic(1110);
  Press(Qt::Key_I, Qt::AltModifier);
  EXPECT_EQ(OpenList(), "Index");
  Press(Qt::Key_C, Qt::AltModifier);
  EXPECT_EQ(OpenList(), "Contents");
  Topic().setFocus();
  Press(Qt::Key_F6);
  EXPECT_TRUE(Page("Contents").hasFocus());
  Press(Qt::Key_F6);
  EXPECT_TRUE(Topic().hasFocus());
}

TEST_F(HelpWindowTest, Escape_ClosesTheViewerAndF1DoesNothing) {
  ShowTopic(1110);
  Press(Qt::Key_F1);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(Heading(), "First");
  Press(Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(HelpWindowTest, OpenViewer_DoesNotKeepTheProgramRunning) {
  EXPECT_FALSE(window->testAttribute(Qt::WA_QuitOnClose));
}

TEST_F(HelpWindowTest, EveryWidgetThatTakesTheKeyboard_HasAnAccessibleName) {
  for (const QWidget* widget : window->findChildren<QWidget*>()) {
    if ((widget->focusPolicy() & Qt::TabFocus) == 0) continue;
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->metaObject()->className();
  }
}

TEST_F(HelpWindowTest, OtherPalette_GivesTheLinksItsColourAndKeepsThePlace) {
  const auto colour = [this] {
    QTextCursor cursor(Topic().document());
    cursor.setPosition(1);
    return cursor.charFormat().foreground().color().name();
  };
  const QPalette before = QApplication::palette();
  Write("long.html", "<a href='1110.html'>link</a>" + Lines());
  ShowFile("long.html");
  Topic().verticalScrollBar()->setValue(200);
  QPalette palette = before;
  palette.setColor(QPalette::Link, QColor(1, 2, 3));
  QApplication::setPalette(palette);
  QApplication::processEvents();
  EXPECT_EQ(colour(), QStringLiteral("#010203"));
  EXPECT_EQ(Topic().verticalScrollBar()->value(), 200);
  QApplication::setPalette(before);
}

}  // namespace
}  // namespace discwright::desktop
