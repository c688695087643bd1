// Checks that a control can be used, then changes its value or calls its handler.
#include "forms/user_actions.h"

#include <functional>

namespace discwright::forms {

namespace {

bool Click(const Control& control, const std::function<void()>& click) {
  if (!CanBeUsed(control)) return false;
  // Calls a copy, because the handler may replace `click` while it runs.
  if (const std::function<void()> handler = click) handler();
  return true;
}

}  // namespace

bool CanBeUsed(const Control& control) {
  if (!control.visible) return false;
  for (const Control* at = &control; at != nullptr; at = at->container()) {
    if (!at->enabled) return false;
  }
  return true;
}

bool TakesInput(const Control& control) {
  if (const auto* field = dynamic_cast<const TextBox*>(&control)) return !field->read_only;
  return dynamic_cast<const CommandButton*>(&control) != nullptr ||
         dynamic_cast<const CheckBox*>(&control) != nullptr || dynamic_cast<const OptionButton*>(&control) != nullptr ||
         dynamic_cast<const Link*>(&control) != nullptr;
}

bool Press(CommandButton& button) { return Click(button, button.click); }

bool Follow(Link& link) { return Click(link, link.click); }

bool Toggle(CheckBox& box, bool on) {
  if (!CanBeUsed(box)) return false;
  box.value.Set(on ? 1 : 0, By::kUser);
  return true;
}

bool Choose(OptionButton& option) {
  if (!CanBeUsed(option)) return false;
  option.value.Set(true, By::kUser);
  return true;
}

bool Type(TextBox& field, std::string_view text) {
  if (!CanBeUsed(field) || field.read_only) return false;
  field.text.Set(std::string(text), By::kUser);
  return true;
}

bool Drop(TextBox& field, const std::string& path) {
  if (!CanBeUsed(field) || !field.dropped) return false;
  const auto handler = field.dropped;  // a copy: see Click
  handler(path);
  return true;
}

void AskToCancel(Form& form) {
  if (const std::function<void()> handler = form.asked_to_cancel) {
    handler();
  } else if (form.cancel_button != nullptr) {
    Press(*form.cancel_button);
  }
}

void AskToClose(Form& form) {
  if (const std::function<void()> handler = form.asked_to_close) handler();
}

}  // namespace discwright::forms
