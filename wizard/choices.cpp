// Choices by name, and the sentences about them.
#include "wizard/choices.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "forms/user_actions.h"
#include "host/names.h"
#include "host/system.h"
#include "settings/computer_name.h"
#include "settings/key_files.h"
#include "settings/session_table.h"
#include "settings/win2k_info.h"
#include "settings/win9x_info.h"
#include "util/paths.h"
#include "util/program_folder.h"
#include "util/spelling.h"
#include "wizard/pages.h"
#include "wizard/rules.h"

namespace discwright::wizard {

namespace {

using forms::Control;
using forms::Windows;

// Whether a script can choose something there.
bool HoldsChoice(const Control& control) {
  const auto* field = dynamic_cast<const forms::TextBox*>(&control);
  return (field != nullptr && !field->read_only) || dynamic_cast<const forms::CheckBox*>(&control) != nullptr ||
         dynamic_cast<const forms::OptionButton*>(&control) != nullptr;
}

std::vector<Control*> ControlsWithChoice(Windows& windows) {
  std::vector<Control*> controls;
  for (const forms::Form* form : windows.All()) {
    std::copy_if(form->controls().begin(), form->controls().end(), std::back_inserter(controls),
                 [](const Control* control) { return HoldsChoice(*control); });
  }
  return controls;
}

std::string WithoutBlanks(std::string text) {
  std::erase(text, ' ');
  return host::FoldCase(text);
}

const Control* ControlOfSessionKey(Windows& windows, const std::string& name) {
  for (const settings::SessionKey& key : settings::SessionKeys()) {
    if (!forms::SameName(key.key, name)) continue;
    if (key.line->check_box != nullptr) return &key.line->check_box(windows);
    if (key.line->text_box != nullptr) return &key.line->text_box(windows);
  }
  return nullptr;
}

constexpr std::size_t kShortestWords = 3;  // less than that stands in nearly every caption

const Control* ControlMeantBy(Windows& windows, const std::string& name) {
  const std::vector<Control*> controls = ControlsWithChoice(windows);
  std::vector<std::string_view> names;
  names.reserve(controls.size());
  for (const Control* control : controls) names.push_back(control->name());
  const std::string bare = name.substr(name.find('.') + 1);  // npos + 1 is the start
  if (const std::optional<std::string_view> closest = util::Closest(bare, names)) {
    return *std::find_if(controls.begin(), controls.end(),
                         [&](const Control* control) { return control->name() == *closest; });
  }
  if (const Control* control = ControlOfSessionKey(windows, bare)) return control;
  const std::string words = WithoutBlanks(bare);
  if (words.size() < kShortestWords) return nullptr;
  const auto by_caption = std::find_if(controls.begin(), controls.end(), [&](const Control* control) {
    return WithoutBlanks(forms::NamingText(*control)).find(words) != std::string::npos;
  });
  return by_caption == controls.end() ? nullptr : *by_caption;
}

std::string NoSuchControl(Windows& windows, const std::string& name) {
  std::string nothing = "there is no control " + name;
  const Control* meant = ControlMeantBy(windows, name);
  if (meant == nullptr) return nothing;
  return nothing + "; did you mean " + NameOf(windows, *meant) + " (" + util::Trim(forms::NamingText(*meant)) + ")?";
}

// The script comes before the answers that are given beside it, because it would replace them.
void FillFromChosenScript(Windows& windows, std::span<const Choice> choices) {
  for (const Choice& choice : choices) {
    const std::vector<Control*> found = forms::FindControls(windows, choice.control);
    if (found != std::vector<Control*>{&windows.win2k_info.TxtTemplate}) continue;
    settings::FillSetupDataFromUnattend(windows.win2k_info, util::StripQuotes(choice.value));
  }
}

// One of the two dialogs, with what ConfirmDialogs and the remarks need to know of it.
struct Answers {
  forms::Form& dialog;
  bool wanted;  // by the CD
  const char* section;
  const char* system;
  settings::SetupFamily family;
  const forms::TextBox& computer;
  const forms::TextBox& workgroup;
  host::Status (*write)(Windows& windows, const std::string& key_file);
};

std::vector<Answers> BothDialogs(Windows& windows) {
  forms::FrmDiscwright& main = windows.main;
  forms::FrmWin9xInfo& win9x = windows.win9x_info;
  forms::FrmWin2KInfo& win2k = windows.win2k_info;
  const auto any = [](const forms::CheckBox& a, const forms::CheckBox& b) { return a.checked() || b.checked(); };
  return {{win9x, any(main.ChkWin9xInfo_MSBatch, main.ChkWin9xInfo_Assis), settings::kWin9xSection, "Windows 98/Me",
           settings::SetupFamily::kWin9x, win9x.TxtPCName, win9x.TxtWorkgroup,
           [](Windows& all, const std::string&) { return settings::FillSetupDataToKeyFile(all.win9x_info); }},
          {win2k, any(main.ChkWin2KInfo_Unattend, main.ChkWin2KInfo_Assis), settings::kWin2KSection,
           "Windows 2000/XP/2003", settings::SetupFamily::kWin2K, win2k.TxtPCName, win2k.TxtWorkgroup,
           [](Windows& all, const std::string& key_file) {
             return settings::FillSetupDataToKeyFile(all.win2k_info, key_file);
           }}};
}

bool WasGiven(Windows& windows, std::span<const Choice> choices, const forms::Form& dialog) {
  return std::any_of(choices.begin(), choices.end(), [&](const Choice& choice) {
    const std::vector<Control*> found = forms::FindControls(windows, choice.control);
    return found.size() == 1 && &found.front()->form() == &dialog;
  });
}

// Whether the control says yes to something. A choice that says no cannot be made in vain.
bool ChoosesSomething(const Control& control) {
  const std::string value = forms::ValueText(control);
  return !value.empty() && value != "0" && value != "False";
}

std::string InVain(Windows& windows, const Control& control, const std::vector<const forms::CheckBox*>& boxes) {
  std::string sentence = NameOf(windows, control) + " was given, but ";
  for (const forms::CheckBox* box : boxes) sentence += (box == boxes.front() ? "" : " and ") + box->name();
  if (boxes.size() == 1) return sentence + " is 0: set " + boxes[0]->name() + "=1 for it to count.";
  return sentence + " are 0: set one of them to 1 for it to count.";
}

void AddInVain(std::vector<std::string>& remarks, Windows& windows, const Control& control) {
  if (!ChoosesSomething(control)) return;
  if (&control == &windows.main.ChkHotfix) {
    remarks.emplace_back("ChkHotfix was given, but this version integrates no hotfixes.");
    return;
  }
  for (const auto& boxes : MissingFor(windows, control)) remarks.push_back(InVain(windows, control, boxes));
  if (&control == &windows.win2k_info.OptJoinDomain) {
    remarks.emplace_back("OptJoinDomain was given, but Setup gets the name as that of a workgroup.");
  }
}

// Adds the remarks on choices that need a second choice, which is missing.
void AddEmptyChoices(std::vector<std::string>& remarks, const forms::FrmDiscwright& main) {
  if (main.ChkGet_Advtools.checked() && !main.ChkERDC.checked() && !main.ChkBCon.checked()) {
    remarks.emplace_back("ChkGet_Advtools is 1, but ChkERDC and ChkBCon are 0: no tool comes to the CD.");
  }
  if (main.ChkPassProtect.checked() && main.TxtPass1.text.get().empty() && main.TxtPass2.text.get().empty()) {
    remarks.emplace_back("ChkPassProtect is 1, but no password was given: the boot menu accepts an empty one.");
  }
}

void AddRefusedNames(std::vector<std::string>& remarks, Windows& windows) {
  const auto add = [&](const forms::TextBox& field, const std::string& why) {
    if (!why.empty()) remarks.push_back(NameOf(windows, field) + ": " + why);
  };
  for (const Answers& answers : BothDialogs(windows)) {
    if (!answers.wanted) continue;
    add(answers.computer, settings::WhyNoComputerName(answers.computer.text.get(), answers.family));
    add(answers.workgroup, settings::WhyNoWorkgroupName(answers.workgroup.text.get(), answers.family));
  }
}

}  // namespace

std::string NameOf(Windows& windows, const Control& control) {
  const std::vector<Control*> found = forms::FindControls(windows, control.name());
  if (found.size() == 1 && found.front() == &control) return control.name();
  return control.form().name() + "." + control.name();
}

Control* ControlNamed(Windows& windows, const std::string& name, std::string& error) {
  const std::vector<Control*> found = forms::FindControls(windows, name);
  if (found.size() == 1) return found.front();
  error = found.empty() ? NoSuchControl(windows, name)
                        : "two windows have a control " + name + "; write " + NameOf(windows, *found[0]) + " or " +
                              NameOf(windows, *found[1]);
  return nullptr;
}

std::string Choose(steps::Context& context, std::span<const Choice> choices) {
  Windows& windows = context.windows;
  settings::LoadWin2KInfo(windows.win2k_info);  // loading them later would undo what is chosen here
  settings::LoadWin9xInfo(windows.win9x_info);
  FillFromChosenScript(windows, choices);
  for (const Choice& choice : choices) {
    std::string error;
    Control* control = ControlNamed(windows, choice.control, error);
    if (control == nullptr) return error;
    error = forms::Assign(*control, choice.value);
    if (!error.empty()) return choice.control + ": " + error;
  }
  return "";
}

std::vector<std::string> ConfirmDialogs(steps::Context& context, std::span<const Choice> choices, bool has_session) {
  std::vector<std::string> remarks;
  const std::string key_file = util::PathOf(util::Item::kWorkingKeyFile);
  for (const Answers& answers : BothDialogs(context.windows)) {
    const bool was_given = WasGiven(context.windows, choices, answers.dialog);
    const bool are_old = !has_session && !was_given && settings::HoldsAnswers(answers.section);
    if (answers.wanted && are_old) {
      remarks.push_back(std::string("The Setup of ") + answers.system + " gets the answers of an earlier build, from " +
                        host::PathToNative(key_file) + ".");
    }
    if (!was_given && (!answers.wanted || are_old)) continue;
    context.notes.Check(answers.write(context.windows, key_file), key_file,
                        std::string("your answers for the Setup of ") + answers.system + " could not be written");
  }
  return remarks;
}

std::vector<std::string> RemarksOn(Windows& windows, std::span<const Choice> choices, bool session_is_own) {
  std::vector<std::string> remarks;
  std::vector<const Control*> told;
  const auto tell = [&](const Control& control) {
    if (std::find(told.begin(), told.end(), &control) != told.end()) return;
    told.push_back(&control);
    AddInVain(remarks, windows, control);
  };
  for (const Choice& choice : choices) {
    const std::vector<Control*> found = forms::FindControls(windows, choice.control);
    if (found.size() == 1) tell(*found.front());
    if (found == std::vector<Control*>{&windows.main.ChkGet_Vexadisks} && choice.value == "0") {
      remarks.emplace_back("ChkGet_Vexadisks stays 1: the boot disks are part of every CD.");
    }
  }
  for (const settings::SessionKey& key : settings::SessionKeys()) {
    if (session_is_own && key.line->check_box != nullptr) tell(key.line->check_box(windows));
  }
  AddEmptyChoices(remarks, windows.main);
  AddRefusedNames(remarks, windows);
  return remarks;
}

bool WalkToTheSummary(steps::Context& context) {
  forms::FrmDiscwright& main = context.main();
  while (main.visible && main.Step < kSummaryPage) {
    const std::int16_t page = main.Step;
    forms::Press(main.CmdNext);
    if (main.Step == page) return false;
  }
  return main.Step == kSummaryPage;
}

}  // namespace discwright::wizard
