// Controls, forms and their notices.
#include "forms/control.h"

#include <algorithm>
#include <cctype>

namespace discwright::forms {

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

Control::Control(Control& container, std::string name)
    : name_(std::move(name)), container_(&container), form_(container.form_) {
  form_->controls_.push_back(this);
}

Control::Control(Form& self, std::string name, int) : name_(std::move(name)), form_(&self) {}

void Control::Notify(Change change) {
  for (const Subscriber& subscriber : subscribers_) subscriber(*this, change);
  for (const Subscriber& subscriber : form_->all_subscribers_) subscriber(*this, change);
}

Form::Form(std::string name, std::string caption_text)
    : Control(*this, std::move(name), 0), caption(*this, std::move(caption_text)) {
  visible = false;
}

Control* Form::Find(std::string_view name, int index) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Control* control) {
    return SameName(control->name(), name) && (index < 0 || control->index() == index);
  });
  return found == controls_.end() ? nullptr : *found;
}

}  // namespace discwright::forms
