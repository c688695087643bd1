// Makes the widgets of one layout and arranges them: a page, a dialog, or the buttons below the pages.
#pragma once

#include <QFrame>
#include <QWidget>
#include <map>

#include "desktop/qt/control_views.h"
#include "wizard/layout.h"

namespace discwright::desktop {

using Views = std::map<const forms::Control*, View>;

// Returns the page as a widget, which belongs to `parent`. Adds the view of each control, of each frame and of the
// heading to `views`. The views become invalid when the page is deleted.
QWidget* MakePage(const wizard::Layout& layout, QWidget* parent, Views& views);

QFrame* MakeLine(QWidget* parent);  // a line from the left to the right

// Returns the buttons as one row: the first at the left, the others at the right.
QWidget* MakeButtonRow(const wizard::Layout& layout, QWidget* parent, Views& views);

// Lets the Tab key visit the controls of a layout in reading order.
void SetTabOrder(const wizard::Layout& layout, const Views& views);

}  // namespace discwright::desktop
