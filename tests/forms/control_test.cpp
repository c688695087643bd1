// Records tell their subscribers; windows find their controls.
#include "forms/control.h"

#include <gtest/gtest.h>

#include "forms/all_windows.h"

namespace discwright::forms {
namespace {

TEST(Property, AssignedDifferentValue_NotifiesControlAndFormSubscribers) {
  FrmDiscwright main;
  std::vector<std::string> heard;
  main.LblSub_Step.Subscribe([&](Control& control, Change) { heard.push_back(control.name()); });
  main.SubscribeToAll([&](Control& control, Change change) {
    heard.push_back("form: " + control.name() + (change == Change::kRepaint ? " repaint" : ""));
  });
  main.LblSub_Step.caption = "Copying";
  main.LblSub_Step.Refresh();
  EXPECT_EQ(heard,
            (std::vector<std::string>{"LblSub_Step", "form: LblSub_Step", "LblSub_Step", "form: LblSub_Step repaint"}));
}

TEST(Property, AssignedSameValue_NotifiesNobody) {
  FrmDiscwright main;
  int heard = 0;
  main.SubscribeToAll([&](Control&, Change) { ++heard; });
  main.BarSub_Step.value = 0;
  main.ChkGet_Vexadisks.value = 1;
  EXPECT_EQ(heard, 0);
}

TEST(Form, EveryControl_HasANameOfItsOwn) {
  Windows windows;
  for (const Form* form : windows.All()) {
    for (const Control* control : form->controls()) {
      EXPECT_EQ(form->Find(control->name(), control->index()), control) << control->name();
      EXPECT_EQ(&control->form(), form) << control->name();
    }
  }
}

TEST(Form, FindWithOtherLetterCase_FindsTheControl) {
  FrmDiscwright main;
  EXPECT_EQ(main.Find("chkget_WIN2K"), &main.ChkGet_Win2k);
  EXPECT_EQ(main.Find("FraMain", 10), &main.FraMain[10]);
  EXPECT_EQ(main.Find("NoSuchControl"), nullptr);
}

TEST(FrmDiscwright, AtStart_ShowsTheWelcomePageOnly) {
  FrmDiscwright main;
  EXPECT_EQ(main.Step, 0);
  EXPECT_TRUE(main.FraMain[0].visible);
  for (std::size_t page = 1; page < kPageCount; ++page) EXPECT_FALSE(main.FraMain[page].visible) << page;
  EXPECT_FALSE(main.CmdBack.enabled);
  EXPECT_TRUE(main.CmdNext.visible);
  EXPECT_FALSE(main.CmdFinish.visible);
}

TEST(FrmDiscwright, AtStart_HasTheDesignTimeTexts) {
  FrmDiscwright main;
  EXPECT_EQ(main.Heading(0).caption.get(), "  Welcome to The Vexa Discwright v2.0");
  EXPECT_EQ(main.TxtISOLoc.text.get(), "c:\\vexacd.iso");
  EXPECT_EQ(main.TxtSP_exe.text.get(), "C:\\SP\\xpsp1_en_x86.exe");
  EXPECT_EQ(main.LblFinish.caption.get(), "  Operation completed successfully");
  EXPECT_EQ(main.LblAbort.caption.get(), "Couldn't access destination ISO File");
  EXPECT_FALSE(main.LblAbort.visible);
  EXPECT_EQ(main.ChkGet_Vexadisks.value.get(), 1);
  EXPECT_EQ(main.ChkVexaUtils.container(), &main.FraUtils);
}

TEST(Dialogs, AtStart_HaveTheirDefaults) {
  Windows windows;
  EXPECT_EQ(windows.win9x_info.caption.get(), "Windows 9x Installation Info");
  EXPECT_EQ(windows.win9x_info.TxtOSType.text.get(), "Microsoft Windows 98");
  EXPECT_EQ(windows.win2k_info.TxtWorkgroup.text.get(), "KORVANE_LTD");
  EXPECT_TRUE(windows.win2k_info.OptJoinWorkgroup.value);
  EXPECT_FALSE(windows.win2k_info.visible);
}

TEST(Assign, KindsOfControl_TakeTheirValues) {
  Windows windows;
  EXPECT_EQ(Assign(windows, "chkvexautils", "1"), "");
  EXPECT_EQ(windows.main.ChkVexaUtils.value.get(), 1);
  EXPECT_EQ(Assign(windows, "TxtUtils_Loc", "/media/tools"), "");
  EXPECT_EQ(windows.main.TxtUtils_Loc.text.get(), "/media/tools");
  EXPECT_EQ(Assign(windows, "OptJoinDomain", "True"), "");
  EXPECT_TRUE(windows.win2k_info.OptJoinDomain.value);
  EXPECT_FALSE(windows.win2k_info.OptJoinWorkgroup.value);
}

TEST(Assign, NameInTwoDialogs_NeedsTheWindow) {
  Windows windows;
  EXPECT_EQ(Assign(windows, "TxtOwner", "Ann"),
            "two windows have a control of that name; write FrmWin2KInfo.TxtOwner or FrmWin9xInfo.TxtOwner");
  EXPECT_EQ(Assign(windows, "frmwin9xinfo.txtowner", "Ann"), "");
  EXPECT_EQ(windows.win9x_info.TxtOwner.text.get(), "Ann");
  EXPECT_EQ(windows.win2k_info.TxtOwner.text.get(), "VexaUser");
}

TEST(Assign, WrongNameOrValue_ChangesNothingAndSaysWhy) {
  Windows windows;
  EXPECT_EQ(Assign(windows, "ChkNothing", "1"), "there is no control of that name");
  EXPECT_EQ(Assign(windows, "FrmOther.TxtOwner", "1"), "there is no control of that name");
  EXPECT_NE(Assign(windows, "ChkVexaUtils", "yes"), "");
  EXPECT_NE(Assign(windows, "OptJoinDomain", "maybe"), "");
  EXPECT_NE(Assign(windows, "TxtSummery", "text"), "");
  EXPECT_NE(Assign(windows, "CmdNext", "1"), "");
  EXPECT_EQ(windows.main.ChkVexaUtils.value.get(), 0);
  EXPECT_FALSE(windows.win2k_info.OptJoinDomain.value);
}

}  // namespace
}  // namespace discwright::forms
