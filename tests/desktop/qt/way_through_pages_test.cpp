// Tests of the way through the pages: the pages that are seen, their headings and buttons, with keys and with clicks.
#include <QCheckBox>
#include <QPushButton>
#include <map>
#include <tuple>

#include "tests/desktop/qt/window_fixture.h"

namespace discwright::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

const std::map<int, std::string> kHeadings = {{0, "  Welcome to The Vexa Discwright v2.0"},
                                              {1, "  Select the Contents of the CD"},
                                              {2, "  Add Windows 2000/XP/2003 Setup (1)"},
                                              {3, "  Add Windows 2000/XP/2003 Setup (2)"},
                                              {4, "  Add Windows 98/98SE/Me Setup"},
                                              {5, "  Advanced Tools"},
                                              {6, "  Vexa Utilities / Additional Files"},
                                              {7, "  Specify ISO File Options"},
                                              {8, "  Ready to create ISO file"}};

enum class By { kKeys, kClicks };

// The contents as three bits, and what the user walks with.
class WayTest : public testing::WindowFixture, public ::testing::WithParamInterface<std::tuple<int, By>> {
 protected:
  bool HasWin2K() const { return (std::get<0>(GetParam()) & 1) != 0; }
  bool HasWin9x() const { return (std::get<0>(GetParam()) & 2) != 0; }
  bool HasTools() const { return (std::get<0>(GetParam()) & 4) != 0; }
  bool ByKeys() const { return std::get<1>(GetParam()) == By::kKeys; }

  std::vector<int> ExpectedPages() const {
    std::vector<int> pages = {0, 1};
    if (HasWin2K()) pages.insert(pages.end(), {2, 3});
    if (HasWin9x()) pages.push_back(4);
    if (HasTools()) pages.push_back(5);
    pages.insert(pages.end(), {6, 7, 8});
    return pages;
  }
  void Next() {
    if (ByKeys()) {
      PressKey(Qt::Key_Enter);
    } else {
      Click("CmdNext");
    }
  }
  void Back() {
    if (ByKeys()) {
      TabTo("CmdBack");
      PressKey(Qt::Key_Space);
    } else {
      Click("CmdBack");
    }
  }
  void Tick(const std::string& box, char key) {
    if (ByKeys()) {
      PressAlt(key);
    } else {
      Click(box);
    }
  }
  void TickContents() {
    if (HasWin2K()) Tick("ChkGet_Win2k", 'w');
    if (HasWin9x()) Tick("ChkGet_Win9x", 'm');
    if (HasTools()) Tick("ChkGet_Advtools", 't');
  }
  void ExpectPage(int page) {
    EXPECT_EQ(HeadingSeen(), kHeadings.at(page));
    EXPECT_EQ(IsUsable("CmdBack"), page > 0);
    EXPECT_EQ(IsUsable("CmdNext"), page < 8);
    EXPECT_EQ(IsUsable("CmdFinish"), page == 8);
    EXPECT_TRUE(IsUsable("CmdCancel"));
    EXPECT_TRUE(IsUsable("CmdHelp"));
  }
};

TEST_P(WayTest, ToTheSummaryAndBack_ShowsThePagesOfTheContents) {
  FillLocations();
  std::vector<int> pages = ExpectedPages();
  for (const int page : pages) {
    if (page > 0) Next();
    SCOPED_TRACE(page);
    ExpectPage(page);
    if (page == 1) TickContents();
  }
  while (!pages.empty()) {
    SCOPED_TRACE(pages.back());
    ExpectPage(pages.back());
    pages.pop_back();
    if (!pages.empty()) Back();
  }
  EXPECT_THAT(watch.messages, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(AllContents, WayTest,
                         ::testing::Combine(::testing::Range(0, 8), ::testing::Values(By::kKeys, By::kClicks)),
                         [](const auto& one) {
                           return std::string(std::get<1>(one.param) == By::kKeys ? "Keys" : "Clicks") +
                                  std::to_string(std::get<0>(one.param));
                         });

class PagesTest : public testing::WindowFixture {};

TEST_F(PagesTest, Start_ShowsTheWelcomePageInTheWindow) {
  EXPECT_TRUE(main().isVisible());
  EXPECT_EQ(main().windowTitle(), "Vexa Discwright");
  EXPECT_EQ(PageSeen(), 0);
  EXPECT_FALSE(IsUsable("CmdBack"));
  EXPECT_TRUE(main().isActiveWindow());
}

TEST_F(PagesTest, SidePicture_StandsAtTheLeftFromTheTopToTheButtons) {
  const QWidget& picture = Widget("PicSideImage");
  const QWidget& heading = Widget("LblHeadWelcome");
  EXPECT_TRUE(picture.isVisible());
  EXPECT_EQ(picture.mapTo(&main(), QPoint(0, 0)), QPoint(0, 0));
  EXPECT_LE(picture.width(), heading.mapTo(&main(), QPoint(0, 0)).x());
  EXPECT_GT(picture.height(), main().height() * 2 / 3);
}

TEST_F(PagesTest, FinishStandsInThePlaceOfNext) {
  GoTo(7);
  const QRect next = Widget("CmdNext").geometry();
  const QRect back = Widget("CmdBack").geometry();
  PressKey(Qt::Key_Enter);
  Settle();
  EXPECT_FALSE(IsShown("CmdNext"));
  EXPECT_EQ(Widget("CmdFinish").geometry(), next);
  EXPECT_EQ(Widget("CmdBack").geometry(), back);
}

TEST_F(PagesTest, AltN_IsNext) {
  PressAlt('n');
  EXPECT_EQ(PageSeen(), 1);
}

TEST_F(PagesTest, AltB_IsBack) {
  GoTo(5);
  PressAlt('b');
  EXPECT_EQ(PageSeen(), 4);
}

TEST_F(PagesTest, BackOnTheWelcomePage_CannotBePressed) {
  Click("CmdBack");
  PressAlt('b');
  EXPECT_EQ(PageSeen(), 0);
}

TEST_F(PagesTest, SummaryPage_ShowsTheSummaryOfTheChoices) {
  GoTo(8);
  const QString text = Widget("TxtSummery").property("plainText").toString();
  EXPECT_TRUE(text.contains("S:\\I386")) << FromQt(text);
  EXPECT_TRUE(text.contains("c:\\vexacd.iso")) << FromQt(text);
  EXPECT_EQ(text, LinesToQt(records().TxtSummery.text.get()));
}

TEST_F(PagesTest, BusyForm_ShowsTheWaitCursor) {
  EXPECT_EQ(main().cursor().shape(), Qt::ArrowCursor);
  records().busy = true;
  EXPECT_EQ(main().cursor().shape(), Qt::WaitCursor);
  records().busy = false;
  EXPECT_EQ(main().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(PagesTest, Window_HasTheSameSizeOnEveryPage) {
  const QSize at_start = main().size();
  for (int page = 1; page <= static_cast<int>(forms::kFinishPage); ++page) {
    GoTo(page);
    EXPECT_EQ(main().size(), at_start) << page;
  }
}

}  // namespace
}  // namespace discwright::desktop
