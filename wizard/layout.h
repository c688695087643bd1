// A page or dialog as rows, for every face: what stands beside what, in which group, in which order.
#pragma once

#include <string>
#include <vector>

#include "forms/all_windows.h"

namespace discwright::wizard {

// Controls side by side, from left to right.
struct Row {
  std::vector<forms::Control*> controls;
};

// Rows that belong together, from top to bottom.
struct Group {
  const forms::Frame* frame = nullptr;  // drawn around them, with its caption as title; null: the bare page
  forms::CheckBox* head = nullptr;      // the check box that is the title of the frame; null: none
  std::vector<Row> rows;
};

struct Layout {
  forms::Form* form = nullptr;
  int page = -1;                          // the index in FraMain; -1: a dialog, or the buttons below the pages
  const forms::Label* heading = nullptr;  // the title line of a page; stands in no row
  std::vector<Group> groups;              // from top to bottom
  forms::Control* first_focus = nullptr;  // null: nothing on it takes input; then the default button has the focus
};

// All of it is read off the records: the order of their declarations, their frames, and what is given beside their
// captions (forms::Placing). A control that is added there stands on its page in every face.
Layout LayoutOfPage(forms::Windows& windows, int page);
Layout LayoutOfDialog(forms::Form& dialog);
Layout LayoutOfButtons(forms::Windows& windows);  // the five below every page

// The eleven pages, the buttons below them, and both dialogs.
std::vector<Layout> AllLayouts(forms::Windows& windows);

// The controls of a layout in the order in which they are read and reached with the Tab key.
std::vector<forms::Control*> ControlsOf(const Layout& layout);

}  // namespace discwright::wizard
