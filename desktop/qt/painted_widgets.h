// Widgets that Qt does not have: a tick or cross, a line of text that is cut in its middle, and the side picture.
#pragma once

#include <QLabel>
#include <QPixmap>
#include <QWidget>

namespace discwright::desktop {

// A tick, a cross, or an empty place of the same size.
class MarkWidget : public QWidget {
 public:
  enum class Mark { kNone, kTick, kCross };
  explicit MarkWidget(QWidget* parent);

  void Show(Mark mark);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Mark mark_ = Mark::kNone;
};

// A label of one line. What does not fit is left out in the middle, and the whole text is the tool tip then.
class CutLabel : public QLabel {
 public:
  explicit CutLabel(QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// The picture at the left of every page. It fills the width of the widget; below it, its lowest colour goes on.
class SidePictureWidget : public QWidget {
 public:
  explicit SidePictureWidget(QWidget* parent);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap scaled_;  // the picture at the width at which it was painted last, in pixels of the screen
};

}  // namespace discwright::desktop
