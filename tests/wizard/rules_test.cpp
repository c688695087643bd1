// Tests of the rules between check boxes and fields. Each rule is listed here once more and tested from every state.
#include "wizard/rules.h"

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "forms/user_actions.h"
#include "settings/session.h"
#include "tests/wizard/wizard_fixture.h"
#include "wizard/summary.h"

namespace discwright::wizard {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::WizardFixture;

struct Rule {
  std::vector<std::string> boxes;  // one that is checked is enough
  std::vector<std::string> fields;
};

const std::vector<Rule> kRules = {
    {{"ChkVexaUtils"}, {"LblUtils", "TxtUtils_Loc", "CmdExp_Utils", "CmdBrw_Utils"}},
    {{"ChkAddFiles"}, {"LblAddFiles", "TxtAddFiles_Loc", "CmdExp_AddFiles", "CmdBrw_AddFiles"}},
    {{"ChkPassProtect"}, {"LblPass1", "TxtPass1", "LblPass2", "TxtPass2"}},
    {{"ChkSlipstream"}, {"LblSP", "TxtSP_exe", "CmdBrw_spexe"}},
    {{"ChkERDC"}, {"LblERDC", "TxtERDC", "CmdBrw_ERDC"}},
    {{"ChkBCon"}, {"LblBCon", "TxtBCon", "CmdBrw_BCon"}},
    {{"ChkWin2KInfo_Assis", "ChkWin2KInfo_Unattend"}, {"CmdSetWin2KInfo"}},
    {{"ChkWin9xInfo_Assis", "ChkWin9xInfo_MSBatch"}, {"CmdSetWin9xInfo"}},
};

constexpr const char* kSession = "C:\\Discwright\\session.ini";

forms::CheckBox& Box(forms::Windows& windows, const std::string& name) {
  return dynamic_cast<forms::CheckBox&>(*windows.main.Find(name));
}

// The controls that the rules disable. A box counts as checked if its value is 1; a greyed box does not.
std::set<std::string> DisabledByTheRules(forms::Windows& windows) {
  std::set<std::string> disabled;
  for (const Rule& rule : kRules) {
    bool holds = false;
    for (const std::string& box : rule.boxes) holds = holds || Box(windows, box).value == 1;
    if (!holds) disabled.insert(rule.fields.begin(), rule.fields.end());
  }
  return disabled;
}

std::set<std::string> Disabled(forms::Windows& windows) {
  std::set<std::string> disabled;
  for (const forms::Control* control : windows.main.controls()) {
    if (!control->enabled && control != &windows.main.CmdBack) disabled.insert(control->name());
  }
  return disabled;
}

// Every combination of the values 0, 1 and 2 of one or two boxes.
std::vector<std::vector<int>> Combinations(std::size_t boxes) {
  std::vector<std::vector<int>> combinations{{}};
  for (std::size_t i = 0; i < boxes; ++i) {
    std::vector<std::vector<int>> longer;
    for (const std::vector<int>& shorter : combinations) {
      for (const int value : {0, 1, 2}) {
        longer.push_back(shorter);
        longer.back().push_back(value);
      }
    }
    combinations = longer;
  }
  return combinations;
}

void SetBoxes(forms::Windows& windows, const Rule& rule, const std::vector<int>& values) {
  for (std::size_t i = 0; i < values.size(); ++i) Box(windows, rule.boxes[i]).value = values[i];
}

std::vector<int> ValuesOf(forms::Windows& windows, const Rule& rule) {
  std::vector<int> values;
  for (const std::string& box : rule.boxes) values.push_back(Box(windows, box).value);
  return values;
}

class RulesTest : public WizardFixture {
 protected:
  // From each state of each rule's boxes to each other one, by `change`; not to values above `greatest`.
  void ExpectRulesAfter(const std::function<void(const Rule&, const std::vector<int>&)>& change, int greatest = 2,
                        const std::set<std::string>& left_out = {}) {
    for (const Rule& rule : kRules) {
      if (left_out.contains(rule.boxes[0])) continue;
      for (const std::vector<int>& from : Combinations(rule.boxes.size())) {
        for (const std::vector<int>& to : Combinations(rule.boxes.size())) {
          if (*std::max_element(to.begin(), to.end()) > greatest) continue;
          SetBoxes(windows, rule, from);
          change(rule, to);
          EXPECT_EQ(ValuesOf(windows, rule), to) << rule.boxes[0];
          EXPECT_EQ(Disabled(windows), DisabledByTheRules(windows)) << rule.boxes[0];
        }
      }
    }
  }

