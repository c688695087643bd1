// Formats one line for each control, in the order of the controls on the page.
#include "desktop/console/page_text.h"

#include <vector>

#include "forms/user_actions.h"
#include "host/names.h"
#include "util/paths.h"
#include "wizard/choices.h"
#include "wizard/layout.h"
#include "wizard/pages.h"
#include "wizard/rules.h"

namespace discwright::desktop {

namespace {

using forms::Control;

std::string KindOf(const Control& control) {
  if (dynamic_cast<const forms::CheckBox*>(&control) != nullptr) return "check box";
  if (dynamic_cast<const forms::OptionButton*>(&control) != nullptr) return "option";
  if (dynamic_cast<const forms::TextBox*>(&control) != nullptr) return "text box";
  if (dynamic_cast<const forms::CommandButton*>(&control) != nullptr) return "button";
  if (dynamic_cast<const forms::Link*>(&control) != nullptr) return "link";
  if (dynamic_cast<const forms::ProgressBar*>(&control) != nullptr) return "bar";
  return "label";
}

std::string ValueOf(const Control& control) {
  const auto* field = dynamic_cast<const forms::TextBox*>(&control);
  if (field == nullptr) return forms::ValueText(control);
  if (field->password) return field->text.get().empty() ? "\"\"" : "(hidden)";
  const std::string& text = field->text;
  const bool is_path = !text.empty() && util::IsPathSeparator(text.front());
  return "\"" + (is_path ? host::PathToNative(text) : text) + "\"";
}

bool HasValue(const Control& control) {
  return forms::TakesInput(control) && dynamic_cast<const forms::CommandButton*>(&control) == nullptr &&
         dynamic_cast<const forms::Link*>(&control) == nullptr;
}

// Returns the boxes that must be checked before the control can be used. Of boxes that are joined by "or" one is
// enough.
std::string NeededBoxes(forms::Windows& windows, const Control& control) {
  std::string text;
  for (const auto& boxes : wizard::MissingFor(windows, control)) {
    text += text.empty() ? "needs " : ", ";
    for (const forms::CheckBox* box : boxes) text += (box == boxes.front() ? "" : " or ") + box->name() + "=1";
  }
  return text;
}

// Whether a user could use the control now. A control of a dialog needs the boxes of the button that opens the dialog.
bool CanBeUsedNow(forms::Windows& windows, const Control& control) {
  return forms::CanBeUsed(control) && wizard::MissingFor(windows, control).empty();
}

std::string Padded(std::string text, std::size_t width) {
  if (text.size() < width) text.resize(width, ' ');
  return text + "  ";
}

std::string LineOf(forms::Windows& windows, const Control& control) {
  constexpr std::size_t kNameWidth = 21;
  constexpr std::size_t kKindWidth = 9;
  constexpr std::size_t kUseWidth = 3;
  const bool takes_input = forms::TakesInput(control);
  std::string use;
  if (takes_input) use = CanBeUsedNow(windows, control) ? "yes" : "no";
  std::string line = "  " + Padded(control.name(), kNameWidth) + Padded(KindOf(control), kKindWidth) +
                     Padded(use, kUseWidth) + util::Trim(forms::NamingText(control));
  if (HasValue(control)) line += " = " + ValueOf(control);
  const char key = takes_input ? forms::AccessKey(control) : '\0';
  if (key != 0) line += std::string("  [Alt+") + static_cast<char>(key & ~0x20) + "]";
  const std::string needs = &control.form() == &windows.main ? NeededBoxes(windows, control) : "";
  if (takes_input && !needs.empty()) line += "  (" + needs + ")";
  line.erase(line.find_last_not_of(' ') + 1);
  return line + "\n";
}

std::string TitleOf(forms::Windows& windows, const wizard::Layout& layout) {
  if (layout.page < 0 && layout.form == &windows.main) return "Below every page";
  const bool is_page = layout.page >= 0;
  const std::string title =
      is_page ? "Page " + std::to_string(layout.page) + ": " + util::Trim(layout.heading->caption.get())
              : layout.form->name() + ": " + layout.form->caption.get();
  const forms::CheckBox* content = is_page ? wizard::ContentOf(windows.main, layout.page) : nullptr;
  const std::string needs = is_page ? "" : NeededBoxes(windows, *wizard::ControlsOf(layout).front());
  if (content != nullptr) return title + "  (only with " + content->name() + "=1)";
  return needs.empty() ? title : title + "  (" + needs + ")";
}

std::string TextOf(forms::Windows& windows, const wizard::Layout& layout) {
  std::string text = TitleOf(windows, layout) + "\n";
  for (const wizard::Group& group : layout.groups) {
    const std::string title = group.frame == nullptr ? "" : util::Trim(group.frame->caption.get());
    if (!title.empty()) text += "  -- " + title + " --\n";
    if (group.head != nullptr) text += LineOf(windows, *group.head);
    for (const wizard::Row& row : group.rows) {
      for (const Control* control : row.controls) text += LineOf(windows, *control);
    }
  }
  return text;
}

bool IsAskedFor(const forms::Windows& windows, const wizard::Layout& layout, std::string_view page) {
  if (page.empty()) return true;
  if (layout.page >= 0) return page == std::to_string(layout.page);
  return layout.form != &windows.main && forms::SameName(layout.form->name(), page);
}

}  // namespace

std::string PageText(forms::Windows& windows, std::string_view page) {
  std::string text;
  for (const wizard::Layout& layout : wizard::AllLayouts(windows)) {
    if (IsAskedFor(windows, layout, page)) text += (text.empty() ? "" : "\n") + TextOf(windows, layout);
  }
  return text;
}

}  // namespace discwright::desktop
