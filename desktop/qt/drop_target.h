// Lets the user drop a folder or file onto a field. Call TakeDrops once for each field.
#pragma once

#include <QWidget>

#include "forms/control.h"

namespace discwright::desktop {

// A field that takes no folders or files keeps Qt's own handling, by which text can be dropped.
void TakeDrops(QWidget& widget, forms::TextBox& field);

}  // namespace discwright::desktop