  std::vector<std::vector<std::string>> Missing(const forms::Control& control) {
    std::vector<std::vector<std::string>> names;
    for (const std::vector<const forms::CheckBox*>& one_of : MissingFor(windows, control)) {
      names.emplace_back();
      for (const forms::CheckBox* box : one_of) names.back().push_back(box->name());
    }
    return names;
  }

  // The names of the controls that report a change while `act` runs.
  std::vector<std::string> ChangedBy(const std::function<void()>& act) {
    std::vector<std::string> changed;
    const forms::Subscription listens =
        main.Listen([&](forms::Control& control, forms::Facet, forms::By) { changed.push_back(control.name()); });
    act();
    return changed;
  }
};

TEST(RulesAtTheStart, EveryStateOfTheBoxes_DecidesOverTheirFields) {
  for (const Rule& rule : kRules) {
    for (const std::vector<int>& values : Combinations(rule.boxes.size())) {
      forms::Windows windows;
      SetBoxes(windows, rule, values);
      const forms::Subscription rules = KeepRules(windows);
      EXPECT_EQ(ValuesOf(windows, rule), values);
      EXPECT_EQ(Disabled(windows), DisabledByTheRules(windows)) << rule.boxes[0];
    }
  }
}

TEST(RulesAtTheStart, Defaults_DisableAllFields) {
  forms::Windows windows;
  EXPECT_THAT(Disabled(windows), IsEmpty());
  const forms::Subscription rules = KeepRules(windows);
  std::set<std::string> all;
  for (const Rule& rule : kRules) all.insert(rule.fields.begin(), rule.fields.end());
  EXPECT_EQ(Disabled(windows), all);
}

TEST(RulesAtTheStart, BootDisks_AreAlwaysChecked) {
  for (const int value : {0, 1, 2}) {
    forms::Windows windows;
    windows.main.ChkGet_Vexadisks.value = value;
    const forms::Subscription rules = KeepRules(windows);
    EXPECT_EQ(windows.main.ChkGet_Vexadisks.value, 1);
  }
}

TEST_F(RulesTest, WizardPutTogether_KeepsThem) { EXPECT_EQ(Disabled(windows), DisabledByTheRules(windows)); }

TEST_F(RulesTest, Clicks_AreFollowed) {
  ExpectRulesAfter(
      [this](const Rule& rule, const std::vector<int>& values) {
        for (std::size_t i = 0; i < values.size(); ++i) {
          EXPECT_TRUE(forms::Toggle(Box(windows, rule.boxes[i]), values[i] == 1));
        }
      },
      1);
}

TEST_F(RulesTest, ValuesThatTheProgramGives_AreFollowed) {
  ExpectRulesAfter([this](const Rule& rule, const std::vector<int>& values) { SetBoxes(windows, rule, values); });
}

TEST_F(RulesTest, ValuesOfAScript_AreFollowed) {
  ExpectRulesAfter([this](const Rule& rule, const std::vector<int>& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      EXPECT_EQ(forms::Assign(Box(windows, rule.boxes[i]), std::to_string(values[i])), "");
    }
  });
}

