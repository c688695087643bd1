// Makes the layouts from the records of the controls.
#include "wizard/layout.h"

#include <algorithm>

#include "forms/user_actions.h"

namespace discwright::wizard {

namespace {

// Collects the controls of a page into groups. A frame begins a group. Controls after the frame that are directly on
// the page begin the next group.
class Collector {
 public:
  Collector(Layout& layout, const forms::Control& page) : layout_(layout), page_(page) {}

  void Add(forms::Control& control) {
    if (auto* frame = dynamic_cast<forms::Frame*>(&control)) {
      layout_.groups.push_back({frame, nullptr, {}});
      return;
    }
    auto* label = dynamic_cast<forms::Label*>(&control);
    if (label != nullptr && label->heading) {
      layout_.heading = label;
      return;
    }
    AddToGroup(GroupOf(control), control);
    if (layout_.first_focus == nullptr && IsToBeFilledIn(control)) layout_.first_focus = &control;
  }

 private:
  // A link takes input, too, but the focus must not begin there: Enter would open its web page.
  static bool IsToBeFilledIn(const forms::Control& control) {
    return forms::TakesInput(control) && dynamic_cast<const forms::Link*>(&control) == nullptr;
  }

  Group& GroupOf(const forms::Control& control) {
    if (control.container() == &page_) {
      if (layout_.groups.empty() || layout_.groups.back().frame != nullptr) layout_.groups.emplace_back();
      return layout_.groups.back();
    }
    return *std::find_if(layout_.groups.begin(), layout_.groups.end(),
                         [&](const Group& group) { return group.frame == control.container(); });
  }

  static void AddToGroup(Group& group, forms::Control& control) {
    if (control.placing().heads) {
      group.head = dynamic_cast<forms::CheckBox*>(&control);
      return;
    }
    if (!control.placing().beside || group.rows.empty()) group.rows.emplace_back();
    group.rows.back().controls.push_back(&control);
  }

  Layout& layout_;
  const forms::Control& page_;
};

// The pages themselves, the side picture and the common file dialogs belong to no page.
bool IsOnNoPage(const forms::Control& control) {
  return control.index() >= 0 || dynamic_cast<const forms::Picture*>(&control) != nullptr ||
         dynamic_cast<const forms::FileDialog*>(&control) != nullptr;
}

bool StandsOn(const forms::Control& control, const forms::Control& place) {
  const forms::Control* container = control.container();
  return container == &place || (container != nullptr && container->container() == &place);
}

Layout LayoutOf(forms::Form& form, const forms::Control& place, int page) {
  Layout layout{&form, page, nullptr, {}, nullptr};
  Collector collector(layout, place);
  for (forms::Control* control : form.controls()) {
    const bool is_its_own = &place == &form ? control->container() == &form : StandsOn(*control, place);
    if (is_its_own && !IsOnNoPage(*control)) collector.Add(*control);
  }
  return layout;
}

}  // namespace

Layout LayoutOfPage(forms::Windows& windows, int page) {
  return LayoutOf(windows.main, windows.main.FraMain[static_cast<std::size_t>(page)], page);
}

Layout LayoutOfDialog(forms::Form& dialog) { return LayoutOf(dialog, dialog, -1); }

Layout LayoutOfButtons(forms::Windows& windows) { return LayoutOf(windows.main, windows.main, -1); }

std::vector<Layout> AllLayouts(forms::Windows& windows) {
  std::vector<Layout> layouts;
  layouts.reserve(forms::kPageCount + 3);
  for (int page = 0; page < static_cast<int>(forms::kPageCount); ++page) layouts.push_back(LayoutOfPage(windows, page));
  layouts.push_back(LayoutOfButtons(windows));
  layouts.push_back(LayoutOfDialog(windows.win2k_info));
  layouts.push_back(LayoutOfDialog(windows.win9x_info));
  return layouts;
}

std::vector<forms::Control*> ControlsOf(const Layout& layout) {
  std::vector<forms::Control*> controls;
  for (const Group& group : layout.groups) {
    if (group.head != nullptr) controls.push_back(group.head);
    for (const Row& row : group.rows) controls.insert(controls.end(), row.controls.begin(), row.controls.end());
  }
  return controls;
}

}  // namespace discwright::wizard
