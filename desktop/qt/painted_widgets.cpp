// Paints the widgets that Qt does not have.
#include "desktop/qt/painted_widgets.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>

#include "desktop/qt/art.h"

namespace discwright::desktop {

namespace {

// The marks are drawn in a square of one unit. The lines begin and end at these places.
QPainterPath Tick() {
  QPainterPath path(QPointF(0.16, 0.55));
  path.lineTo(0.40, 0.79);
  path.lineTo(0.86, 0.24);
  return path;
}

QPainterPath Cross() {
  QPainterPath path(QPointF(0.24, 0.24));
  path.lineTo(0.76, 0.76);
  path.moveTo(0.76, 0.24);
  path.lineTo(0.24, 0.76);
  return path;
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

}  // namespace

MarkWidget::MarkWidget(QWidget* parent) : QWidget(parent) { setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); }

void MarkWidget::Show(Mark mark) {
  mark_ = mark;
  setAccessibleName(mark == Mark::kTick ? tr("done") : mark == Mark::kCross ? tr("left out") : QString());
  update();
}

QSize MarkWidget::sizeHint() const {
  const int side = fontMetrics().height();
  return {side, side};
}

void MarkWidget::paintEvent(QPaintEvent* /*event*/) {
  if (mark_ == Mark::kNone) return;
  constexpr qreal kPenWidth = 0.13;
  const QColor done = IsDark(palette()) ? QColor(0x6F, 0xD6, 0x8B) : QColor(0x1B, 0x7F, 0x3B);
  const QColor skipped = palette().color(QPalette::Disabled, QPalette::WindowText);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(width(), height());
  painter.setPen(QPen(mark_ == Mark::kTick ? done : skipped, kPenWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(mark_ == Mark::kTick ? Tick() : Cross());
}

CutLabel::CutLabel(QWidget* parent) : QLabel(parent) { setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); }

QSize CutLabel::sizeHint() const { return minimumSizeHint(); }

QSize CutLabel::minimumSizeHint() const { return {0, fontMetrics().lineSpacing()}; }

void CutLabel::paintEvent(QPaintEvent* /*event*/) {
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
  setToolTip(shown == text() ? QString() : text());
  QPainter painter(this);
  painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
  painter.drawText(rect(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine), shown);
}

SidePictureWidget::SidePictureWidget(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

QSize SidePictureWidget::sizeHint() const {
  constexpr int kLettersWide = 27;
  return {fontMetrics().averageCharWidth() * kLettersWide, 0};
}

void SidePictureWidget::paintEvent(QPaintEvent* /*event*/) {
  const auto pixels = static_cast<int>(width() * devicePixelRatio());
  if (scaled_.width() != pixels) {
    scaled_ = SidePicture().scaledToWidth(pixels, Qt::SmoothTransformation);
    scaled_.setDevicePixelRatio(devicePixelRatio());
  }
  QPainter painter(this);
  const QImage image = scaled_.copy(0, scaled_.height() - 1, 1, 1).toImage();
  painter.fillRect(rect(), image.pixelColor(0, 0));
  painter.drawPixmap(0, 0, scaled_);
}

}  // namespace discwright::desktop
