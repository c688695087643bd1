// Tests of the actions of a user on controls, and of controls that cannot be used.
#include "forms/user_actions.h"

#include <gtest/gtest.h>

#include "forms/all_windows.h"

namespace discwright::forms {
namespace {

class UserActions : public ::testing::Test {
 protected:
  Windows windows;
  FrmDiscwright& main = windows.main;
  int clicks = 0;
  int told_by_user = 0;
  Subscription listening = main.Listen([this](Control&, Facet, By by) { told_by_user += by == By::kUser ? 1 : 0; });

  void SetUp() override {
    main.CmdNext.click = [this] { ++clicks; };
    main.LblLink_vexacd.click = [this] { ++clicks; };
  }
};

TEST_F(UserActions, Press_ClicksAButtonThatCanBeUsed) {
  EXPECT_TRUE(Press(main.CmdNext));
  EXPECT_EQ(clicks, 1);
}

TEST_F(UserActions, Press_DisabledOrHiddenButtonDoesNothing) {
  main.CmdNext.enabled = false;
  EXPECT_FALSE(Press(main.CmdNext));
  main.CmdNext.enabled = true;
  main.CmdNext.visible = false;
  EXPECT_FALSE(Press(main.CmdNext));
  EXPECT_EQ(clicks, 0);
}

TEST_F(UserActions, Press_ButtonThatBindsItselfAnew_FinishesTheOldClick) {
  main.CmdNext.click = [this] {
    main.CmdNext.click = nullptr;
    ++clicks;
  };
  EXPECT_TRUE(Press(main.CmdNext));
  EXPECT_TRUE(Press(main.CmdNext));
  EXPECT_EQ(clicks, 1);
}

TEST_F(UserActions, FrameOrFormDisabled_PutsItsControlsOutOfReach) {
  EXPECT_TRUE(CanBeUsed(main.TxtSP_exe));
  main.FraSP_Loc.enabled = false;
  EXPECT_FALSE(CanBeUsed(main.TxtSP_exe));
  EXPECT_TRUE(CanBeUsed(main.Txt_i386_Loc));
  main.enabled = false;
  EXPECT_FALSE(CanBeUsed(main.Txt_i386_Loc));
}

// The page that is shown does not matter, because --controls and the rules also ask about hidden pages.
TEST_F(UserActions, PageNotInView_LeavesItsControlsUsable) { EXPECT_TRUE(CanBeUsed(main.ChkGet_Win2k)); }

TEST_F(UserActions, Toggle_ChecksAndClearsInTheUsersName) {
  EXPECT_TRUE(Toggle(main.ChkERDC, true));
  EXPECT_EQ(main.ChkERDC.value, 1);
  EXPECT_TRUE(Toggle(main.ChkERDC, false));
  EXPECT_EQ(main.ChkERDC.value, 0);
  EXPECT_EQ(told_by_user, 2);
  main.ChkERDC.enabled = false;
  told_by_user = 0;
  EXPECT_FALSE(Toggle(main.ChkERDC, true));
  EXPECT_EQ(main.ChkERDC.value, 0);
}

TEST_F(UserActions, Type_ReplacesTheTextInTheUsersName) {
  EXPECT_TRUE(Type(main.TxtISOLoc, "d:\\cd.iso"));
  EXPECT_EQ(main.TxtISOLoc.text.get(), "d:\\cd.iso");
  EXPECT_EQ(told_by_user, 1);
}

TEST_F(UserActions, Type_IntoADisabledOrReadOnlyField_DoesNothing) {
  main.TxtISOLoc.enabled = false;
  EXPECT_FALSE(Type(main.TxtISOLoc, "x"));
  EXPECT_FALSE(Type(main.TxtSummery, "x"));
  EXPECT_EQ(main.TxtISOLoc.text.get(), "c:\\vexacd.iso");
  EXPECT_EQ(main.TxtSummery.text.get(), "");
}

TEST_F(UserActions, Follow_OpensALinkThatCanBeUsed) {
  EXPECT_TRUE(Follow(main.LblLink_vexacd));
  EXPECT_EQ(clicks, 1);
  main.LblLink_vexacd.enabled = false;
  EXPECT_FALSE(Follow(main.LblLink_vexacd));
  EXPECT_EQ(clicks, 1);
}

TEST_F(UserActions, Choose_ClearsTheOtherOption) {
  FrmWin2KInfo& dialog = windows.win2k_info;
  std::vector<std::string> told;
  const Subscription hearing = dialog.Listen([&](Control& control, Facet, By by) {
    told.push_back(control.name() + (by == By::kUser ? " user" : ""));
    EXPECT_TRUE(dialog.OptJoinDomain.value);
    EXPECT_FALSE(dialog.OptJoinWorkgroup.value);
  });
  EXPECT_TRUE(Choose(dialog.OptJoinDomain));
  EXPECT_TRUE(dialog.OptJoinDomain.value);
  EXPECT_FALSE(dialog.OptJoinWorkgroup.value);
  EXPECT_EQ(told, (std::vector<std::string>{"OptJoinWorkgroup user", "OptJoinDomain user"}));
}

TEST_F(UserActions, OptionSetByTheProgram_ClearsTheOtherOneToo) {
  windows.win2k_info.OptJoinDomain.value = true;
  EXPECT_FALSE(windows.win2k_info.OptJoinWorkgroup.value);
}

TEST_F(UserActions, Drop_GivesThePathToAFieldThatTakesOne) {
  std::vector<std::string> paths;
  main.TxtERDC.dropped = [this, &paths](const std::string& path) {
    main.TxtERDC.dropped = nullptr;
    paths.push_back(path);
  };
  EXPECT_TRUE(Drop(main.TxtERDC, "E:\\erd"));
  EXPECT_EQ(paths, std::vector<std::string>{"E:\\erd"});
  EXPECT_FALSE(Drop(main.TxtERDC, "E:\\erd"));
}

TEST_F(UserActions, Drop_DisabledFieldTakesNothing) {
  main.TxtERDC.dropped = [this](const std::string&) { ++clicks; };
  main.TxtERDC.enabled = false;
  EXPECT_FALSE(Drop(main.TxtERDC, "E:\\erd"));
  EXPECT_EQ(clicks, 0);
}

TEST_F(UserActions, AskToCancel_PressesTheCancelButton) {
  windows.win9x_info.CmdCancel.click = [this] { ++clicks; };
  AskToCancel(windows.win9x_info);
  EXPECT_EQ(clicks, 1);
  windows.win9x_info.CmdCancel.enabled = false;
  AskToCancel(windows.win9x_info);
  EXPECT_EQ(clicks, 1);
  windows.win9x_info.cancel_button = nullptr;
  AskToCancel(windows.win9x_info);
  EXPECT_EQ(clicks, 1);
}

TEST_F(UserActions, AskToCancel_CallsTheProgramInsteadWhenItWantsToDecide) {
  int asked = 0;
  main.CmdCancel.click = [this] { ++clicks; };
  main.asked_to_cancel = [this, &asked] {
    main.asked_to_cancel = nullptr;
    ++asked;
  };
  AskToCancel(main);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(clicks, 0);
}

TEST_F(UserActions, AskToClose_IsTheProgramsDecision) {
  main.visible = true;
  AskToClose(main);
  EXPECT_TRUE(main.visible);
  main.asked_to_close = [this] { main.visible = false; };
  AskToClose(main);
  EXPECT_FALSE(main.visible);
}

TEST_F(UserActions, TakesInput_IsTrueForControlsThatAUserCanChange) {
  for (const Control* control : std::initializer_list<const Control*>{
           &main.CmdHelp, &main.ChkERDC, &main.TxtERDC, &main.LblLink_vexacd, &windows.win2k_info.OptJoinDomain}) {
    EXPECT_TRUE(TakesInput(*control)) << control->name();
  }
  for (const Control* control : std::initializer_list<const Control*>{&main.LblERDC, &main.TxtSummery, &main.FraISO,
                                                                      &main.BarSub_Step, &main.PicSideImage}) {
    EXPECT_FALSE(TakesInput(*control)) << control->name();
  }
}

}  // namespace
}  // namespace discwright::forms
