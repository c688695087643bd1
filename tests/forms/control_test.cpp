// Tests of controls, their listeners, and finding and setting them by name.
#include "forms/control.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "forms/all_windows.h"

namespace discwright::forms {
namespace {

// Records the calls of a listener as texts "Control facet by".
class Heard {
 public:
  Listener Hear() {
    return [this](Control& control, Facet facet, By by) {
      static constexpr const char* kFacets[] = {"text", "value", "visible", "enabled", "range", "emphasis", "repaint"};
      lines.push_back(control.name() + " " + kFacets[static_cast<int>(facet)] + (by == By::kUser ? " user" : ""));
    };
  }
  std::vector<std::string> lines;
};

using Lines = std::vector<std::string>;

TEST(Notice, EveryProperty_NamesItsFacet) {
  FrmDiscwright main;
  Heard heard;
  const Subscription listening = main.Listen(heard.Hear());
  main.LblSub_Step.caption = "Copying";
  main.TxtISOLoc.text = "d:\\cd.iso";
  main.ChkGet_Win2k.value = 1;
  main.BarSub_Step.value = 7;
  main.LblAbort.visible = true;
  main.CmdBack.enabled = true;
  main.BarSub_Step.min = -1;
  main.BarSub_Step.max = 200;
  main.LblMsg1.bold = true;
  main.LblMsg1.fore_color = 255;
  main.LblMsg1.Refresh();
  main.caption = "Title";
  EXPECT_EQ(heard.lines, (Lines{"LblSub_Step text", "TxtISOLoc text", "ChkGet_Win2k value", "BarSub_Step value",
                                "LblAbort visible", "CmdBack enabled", "BarSub_Step range", "BarSub_Step range",
                                "LblMsg1 emphasis", "LblMsg1 emphasis", "LblMsg1 repaint", "FrmDiscwright text"}));
}

TEST(Notice, SameValueAgain_ReachesNobody) {
  FrmDiscwright main;
  Heard heard;
  const Subscription listening = main.Listen(heard.Hear());
  main.BarSub_Step.value = 0;
  main.ChkGet_Vexadisks.value = 1;
  main.TxtISOLoc.text.Set("c:\\vexacd.iso", By::kUser);
  EXPECT_EQ(heard.lines, Lines{});
}

TEST(Notice, OfOtherControls_DoesNotReachTheListenerOfOne) {
  FrmDiscwright main;
  Heard heard;
  const Subscription listening = main.TxtPass1.Listen(heard.Hear());
  main.TxtPass2.text = "two";
  main.TxtPass1.text = "one";
  EXPECT_EQ(heard.lines, Lines{"TxtPass1 text"});
}

TEST(Notice, Listener_AlreadySeesTheNewValue) {
  FrmDiscwright main;
  std::string seen;
  const Subscription listening = main.Listen([&](Control&, Facet, By) { seen = main.TxtPass1.text; });
  main.TxtPass1.text = "one";
  EXPECT_EQ(seen, "one");
}

TEST(Subscription, Ended_GetsNoNoticeAndIsNotCounted) {
  FrmDiscwright main;
  Heard heard;
  {
    const Subscription listening = main.Listen(heard.Hear());
    EXPECT_EQ(main.listener_count(), 1U);
  }
  main.TxtPass1.text = "one";
  EXPECT_EQ(heard.lines, Lines{});
  EXPECT_EQ(main.listener_count(), 0U);
}

TEST(Subscription, Moved_GoesOnUntilTheNewOwnerEndsIt) {
  FrmDiscwright main;
  Heard first;
  Heard second;
  Subscription listening = main.Listen(first.Hear());
  Subscription other = std::move(listening);
  main.TxtPass1.text = "one";
  other = main.Listen(second.Hear());
  main.TxtPass1.text = "two";
  EXPECT_EQ(first.lines.size(), 1U);
  EXPECT_EQ(second.lines.size(), 1U);
  EXPECT_EQ(main.listener_count(), 1U);
}

TEST(Subscription, BegunInsideANotice_HearsTheNextOne) {
  FrmDiscwright main;
  Heard heard;
  std::vector<Subscription> begun;
  const Subscription listening = main.Listen([&](Control&, Facet, By) {
    for (int i = 0; i < 20 && begun.size() < 20; ++i) begun.push_back(main.Listen(heard.Hear()));
  });
  main.TxtPass1.text = "one";
  EXPECT_EQ(heard.lines, Lines{});
  main.TxtPass1.text = "two";
  EXPECT_EQ(heard.lines.size(), 20U);
}

TEST(Subscription, EndedInsideANotice_DoesNotGetThatNotice) {
  FrmDiscwright main;
  Heard heard;
  Subscription own;
  Subscription later;
  int told = 0;
  own = main.Listen([&](Control&, Facet, By) {
    ++told;
    own.End();
    later.End();
  });
  later = main.Listen(heard.Hear());
  main.TxtPass1.text = "one";
  main.TxtPass1.text = "two";
  EXPECT_EQ(told, 1);
  EXPECT_EQ(heard.lines, Lines{});
  EXPECT_EQ(main.listener_count(), 0U);
}

TEST(Subscription, EndedInsideANoticeOfANotice_KeepsTheOtherListeners) {
  FrmDiscwright main;
  Heard heard;
  Subscription first = main.Listen([&](Control& control, Facet, By) {
    if (&control == &main.TxtPass1) main.TxtPass2.text = main.TxtPass1.text.get();
    if (&control == &main.TxtPass2) first.End();
  });
  const Subscription second = main.Listen(heard.Hear());
  main.TxtPass1.text = "one";
  EXPECT_EQ(heard.lines, (Lines{"TxtPass2 text", "TxtPass1 text"}));
  EXPECT_EQ(main.listener_count(), 1U);
}

TEST(Subscription, OutlivesItsForm_EndsQuietly) {
  Subscription listening;
  {
    FrmDiscwright main;
    listening = main.Listen([](Control&, Facet, By) {});
  }
  listening.End();
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

TEST(FrmDiscwright, SummaryAndReport_AreBoxesOfSeveralLinesThatTheProgramFillsIn) {
  const FrmDiscwright main;
  for (const TextBox* box : {&main.TxtSummery, &main.TxtReport}) {
    EXPECT_TRUE(box->multi_line) << box->name();
    EXPECT_TRUE(box->read_only) << box->name();
  }
}

TEST(Dialogs, AtStart_HaveTheirDefaults) {
  Windows windows;
  EXPECT_EQ(windows.win9x_info.caption.get(), "Windows 9x Installation Info");
  EXPECT_EQ(windows.win9x_info.TxtOSType.text.get(), "Microsoft Windows 98");
  EXPECT_EQ(windows.win2k_info.TxtWorkgroup.text.get(), "KORVANE_LTD");
  EXPECT_TRUE(windows.win2k_info.OptJoinWorkgroup.value);
  EXPECT_FALSE(windows.win2k_info.visible);
}

// Assigns a value to the control with this name. Returns the sentence of a failure.
std::string Assigned(Windows& windows, std::string_view name, std::string_view value) {
  const std::vector<Control*> found = FindControls(windows, name);
  return found.size() == 1 ? Assign(*found[0], value) : std::to_string(found.size()) + " controls";
}

TEST(Assign, KindsOfControl_TakeTheirValues) {
  Windows windows;
  EXPECT_EQ(Assigned(windows, "chkvexautils", "1"), "");
  EXPECT_EQ(windows.main.ChkVexaUtils.value.get(), 1);
  EXPECT_EQ(Assigned(windows, "TxtUtils_Loc", "/media/tools"), "");
  EXPECT_EQ(windows.main.TxtUtils_Loc.text.get(), "/media/tools");
}

TEST(Assign, OptionButton_OneOfTheTwoIsAlwaysChosen) {
  Windows windows;
  FrmWin2KInfo& dialog = windows.win2k_info;
  for (const auto& [name, value, domain] : {std::tuple("OptJoinDomain", "True", true),
                                            {"OptJoinDomain", "false", false},
                                            {"OptJoinWorkgroup", "0", true},
                                            {"OptJoinWorkgroup", "1", false}}) {
    EXPECT_EQ(Assigned(windows, name, value), "");
    EXPECT_EQ(dialog.OptJoinDomain.value, domain) << name << value;
    EXPECT_EQ(dialog.OptJoinWorkgroup.value, !domain) << name << value;
  }
}

TEST(Assign, ControlThatCannotBeUsed_IsStillSetByTheUser) {
  Windows windows;
  windows.main.TxtERDC.enabled = false;
  Heard heard;
  const Subscription listening = windows.main.Listen(heard.Hear());
  EXPECT_EQ(Assigned(windows, "TxtERDC", "T:"), "");
  EXPECT_EQ(heard.lines, Lines{"TxtERDC text user"});
}

TEST(Assign, WrongValue_ChangesNothingAndSaysWhy) {
  Windows windows;
  EXPECT_EQ(Assigned(windows, "ChkVexaUtils", "yes"), "a check box takes 0 or 1 (2 for greyed)");
  EXPECT_EQ(Assigned(windows, "OptJoinDomain", "maybe"), "an option takes True or False");
  EXPECT_EQ(Assigned(windows, "TxtSummery", "text"), "it is filled by the program and cannot be set");
  EXPECT_THAT(Assigned(windows, "CmdNext", "1"), ::testing::StartsWith("it holds no choice"));
  EXPECT_EQ(windows.main.ChkVexaUtils.value.get(), 0);
  EXPECT_FALSE(windows.win2k_info.OptJoinDomain.value);
}

TEST(FindControls, NameInTwoDialogs_FindsBothUnlessTheWindowIsNamed) {
  Windows windows;
  EXPECT_EQ(FindControls(windows, "txtowner"),
            (std::vector<Control*>{&windows.win2k_info.TxtOwner, &windows.win9x_info.TxtOwner}));
  EXPECT_EQ(FindControls(windows, "frmwin9xinfo.txtowner"), std::vector<Control*>{&windows.win9x_info.TxtOwner});
}

TEST(FindControls, NameOfTheMainWindow_IsTheMainWindowsAlone) {
  Windows windows;
  EXPECT_EQ(FindControls(windows, "CmdCancel"), std::vector<Control*>{&windows.main.CmdCancel});
  EXPECT_EQ(FindControls(windows, "FrmDiscwright.TxtPass1"), std::vector<Control*>{&windows.main.TxtPass1});
  EXPECT_TRUE(FindControls(windows, "ChkNothing").empty());
  EXPECT_TRUE(FindControls(windows, "FrmOther.TxtOwner").empty());
}

TEST(ShownText, MarkedKeyAndAmpersandOfTheText_AreDistinguished) {
  FrmDiscwright main;
  EXPECT_EQ(ShownText(main.CmdBack), "< Back");
  EXPECT_EQ(ShownText(main.ChkBCon), "O&O BlueCon XXL Pro");
  main.LblSub_Step.caption = "Adding O&&O BlueCon XXL Files";
  EXPECT_EQ(ShownText(main.LblSub_Step), "Adding O&O BlueCon XXL Files");
}

TEST(NamingText, Field_IsNamedByItsLabelAndOthersByThemselves) {
  FrmDiscwright main;
  EXPECT_EQ(NamingText(main.TxtPass2), "Confirm Password");
  EXPECT_EQ(NamingText(main.CmdNext), "Next >");
  EXPECT_EQ(NamingText(main.BarSub_Step), "");
}

TEST(AccessKey, FieldAndLink_HaveThatOfTheirLabel) {
  FrmDiscwright main;
  EXPECT_EQ(AccessKey(main.CmdBack), 'B');
  EXPECT_EQ(AccessKey(main.ChkBCon), 'O');
  EXPECT_EQ(AccessKey(main.TxtPass2), 'm');
  EXPECT_EQ(AccessKey(main.LblLink_vexacd), 'V');
  EXPECT_EQ(AccessKey(main.LblWelcome1), 0);
}

TEST(ValueText, KindsOfControl_GiveWhatAssignTakes) {
  Windows windows;
  windows.main.ChkGet_Win2k.value = 2;
  EXPECT_EQ(ValueText(windows.main.ChkGet_Win2k), "2");
  EXPECT_EQ(ValueText(windows.win2k_info.OptJoinWorkgroup), "True");
  EXPECT_EQ(ValueText(windows.win2k_info.OptJoinDomain), "False");
  EXPECT_EQ(ValueText(windows.main.TxtISOLoc), "c:\\vexacd.iso");
  EXPECT_EQ(ValueText(windows.main.CmdHelp), "Help");
  EXPECT_EQ(ValueText(windows.main.BarSub_Step), "");
}

}  // namespace
}  // namespace discwright::forms
