// Registers controls with their form, finds them, and reports their changes.
#include "forms/control.h"

#include <algorithm>
#include <cctype>

namespace discwright::forms {

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

Control::Control(Control& container, std::string name, Placing placing)
    : name_(std::move(name)), container_(&container), form_(container.form_), placing_(placing) {
  form_->controls_.push_back(this);
}

Control::Control(Form& self, std::string name, int) : name_(std::move(name)), form_(&self) {}

Subscription Control::Listen(Listener listener) { return form_->listeners_.Add(this, std::move(listener)); }

void Control::Notify(Facet facet, By by) {
  Changed(facet, by);
  form_->listeners_.NotifyAll(*this, facet, by);
}

Form::Form(std::string name, std::string caption_text)
    : Control(*this, std::move(name), 0), caption(*this, Facet::kText, std::move(caption_text)) {
  visible = false;
}

Control* Form::Find(std::string_view name, int index) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Control* control) {
    return SameName(control->name(), name) && (index < 0 || control->index() == index);
  });
  return found == controls_.end() ? nullptr : *found;
}

void OptionButton::Changed(Facet facet, By by) {
  if (facet != Facet::kValue || !value) return;
  for (Control* control : form().controls()) {
    auto* other = dynamic_cast<OptionButton*>(control);
    if (other != nullptr && other != this && other->container() == container()) other->value.Set(false, by);
  }
}

}  // namespace discwright::forms
