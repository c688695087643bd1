// The pictures of the program.
#include "desktop/qt/art.h"

#include <QDir>

// Without this call the linker would leave the pictures out of the program, because nothing else refers to them. The
// macro only works outside of all namespaces.
static void LinkArt() { Q_INIT_RESOURCE(art); }

namespace discwright::desktop {

QPixmap SidePicture() {
  LinkArt();
  return QPixmap(QStringLiteral(":/art/side.png"));
}

QIcon ProgramIcon() {
  LinkArt();
  const QDir art(QStringLiteral(":/art"));
  QIcon icon;
  for (const QString& name : art.entryList({QStringLiteral("icon_*.png")})) icon.addFile(art.filePath(name));
  return icon;
}

}  // namespace discwright::desktop
