// Applies the rules that say which check boxes enable which fields. The rules are listed in a table.
#include "wizard/rules.h"

#include <algorithm>
#include <array>

#include "wizard/pages.h"

namespace discwright::wizard {

namespace {

using forms::FrmDiscwright;
using CheckBoxOf = forms::CheckBox FrmDiscwright::*;
using ControlOf = forms::Control& (*)(FrmDiscwright& main);

template <auto member>
forms::Control& Field(FrmDiscwright& main) {
  return main.*member;
}

constexpr std::size_t kMostBoxes = 2;
constexpr std::size_t kMostFields = 4;

// The fields are enabled while at least one of the boxes is checked.
struct EnableRule {
  std::array<CheckBoxOf, kMostBoxes> any_of;
  std::array<ControlOf, kMostFields> fields;
};

constexpr EnableRule kEnableRules[] = {
    {{&FrmDiscwright::ChkVexaUtils},
     {Field<&FrmDiscwright::LblUtils>, Field<&FrmDiscwright::TxtUtils_Loc>, Field<&FrmDiscwright::CmdExp_Utils>,
      Field<&FrmDiscwright::CmdBrw_Utils>}},
    {{&FrmDiscwright::ChkAddFiles},
     {Field<&FrmDiscwright::LblAddFiles>, Field<&FrmDiscwright::TxtAddFiles_Loc>,
      Field<&FrmDiscwright::CmdExp_AddFiles>, Field<&FrmDiscwright::CmdBrw_AddFiles>}},
    {{&FrmDiscwright::ChkPassProtect},
     {Field<&FrmDiscwright::LblPass1>, Field<&FrmDiscwright::TxtPass1>, Field<&FrmDiscwright::LblPass2>,
      Field<&FrmDiscwright::TxtPass2>}},
    {{&FrmDiscwright::ChkSlipstream},
     {Field<&FrmDiscwright::LblSP>, Field<&FrmDiscwright::TxtSP_exe>, Field<&FrmDiscwright::CmdBrw_spexe>}},
    {{&FrmDiscwright::ChkERDC},
     {Field<&FrmDiscwright::LblERDC>, Field<&FrmDiscwright::TxtERDC>, Field<&FrmDiscwright::CmdBrw_ERDC>}},
    {{&FrmDiscwright::ChkBCon},
     {Field<&FrmDiscwright::LblBCon>, Field<&FrmDiscwright::TxtBCon>, Field<&FrmDiscwright::CmdBrw_BCon>}},
    {{&FrmDiscwright::ChkWin2KInfo_Assis, &FrmDiscwright::ChkWin2KInfo_Unattend},
     {Field<&FrmDiscwright::CmdSetWin2KInfo>}},
    {{&FrmDiscwright::ChkWin9xInfo_Assis, &FrmDiscwright::ChkWin9xInfo_MSBatch},
     {Field<&FrmDiscwright::CmdSetWin9xInfo>}},
};

// A greyed box does not count as checked here. Next, the summary and the build count it as checked. This is kept as it
// has always been.
bool IsChecked(const forms::CheckBox& box) { return box.value == 1; }

bool Holds(const FrmDiscwright& main, const EnableRule& rule) {
  return std::any_of(rule.any_of.begin(), rule.any_of.end(),
                     [&](CheckBoxOf box) { return box != nullptr && IsChecked(main.*box); });
}

bool Concerns(FrmDiscwright& main, const EnableRule& rule, const forms::Control& field) {
  return std::any_of(rule.fields.begin(), rule.fields.end(),
                     [&](ControlOf one) { return one != nullptr && &one(main) == &field; });
}

void Apply(FrmDiscwright& main, const EnableRule& rule) {
  const bool enabled = Holds(main, rule);
  for (const ControlOf field : rule.fields) {
    if (field != nullptr) field(main).enabled = enabled;
  }
}

// The boot disks are part of every CD.
void KeepBootDisks(FrmDiscwright& main) { main.ChkGet_Vexadisks.value = 1; }

void ApplyAll(FrmDiscwright& main) {
  KeepBootDisks(main);
  for (const EnableRule& rule : kEnableRules) Apply(main, rule);
}

// For a control in a dialog, returns the button of the main window that opens the dialog; for any other control, the
// control.
const forms::Control& OnTheMainWindow(forms::Windows& windows, const forms::Control& control) {
  if (&control.form() == &windows.win2k_info) return windows.main.CmdSetWin2KInfo;
  if (&control.form() == &windows.win9x_info) return windows.main.CmdSetWin9xInfo;
  return control;
}

}  // namespace

forms::Subscription KeepRules(forms::Windows& windows) {
  FrmDiscwright& main = windows.main;
  ApplyAll(main);
  return main.Listen([&main](forms::Control& control, forms::Facet facet, forms::By) {
    if (facet == forms::Facet::kValue && dynamic_cast<forms::CheckBox*>(&control) != nullptr) ApplyAll(main);
  });
}

std::vector<std::vector<const forms::CheckBox*>> MissingFor(forms::Windows& windows, const forms::Control& control) {
  FrmDiscwright& main = windows.main;
  const forms::Control& decisive = OnTheMainWindow(windows, control);
  std::vector<std::vector<const forms::CheckBox*>> missing;
  const int page = PageOf(main, decisive);
  forms::CheckBox* content = page < 0 ? nullptr : ContentOf(main, page);
  if (content != nullptr && !content->checked()) missing.push_back({content});
  for (const EnableRule& rule : kEnableRules) {
    if (!Concerns(main, rule, decisive) || Holds(main, rule)) continue;
    missing.emplace_back();
    for (const CheckBoxOf box : rule.any_of) {
      if (box != nullptr) missing.back().push_back(&(main.*box));
    }
  }
  return missing;
}

}  // namespace discwright::wizard
