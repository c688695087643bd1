// Finds controls by name and converts their values and captions to text and back.
#include "forms/all_windows.h"

#include <algorithm>

namespace discwright::forms {

namespace {

std::string AssignCheckBox(CheckBox& box, std::string_view value) {
  if (value != "0" && value != "1" && value != "2") return "a check box takes 0 or 1 (2 for greyed)";
  box.value.Set(value[0] - '0', By::kUser);
  return "";
}

std::string AssignOption(OptionButton& option, std::string_view value) {
  const bool on = value == "1" || SameName(value, "True");
  if (!on && value != "0" && !SameName(value, "False")) return "an option takes True or False";
  if (on) {
    option.value.Set(true, By::kUser);
    return "";
  }
  // One option button of a pair is always chosen, so clearing one chooses the other.
  for (Control* control : option.form().controls()) {
    auto* other = dynamic_cast<OptionButton*>(control);
    if (other != nullptr && other != &option && other->container() == option.container()) {
      other->value.Set(true, By::kUser);
    }
  }
  return "";
}

std::string AssignTextBox(TextBox& box, std::string_view value) {
  if (box.read_only) return "it is filled by the program and cannot be set";
  box.text.Set(std::string(value), By::kUser);
  return "";
}

}  // namespace

std::vector<Control*> FindControls(Windows& windows, std::string_view name) {
  const std::size_t dot = name.find('.');
  std::vector<Control*> found;
  for (Form* form : windows.All()) {
    const bool is_searched = dot == std::string_view::npos || SameName(form->name(), name.substr(0, dot));
    Control* control = is_searched ? form->Find(name.substr(dot + 1)) : nullptr;  // npos + 1 is the start
    if (control == nullptr) continue;
    found.push_back(control);
    if (form == &windows.main) break;
  }
  return found;
}

std::string Assign(Control& control, std::string_view value) {
  if (auto* box = dynamic_cast<CheckBox*>(&control)) return AssignCheckBox(*box, value);
  if (auto* option = dynamic_cast<OptionButton*>(&control)) return AssignOption(*option, value);
  if (auto* text_box = dynamic_cast<TextBox*>(&control)) return AssignTextBox(*text_box, value);
  return "it holds no choice; only check boxes, options and text boxes can be set";
}

std::string ValueText(const Control& control) {
  if (const auto* box = dynamic_cast<const CheckBox*>(&control)) return std::to_string(box->value);
  if (const auto* option = dynamic_cast<const OptionButton*>(&control)) return option->value ? "True" : "False";
  if (const auto* text_box = dynamic_cast<const TextBox*>(&control)) return text_box->text;
  const auto* captioned = dynamic_cast<const Captioned*>(&control);
  return captioned == nullptr ? "" : ShownText(*captioned);
}

std::string ShownText(const Captioned& control) {
  std::string text = control.caption;
  if (control.placing().key == kKeyInCaption) text.erase(std::min(text.find(kKeyInCaption), text.size()), 1);
  if (const std::size_t pair = text.find("&&"); pair != std::string::npos) text.erase(pair, 1);
  return text;
}

std::string NamingText(const Control& control) {
  const auto* field = dynamic_cast<const TextBox*>(&control);
  const auto* captioned = field != nullptr ? field->label : dynamic_cast<const Captioned*>(&control);
  return captioned == nullptr ? "" : ShownText(*captioned);
}

char AccessKey(const Control& control) {
  if (const auto* field = dynamic_cast<const TextBox*>(&control)) return AccessKey(*field->label);
  if (const auto* link = dynamic_cast<const Link*>(&control)) return AccessKey(*link->label);
  if (control.placing().key != kKeyInCaption) return control.placing().key;
  const std::string& text = dynamic_cast<const Captioned&>(control).caption;
  return text.at(text.find(kKeyInCaption) + 1);
}

}  // namespace discwright::forms