TEST_F(RulesTest, ValuesOfASession_AreFollowed) {
  ExpectRulesAfter(
      [this](const Rule& rule, const std::vector<int>& values) {
        forms::Windows saved;
        SetBoxes(saved, rule, values);
        ASSERT_TRUE(settings::WriteSession(saved, notes, kSession).ok());
        settings::ReadVexaCDINI(context.windows, context.notes, kSession);
      },
      2, {"ChkPassProtect", "ChkSlipstream"});  // no session has them
}

TEST_F(RulesTest, SessionWithoutAServicePack_UnticksItAndItsFieldsFollow) {
  main.ChkSlipstream.value = 1;
  forms::Windows saved;
  ASSERT_TRUE(settings::WriteSession(saved, notes, kSession).ok());
  settings::ReadVexaCDINI(context.windows, context.notes, kSession);
  EXPECT_EQ(main.ChkSlipstream.value, 0);
  EXPECT_EQ(Disabled(windows), DisabledByTheRules(windows));
}

TEST_F(RulesTest, OneOfAPairCleared_LeavesTheButtonToTheOther) {
  forms::Toggle(main.ChkWin2KInfo_Assis, true);
  forms::Toggle(main.ChkWin2KInfo_Unattend, true);
  EXPECT_THAT(ChangedBy([this] { forms::Toggle(main.ChkWin2KInfo_Unattend, false); }),
              ElementsAre("ChkWin2KInfo_Unattend"));
  EXPECT_TRUE(main.CmdSetWin2KInfo.enabled);
  EXPECT_THAT(ChangedBy([this] { forms::Toggle(main.ChkWin2KInfo_Assis, false); }),
              ::testing::UnorderedElementsAre("ChkWin2KInfo_Assis", "CmdSetWin2KInfo"));
  EXPECT_FALSE(main.CmdSetWin2KInfo.enabled);
}

TEST_F(RulesTest, FieldsThatCannotBeUsed_KeepTheirTexts) {
  forms::Toggle(main.ChkPassProtect, true);
  EXPECT_TRUE(forms::Type(main.TxtPass1, "secret"));
  EXPECT_TRUE(forms::Type(main.TxtPass2, "secret"));
  forms::Toggle(main.ChkPassProtect, false);
  EXPECT_FALSE(forms::Type(main.TxtPass1, "other"));
  EXPECT_EQ(main.TxtPass1.text.get(), "secret");
  EXPECT_EQ(main.TxtPass2.text.get(), "secret");
}

TEST_F(RulesTest, SubscriptionEnded_StopsThem) {
  forms::Toggle(main.ChkERDC, true);
  rules.End();
  forms::Toggle(main.ChkERDC, false);
  forms::Toggle(main.ChkBCon, true);
  forms::Toggle(main.ChkGet_Vexadisks, false);
  EXPECT_TRUE(main.TxtERDC.enabled);
  EXPECT_FALSE(main.TxtBCon.enabled);
  EXPECT_EQ(main.ChkGet_Vexadisks.value, 0);
}

TEST_F(RulesTest, BootDisks_AreCheckedAgainAfterEveryWayOfClearingThem) {
  forms::Windows saved;
  saved.main.ChkGet_Vexadisks.value = 0;
  ASSERT_TRUE(settings::WriteSession(saved, notes, kSession).ok());
  ASSERT_THAT(host.Content(kSession), HasSubstr("BootDisks      = 0\r\n"));
  const std::vector<std::function<void()>> ways = {
      [this] { EXPECT_TRUE(forms::Toggle(main.ChkGet_Vexadisks, false)); },
      [this] { EXPECT_EQ(forms::Assign(main.ChkGet_Vexadisks, "0"), ""); },
      [this] { EXPECT_EQ(forms::Assign(main.ChkGet_Vexadisks, "2"), ""); },
      [this] { settings::ReadVexaCDINI(context.windows, context.notes, kSession); },
      [this] { main.ChkGet_Vexadisks.value = 0; },
  };
  for (const auto& clear : ways) {
    EXPECT_THAT(ChangedBy(clear), ::testing::Contains("ChkGet_Vexadisks").Times(2));
    EXPECT_EQ(main.ChkGet_Vexadisks.value, 1);
    EXPECT_THAT(GenerateSummery(main), HasSubstr("Vexa Boot Disks (Vexa Software - Vexa Net) :  True\r\n"));
  }
}

