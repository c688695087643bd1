// Tests of facts about pages: which of them are on the way, and which page has a control.
#include "wizard/pages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/all_windows.h"

namespace discwright::wizard {
namespace {

using ::testing::ElementsAre;

class PagesTest : public ::testing::Test {
 protected:
  std::vector<int> OnTheWay() {
    std::vector<int> pages;
    for (int page = 0; page < 11; ++page) {
      if (IsOnTheWay(main, page)) pages.push_back(page);
    }
    return pages;
  }

  forms::Windows windows;
  forms::FrmDiscwright& main = windows.main;
};

TEST_F(PagesTest, ContentOf_IsTheBoxOfTheContentsPage) {
  std::vector<std::string> contents;
  for (int page = 0; page < 11; ++page) {
    const forms::CheckBox* content = ContentOf(main, page);
    contents.push_back(content == nullptr ? "always" : content->name());
  }
  EXPECT_THAT(contents, ElementsAre("always", "always", "ChkGet_Win2k", "ChkGet_Win2k", "ChkGet_Win9x",
                                    "ChkGet_Advtools", "always", "always", "always", "always", "always"));
}

TEST_F(PagesTest, IsOnTheWay_WhileTheContentIsChecked) {
  EXPECT_THAT(OnTheWay(), ElementsAre(0, 1, 6, 7, 8, 9, 10));
  main.ChkGet_Win2k.value = 1;
  EXPECT_THAT(OnTheWay(), ElementsAre(0, 1, 2, 3, 6, 7, 8, 9, 10));
  main.ChkGet_Win2k.value = 0;
  main.ChkGet_Win9x.value = 1;
  EXPECT_THAT(OnTheWay(), ElementsAre(0, 1, 4, 6, 7, 8, 9, 10));
  main.ChkGet_Win9x.value = 0;
  main.ChkGet_Advtools.value = 1;
  EXPECT_THAT(OnTheWay(), ElementsAre(0, 1, 5, 6, 7, 8, 9, 10));
}

TEST_F(PagesTest, IsOnTheWay_GreyedContentIsChecked) {
  main.ChkGet_Advtools.value = 2;
  EXPECT_TRUE(IsOnTheWay(main, kAdvtoolsPage));
}

TEST_F(PagesTest, PageInView_IsTheOneShown) {
  for (std::size_t page = 0; page < 11; ++page) {
    for (forms::Frame& frame : main.FraMain) frame.visible = false;
    main.FraMain[page].visible = true;
    main.Step = 3;
    EXPECT_EQ(PageInView(main), static_cast<int>(page));
  }
}

TEST_F(PagesTest, PageInView_NoneShown_IsTheStep) {
  main.FraMain[0].visible = false;
  main.Step = 4;
  EXPECT_EQ(PageInView(main), 4);
}

TEST_F(PagesTest, PageOf_IsThatOfTheFrameOnWhichAControlStands) {
  EXPECT_EQ(PageOf(main, main.LblWelcome1), 0);
  EXPECT_EQ(PageOf(main, main.ChkGet_Win2k), 1);
  EXPECT_EQ(PageOf(main, main.TxtSP_exe), 2);  // on a frame of the page
  EXPECT_EQ(PageOf(main, main.FraSP_Loc), 2);
  EXPECT_EQ(PageOf(main, main.CmdSetWin2KInfo), 3);
  EXPECT_EQ(PageOf(main, main.TxtWin9x_Loc), 4);
  EXPECT_EQ(PageOf(main, main.TxtBCon), 5);
  EXPECT_EQ(PageOf(main, main.ChkVexaUtils), 6);
  EXPECT_EQ(PageOf(main, main.TxtISOLoc), 7);
  EXPECT_EQ(PageOf(main, main.TxtSummery), 8);
  EXPECT_EQ(PageOf(main, main.LblLink_Third), 9);
  EXPECT_EQ(PageOf(main, main.BarSub_Step), 10);
  EXPECT_EQ(PageOf(main, main.FraMain[5]), 5);
}

TEST_F(PagesTest, PageOf_NothingOnAPageIsNone) {
  for (const forms::Control* control :
       {static_cast<forms::Control*>(&main.CmdNext), static_cast<forms::Control*>(&main.PicSideImage),
        static_cast<forms::Control*>(&main.DlgOpen), static_cast<forms::Control*>(&main),
        static_cast<forms::Control*>(&windows.win2k_info.TxtOwner),
        static_cast<forms::Control*>(&windows.win9x_info.CmdOK)}) {
    EXPECT_EQ(PageOf(main, *control), -1) << control->name();
  }
}

TEST_F(PagesTest, BuildRuns_OnTheProgressPageAlone) {
  for (int page = 0; page < 11; ++page) {
    main.Step = static_cast<std::int16_t>(page);
    EXPECT_EQ(BuildRuns(main), page == 10);
  }
}

}  // namespace
}  // namespace discwright::wizard
