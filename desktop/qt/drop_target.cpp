// Handles the drag events of a field before its widget does.
#include "desktop/qt/drop_target.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

#include "desktop/qt/child.h"
#include "desktop/qt/qt_text.h"
#include "forms/user_actions.h"
#include "host/names.h"

namespace discwright::desktop {

namespace {

class DropTarget : public QObject {
 public:
  DropTarget(QWidget& widget, forms::TextBox& field) : QObject(&widget), field_(field) {
    widget.setAcceptDrops(true);
    widget.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool is_drag = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (!is_drag && event->type() != QEvent::Drop) return QObject::eventFilter(watched, event);
    auto& drop = dynamic_cast<QDropEvent&>(*event);
    if (!drop.mimeData()->hasUrls()) return QObject::eventFilter(watched, event);
    const QString path = PathOf(drop);
    if (path.isEmpty()) {
      drop.ignore();
      return true;
    }
    // The field takes the path as a copy, whatever else the source of the drag could do with the folder.
    drop.setDropAction(Qt::CopyAction);
    drop.accept();
    if (!is_drag) forms::Drop(field_, host::PathFromNative(FromQt(path)));
    return true;
  }

 private:
  // The path that the field would take; empty if there is none, or if it is of the wrong kind.
  QString PathOf(const QDropEvent& drop) const {
    const QList<QUrl> urls = drop.mimeData()->urls();
    if (urls.size() != 1 || !urls.front().isLocalFile() || !forms::CanBeUsed(field_)) return {};
    const QString path = urls.front().toLocalFile();
    const forms::DropKind kind = QFileInfo(path).isDir() ? forms::DropKind::kFolder : forms::DropKind::kFile;
    const bool fits = kind == field_.drop_kind;
    return fits ? path : QString();
  }

  forms::TextBox& field_;
};

}  // namespace

// The target belongs to the widget, which deletes it.
void TakeDrops(QWidget& widget, forms::TextBox& field) { MakeChild<DropTarget>(widget, field); }

}  // namespace discwright::desktop