TEST_F(RulesTest, Hotfixes_AreAPlaceholder) {
  EXPECT_THAT(ChangedBy([this] { forms::Toggle(main.ChkHotfix, true); }), ElementsAre("ChkHotfix"));
  EXPECT_TRUE(main.Cmd_Sel_hotfixes.enabled);
  EXPECT_THAT(ChangedBy([this] { EXPECT_TRUE(forms::Press(main.Cmd_Sel_hotfixes)); }), IsEmpty());
  EXPECT_THAT(ChangedBy([this] { forms::Toggle(main.ChkHotfix, false); }), ElementsAre("ChkHotfix"));
  EXPECT_TRUE(main.Cmd_Sel_hotfixes.enabled);
  EXPECT_EQ(main.LblHotNum.caption.get(), "Hotfixes : 0");
  EXPECT_THAT(user.asked, IsEmpty());
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(RulesTest, BoxesWithoutFields_ChangeNothingElse) {
  for (forms::CheckBox* box :
       {&main.ChkGet_Win2k, &main.ChkGet_Win9x, &main.ChkGet_Advtools, &main.ChkGet_Vexanetplus, &main.ChkSelectDrivers,
        &main.ChkDelTree_Lang, &main.ChkOptimizeISO, &main.ChkCleanSession}) {
    EXPECT_THAT(ChangedBy([box] { forms::Toggle(*box, true); }), ElementsAre(box->name()));
    EXPECT_THAT(ChangedBy([box] { forms::Toggle(*box, false); }), ElementsAre(box->name()));
  }
}

class MissingForTest : public RulesTest {
 protected:
  MissingForTest() { Choose(false, false, false); }
};

TEST_F(MissingForTest, FieldOfAPage_NeedsItsContent) {
  EXPECT_THAT(Missing(main.Txt_i386_Loc), ElementsAre(ElementsAre("ChkGet_Win2k")));
  EXPECT_THAT(Missing(main.ChkSlipstream), ElementsAre(ElementsAre("ChkGet_Win2k")));
  EXPECT_THAT(Missing(main.ChkDelTree_Lang), ElementsAre(ElementsAre("ChkGet_Win2k")));
  EXPECT_THAT(Missing(main.ChkWin2KInfo_Assis), ElementsAre(ElementsAre("ChkGet_Win2k")));
  EXPECT_THAT(Missing(main.TxtWin9x_Loc), ElementsAre(ElementsAre("ChkGet_Win9x")));
  EXPECT_THAT(Missing(main.ChkERDC), ElementsAre(ElementsAre("ChkGet_Advtools")));
}

TEST_F(MissingForTest, FieldOfABox_NeedsTheBox) {
  Choose(true, true, true);
  EXPECT_THAT(Missing(main.TxtSP_exe), ElementsAre(ElementsAre("ChkSlipstream")));
  EXPECT_THAT(Missing(main.TxtERDC), ElementsAre(ElementsAre("ChkERDC")));
  EXPECT_THAT(Missing(main.TxtBCon), ElementsAre(ElementsAre("ChkBCon")));
  EXPECT_THAT(Missing(main.TxtUtils_Loc), ElementsAre(ElementsAre("ChkVexaUtils")));
  EXPECT_THAT(Missing(main.TxtAddFiles_Loc), ElementsAre(ElementsAre("ChkAddFiles")));
  EXPECT_THAT(Missing(main.TxtPass1), ElementsAre(ElementsAre("ChkPassProtect")));
  EXPECT_THAT(Missing(main.TxtPass2), ElementsAre(ElementsAre("ChkPassProtect")));
}

TEST_F(MissingForTest, ContentAndBoxClear_NeedsBothTheContentFirst) {
  EXPECT_THAT(Missing(main.TxtSP_exe), ElementsAre(ElementsAre("ChkGet_Win2k"), ElementsAre("ChkSlipstream")));
  EXPECT_THAT(Missing(main.TxtERDC), ElementsAre(ElementsAre("ChkGet_Advtools"), ElementsAre("ChkERDC")));
}

TEST_F(MissingForTest, ContentClearAndBoxChecked_NeedsTheContent) {
  main.ChkSlipstream.value = 1;
  EXPECT_THAT(Missing(main.TxtSP_exe), ElementsAre(ElementsAre("ChkGet_Win2k")));
}

TEST_F(MissingForTest, AnswersOfADialog_NeedTheContentAndOneOfTheBoxes) {
  for (const forms::Control* field : {static_cast<forms::Control*>(&windows.win2k_info.TxtOwner),
                                      static_cast<forms::Control*>(&windows.win2k_info.OptJoinDomain),
                                      static_cast<forms::Control*>(&main.CmdSetWin2KInfo)}) {
    EXPECT_THAT(Missing(*field),
                ElementsAre(ElementsAre("ChkGet_Win2k"), ElementsAre("ChkWin2KInfo_Assis", "ChkWin2KInfo_Unattend")));
  }
  EXPECT_THAT(Missing(windows.win9x_info.TxtOwner),
              ElementsAre(ElementsAre("ChkGet_Win9x"), ElementsAre("ChkWin9xInfo_Assis", "ChkWin9xInfo_MSBatch")));
}

TEST_F(MissingForTest, AnswersOfADialog_NeedNoMoreThanOneOfTheBoxes) {
  Choose(true, true, false);
  main.ChkWin2KInfo_Assis.value = 1;
  main.ChkWin9xInfo_MSBatch.value = 1;
  EXPECT_THAT(Missing(windows.win2k_info.TxtOwner), IsEmpty());
  EXPECT_THAT(Missing(windows.win9x_info.TxtOwner), IsEmpty());
  main.ChkWin2KInfo_Assis.value = 0;
  EXPECT_THAT(Missing(windows.win2k_info.TxtOwner),
              ElementsAre(ElementsAre("ChkWin2KInfo_Assis", "ChkWin2KInfo_Unattend")));
  EXPECT_THAT(Missing(windows.win9x_info.TxtOwner), IsEmpty());
}

TEST_F(MissingForTest, ControlThatAlwaysCounts_NeedsNothing) {
  for (const forms::Control* control :
       {static_cast<forms::Control*>(&main.ChkGet_Win2k), static_cast<forms::Control*>(&main.ChkGet_Vexadisks),
        static_cast<forms::Control*>(&main.ChkVexaUtils), static_cast<forms::Control*>(&main.ChkPassProtect),
        static_cast<forms::Control*>(&main.TxtISOLoc), static_cast<forms::Control*>(&main.ChkOptimizeISO),
        static_cast<forms::Control*>(&main.CmdNext), static_cast<forms::Control*>(&main.DlgOpen)}) {
    EXPECT_THAT(Missing(*control), IsEmpty()) << control->name();
  }
}

// The rules count a greyed box as clear; Next and Back count it as checked.
TEST_F(MissingForTest, GreyedBoxes_AreReadAsTheirReadersDo) {
  main.ChkGet_Win2k.value = 2;
  main.ChkSlipstream.value = 2;
  EXPECT_THAT(Missing(main.TxtSP_exe), ElementsAre(ElementsAre("ChkSlipstream")));
}

TEST_F(MissingForTest, Asking_ChangesNothing) {
  EXPECT_THAT(ChangedBy([this] {
                for (forms::Form* form : windows.All()) {
                  for (const forms::Control* control : form->controls()) MissingFor(windows, *control);
                }
              }),
              IsEmpty());
}

}  // namespace
}  // namespace discwright::wizard
