// Makes choices by the names of controls, and words the remarks about them.
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

// Whether a script can give this control a value.
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

constexpr std::size_t kShortestWords = 3;  // nearly every caption contains a shorter text

const Control* SimilarControl(Windows& windows, const std::string& name) {
  const std::vector<Control*> controls = ControlsWithChoice(windows);
  std::vector<std::string_view> names;
  names.reserve(controls.size());
  for (const Control* control : controls) names.push_back(control->name());
  const std::string bare = name.substr(name.find('.') + 1);  // without a '.', npos + 1 is 0
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
  std::string why_not = "there is no control " + name;
  const Control* similar = SimilarControl(windows, name);
  if (similar == nullptr) return why_not;
  const std::string caption = util::Trim(forms::NamingText(*similar));
  return why_not + "; did you mean " + NameOf(windows, *similar) + " (" + caption + ")?";
}

// Filling in the script later would replace the answers that are chosen beside it.
void FillFromChosenScript(steps::Context& context, std::span<const Choice> choices) {
  Windows& windows = context.windows;
  for (const Choice& choice : choices) {
    const std::vector<Control*> found = forms::FindControls(windows, choice.control);
    if (found != std::vector<Control*>{&windows.win2k_info.TxtTemplate}) continue;
    settings::FillSetupDataFromUnattend(windows.win2k_info, context.notes, util::StripQuotes(choice.value));
  }
}

// The answers of one of the two installation info dialogs.
struct Answers {
  forms::Form& dialog;
  bool wanted;          // whether the CD needs these answers
  const char* section;  // of the key file
  const char* system;   // the name of the system for the user
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

// Whether the control has a text or is checked. An empty or cleared control needs no remark that it has no effect.
bool ChoosesSomething(const Control& control) {
  const std::string value = forms::ValueText(control);
  return !value.empty() && value != "0" && value != "False";
}

std::string NoEffect(Windows& windows, const Control& control, const std::vector<const forms::CheckBox*>& boxes) {
  std::string sentence = NameOf(windows, control) + " has no effect, because ";
  for (const forms::CheckBox* box : boxes) sentence += (box == boxes.front() ? "" : " and ") + box->name();
  if (boxes.size() == 1) return sentence + " is 0: set " + boxes[0]->name() + "=1 to use it.";
  return sentence + " are 0: set one of them to 1 to use it.";
}

// Adds a remark if the value of the control has no effect.
void AddNoEffect(std::vector<std::string>& remarks, Windows& windows, const Control& control) {
  if (!ChoosesSomething(control)) return;
  if (&control == &windows.main.ChkHotfix) {
    remarks.emplace_back("ChkHotfix has no effect, because this version integrates no hotfixes.");
    return;
  }
  for (const auto& boxes : MissingFor(windows, control)) remarks.push_back(NoEffect(windows, control, boxes));
  if (&control == &windows.win2k_info.OptJoinDomain) {
    remarks.emplace_back("OptJoinDomain has no effect, because Setup gets the name as that of a workgroup.");
  }
}

// Adds remarks on check boxes that need a second choice, if that is missing.
void AddIncompleteChoices(std::vector<std::string>& remarks, const forms::FrmDiscwright& main) {
  if (main.ChkGet_Advtools.checked() && !main.ChkERDC.checked() && !main.ChkBCon.checked()) {
    remarks.emplace_back("ChkGet_Advtools is 1, but ChkERDC and ChkBCon are 0: no tool is added to the CD.");
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

FoundControl FindControl(Windows& windows, const std::string& name) {
  const std::vector<Control*> found = forms::FindControls(windows, name);
  if (found.size() == 1) return {found.front(), ""};
  if (found.empty()) return {nullptr, NoSuchControl(windows, name)};
  return {nullptr, "two windows have a control " + name + "; write " + NameOf(windows, *found[0]) + " or " +
                       NameOf(windows, *found[1])};
}

std::string Choose(steps::Context& context, std::span<const Choice> choices) {
  Windows& windows = context.windows;
  // The dialogs are loaded first. Loading them later would replace the chosen answers.
  settings::LoadWin2KInfo(windows.win2k_info, context.notes);
  settings::LoadWin9xInfo(windows.win9x_info, context.notes);
  FillFromChosenScript(context, choices);
  for (const Choice& choice : choices) {
    const FoundControl found = FindControl(windows, choice.control);
    if (found.control == nullptr) return found.why_not;
    const std::string why_not = forms::Assign(*found.control, choice.value);
    if (!why_not.empty()) return choice.control + ": " + why_not;
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
      remarks.push_back(std::string(answers.system) + " Setup gets the answers of an earlier build, from " +
                        host::PathToNative(key_file) + ".");
    }
    if (!was_given && (!answers.wanted || are_old)) continue;
    context.notes.Check(answers.write(context.windows, key_file), key_file,
                        std::string("your answers for ") + answers.system + " Setup could not be written");
  }
  return remarks;
}

std::vector<std::string> RemarksOn(Windows& windows, std::span<const Choice> choices, bool session_is_own) {
  std::vector<std::string> remarks;
  std::vector<const Control*> examined;
  const auto examine = [&](const Control& control) {
    if (std::find(examined.begin(), examined.end(), &control) != examined.end()) return;
    examined.push_back(&control);
    AddNoEffect(remarks, windows, control);
  };
  for (const Choice& choice : choices) {
    const std::vector<Control*> found = forms::FindControls(windows, choice.control);
    if (found.size() == 1) examine(*found.front());
    if (found == std::vector<Control*>{&windows.main.ChkGet_Vexadisks} && choice.value == "0") {
      remarks.emplace_back("ChkGet_Vexadisks stays 1: the boot disks are part of every CD.");
    }
  }
  for (const settings::SessionKey& key : settings::SessionKeys()) {
    if (session_is_own && key.line->check_box != nullptr) examine(key.line->check_box(windows));
  }
  AddIncompleteChoices(remarks, windows.main);
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
