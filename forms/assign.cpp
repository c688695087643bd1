// Giving a control a value by its name.
#include <algorithm>

#include "forms/all_windows.h"

namespace discwright::forms {

namespace {

// "Window.Control", or the bare control name looked up in all windows, the main window first.
Control* FindByName(Windows& windows, std::string_view name, std::string& error) {
  const std::size_t dot = name.find('.');
  if (dot != std::string_view::npos) {
    for (Form* form : windows.All()) {
      if (!SameName(form->name(), name.substr(0, dot))) continue;
      Control* control = form->Find(name.substr(dot + 1));
      if (control != nullptr) return control;
    }
    error = "there is no control of that name";
    return nullptr;
  }
  std::vector<Control*> found;
  for (Form* form : windows.All()) {
    if (Control* control = form->Find(name); control != nullptr) found.push_back(control);
  }
  if (found.empty()) error = "there is no control of that name";
  if (found.size() > 1 && &found.front()->form() != &windows.main) {
    error = "two windows have a control of that name; write " + found[0]->form().name() + "." + found[0]->name() +
            " or " + found[1]->form().name() + "." + found[1]->name();
    return nullptr;
  }
  return found.empty() ? nullptr : found.front();
}

std::string AssignCheckBox(CheckBox& box, std::string_view value) {
  if (value != "0" && value != "1" && value != "2") return "a check box takes 0 or 1 (2 for greyed)";
  box.value = value[0] - '0';
  return "";
}

// The option buttons of a window are one group: choosing one clears the others.
std::string AssignOption(OptionButton& option, std::string_view value) {
  const bool on = value == "1" || SameName(value, "True");
  if (!on && value != "0" && !SameName(value, "False")) return "an option takes True or False";
  for (Control* control : option.form().controls()) {
    auto* other = dynamic_cast<OptionButton*>(control);
    if (other != nullptr && other->container() == option.container()) other->value = (other == &option) == on;
  }
  return "";
}

std::string AssignTextBox(TextBox& box, std::string_view value) {
  if (box.read_only) return "it is filled by the program and cannot be set";
  box.text = std::string(value);
  return "";
}

}  // namespace

Control* FindControl(Windows& windows, std::string_view name) {
  std::string error;
  return FindByName(windows, name, error);
}

std::string Assign(Windows& windows, std::string_view name, std::string_view value) {
  std::string error;
  Control* control = FindByName(windows, name, error);
  if (control == nullptr) return error;
  if (auto* box = dynamic_cast<CheckBox*>(control)) return AssignCheckBox(*box, value);
  if (auto* option = dynamic_cast<OptionButton*>(control)) return AssignOption(*option, value);
  if (auto* text_box = dynamic_cast<TextBox*>(control)) return AssignTextBox(*text_box, value);
  return "it holds no choice; only check boxes, options and text boxes can be set";
}

}  // namespace discwright::forms
