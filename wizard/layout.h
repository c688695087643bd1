// Describes a page or dialog as groups of rows of controls, from which every user interface builds its window. Call
// AllLayouts, or one of the functions for a single layout.
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
  const forms::Frame* frame = nullptr;  // drawn around the rows, with its caption as title; null: no frame
  forms::CheckBox* head = nullptr;      // a check box in the place of the frame's title; null: none
  std::vector<Row> rows;
};

struct Layout {
  forms::Form* form = nullptr;
  int page = -1;                          // the index in FraMain; -1: a dialog, or the buttons below the pages
  forms::Label* heading = nullptr;        // the title of a page; it is not part of a row
  std::vector<Group> groups;              // from top to bottom
  forms::Control* first_focus = nullptr;  // null: the default button gets the focus
};

// A layout follows from the records of the controls: the order of their declarations, their frames, and their
// forms::Placing. A control that is added there appears on its page in every user interface.
Layout LayoutOfPage(forms::Windows& windows, int page);
Layout LayoutOfDialog(forms::Form& dialog);
Layout LayoutOfButtons(forms::Windows& windows);  // the five buttons below the pages

// Returns the layouts of the eleven pages, of the buttons below them, and of both dialogs.
std::vector<Layout> AllLayouts(forms::Windows& windows);

// Returns the controls of a layout in reading order, which is also the order of the Tab key.
std::vector<forms::Control*> ControlsOf(const Layout& layout);

}  // namespace discwright::wizard
