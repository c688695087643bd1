// The pictures of the program, which are drawn from wizard/art/ and compiled into it.
#pragma once

#include <QIcon>
#include <QPixmap>

namespace discwright::desktop {

// The picture at the left of every page: 600 x 1800 pixels, three for each unit of the drawing. Its lowest row has one
// colour, in which the window can continue it.
QPixmap SidePicture();

QIcon ProgramIcon();  // in all sizes that desktops show

}  // namespace discwright::desktop
