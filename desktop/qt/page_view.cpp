// Arranges the controls of a layout. A group is a grid of three columns: the labels beside their fields, the fields,
// and the buttons beside these.
#include "desktop/qt/page_view.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/qt/child.h"
#include "desktop/qt/qt_text.h"
#include "forms/all_windows.h"

namespace discwright::desktop {

namespace {

using forms::Control;
using Controls = std::vector<Control*>;

enum Column : int { kLabels = 0, kFields = 1, kButtons = 2, kColumnCount = 3 };

template <typename Kind>
bool Is(const Control& control) {
  return dynamic_cast<const Kind*>(&control) != nullptr;
}

bool AreButtons(const Controls& row) {
  return std::all_of(row.begin(), row.end(), [](const Control* control) { return Is<forms::CommandButton>(*control); });
}

bool IsLabelBesideField(const Controls& row) {
  return row.size() == 2 && Is<forms::Label>(*row.front()) && Is<forms::TextBox>(*row.back());
}

bool IsFieldWithButton(const Controls& row) {
  return row.size() == 2 && Is<forms::TextBox>(*row.front()) && Is<forms::CommandButton>(*row.back());
}

bool IsOneLine(const Control& control) {
  const auto* label = dynamic_cast<const forms::Label*>(&control);
  return label != nullptr && label->one_line;
}

// Whether the label `above` belongs to the control below it: it names a field or a link, or tells what a bar measures.
bool Names(const Control& above, const Control& below) {
  if (const auto* field = dynamic_cast<const forms::TextBox*>(&below)) return field->label == &above;
  if (const auto* link = dynamic_cast<const forms::Link*>(&below)) return link->label == &above;
  return Is<forms::ProgressBar>(below) && IsOneLine(above);
}

bool IsTall(const Control& control) {
  const auto* text = dynamic_cast<const forms::TextBox*>(&control);
  return text != nullptr && text->multi_line;
}

// How far a row is moved to the right to stand below the caption of the check box above it.
int Inset(const QWidget& page) {
  const QStyle& style = *page.style();
  return style.pixelMetric(QStyle::PM_IndicatorWidth) + style.pixelMetric(QStyle::PM_CheckBoxLabelSpacing);
}

// The height of a line of text: distances are parts of it, so that they grow with the letters.
int Line(const QWidget& page) { return page.fontMetrics().height(); }

class PageBuilder {
 public:
  PageBuilder(QWidget& page, Views& views) : page_(page), views_(views) {}

  void Build(const wizard::Layout& layout) {
    auto* const column = MakeChild<QVBoxLayout>(&page_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    if (layout.heading != nullptr) {
      column->addWidget(MakeHeading(*layout.heading));
      column->addWidget(MakeLine(&page_));
    }
    column->addWidget(MakeBody(layout.groups), 1);
  }

 private:
  static bool HasTallRow(const wizard::Group& group) {
    return std::any_of(group.rows.begin(), group.rows.end(), [](const wizard::Row& row) {
      return std::any_of(row.controls.begin(), row.controls.end(), [](const Control* one) { return IsTall(*one); });
    });
  }

  QWidget* Add(Control& control, QWidget* parent) {
    View view = MakeView(control, parent);
    QWidget* const widget = view.widget;
    views_[&control] = std::move(view);
    return widget;
  }

  // The heading stands in a band of its own. Its caption begins with blanks, which would move it to the right.
  QWidget* MakeHeading(forms::Label& heading) {
    constexpr qreal kLarger = 1.45;
    auto* const band = MakeChild<QFrame>(&page_);
    band->setAutoFillBackground(true);
    band->setBackgroundRole(QPalette::Base);
    auto* const row = MakeChild<QHBoxLayout>(band);
    QWidget* const widget = Add(heading, band);
    QFont font = widget->font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * kLarger);
    font.setWeight(QFont::DemiBold);
    widget->setFont(font);
    const int blanks = QFontMetrics(font).horizontalAdvance(u"  "_qs);
    row->setContentsMargins(Margin() - blanks, Margin() * 3 / 4, Margin(), Margin() * 3 / 4);
    row->addWidget(widget);
    return band;
  }

  QWidget* MakeBody(const std::vector<wizard::Group>& groups) {
    auto* const body = MakeChild<QWidget>(&page_);
    auto* const column = MakeChild<QVBoxLayout>(body);
    column->setContentsMargins(Margin(), Margin(), Margin(), Margin());
    column->setSpacing(Line(page_) * 3 / 4);
    bool fills = false;
    for (const wizard::Group& group : groups) {
      const bool is_tall = HasTallRow(group);
      column->addWidget(MakeGroup(group, body), is_tall ? 1 : 0);
      fills = fills || is_tall;
    }
    if (!fills) column->addStretch(1);
    return body;
  }

  int Margin() const { return Line(page_) * 3 / 2; }

  // A frame with a caption is drawn as a box. A frame without one, or with a check box as its head, is an indented
  // block.
  QWidget* MakeGroup(const wizard::Group& group, QWidget* body) {
    const QString title = group.frame == nullptr ? QString() : ToQt(forms::ShownText(*group.frame)).trimmed();
    auto* const block = title.isEmpty() ? MakeChild<QWidget>(body) : MakeChild<QGroupBox>(title, body);
    auto* const grid = MakeChild<QGridLayout>(block);
    if (title.isEmpty()) grid->setContentsMargins(group.frame == nullptr ? 0 : Inset(page_), 0, 0, 0);
    grid->setColumnStretch(kFields, 1);
    grid->setVerticalSpacing(0);
    const Controls* above = nullptr;
    for (const wizard::Row& row : group.rows) {
      if (above != nullptr) AddSpace(*grid, *above, row.controls);
      AddRow(*grid, row.controls, block);
      above = &row.controls;
    }
    return group.head == nullptr ? block : WithHead(*group.head, block, body);
  }

  // A label stands close above the field or bar that it belongs to.
  void AddSpace(QGridLayout& grid, const Controls& above, const Controls& below) const {
    constexpr int kParts = 12;  // of the height of a line
    const int parts = Names(*above.front(), *below.front()) ? 3 : IsOneLine(*below.front()) ? 20 : 8;
    grid.addItem(MakeChild<QSpacerItem>(0, Line(page_) * parts / kParts), grid.rowCount(), 0);
  }

  QWidget* WithHead(forms::CheckBox& head, QWidget* block, QWidget* body) {
    auto* const both = MakeChild<QWidget>(body);
    auto* const column = MakeChild<QVBoxLayout>(both);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(Add(head, both));
    column->addWidget(block);
    return both;
  }

  void AddRow(QGridLayout& grid, const Controls& row, QWidget* parent) {
    const int line = grid.rowCount();
    std::vector<QWidget*> widgets;
    for (Control* control : row) widgets.push_back(Add(*control, parent));
    QHBoxLayout* const start = MakeStart(row);
    if (IsLabelBesideField(row)) {
      start->addWidget(widgets[0]);
      grid.addLayout(start, line, kLabels);
      grid.addWidget(widgets[1], line, kFields, 1, 2);
      dynamic_cast<QLabel&>(*widgets[0]).setWordWrap(false);
    } else if (IsFieldWithButton(row)) {
      start->addWidget(widgets[0]);
      grid.addLayout(start, line, kLabels, 1, 2);
      grid.addWidget(widgets[1], line, kButtons);
      widgets[1]->setAccessibleDescription(ToQt(forms::NamingText(*row.front())).trimmed());
    } else {
      FillStrip(*start, row, widgets);
      grid.addLayout(start, line, kLabels, 1, kColumnCount);
      if (IsTall(*row.front())) grid.setRowStretch(line, 1);
    }
  }

  // The layout of the first cell of a row.
  QHBoxLayout* MakeStart(const Controls& row) const {
    auto* const start = MakeChild<QHBoxLayout>();
    start->setSpacing(Line(page_) / 2);
    if (row.front()->placing().inset) start->addSpacing(Inset(page_));
    return start;
  }

  // Puts controls one after the other: several buttons at the right, everything else at the left. A text or a field at
  // the end takes the rest of the row.
  static void FillStrip(QHBoxLayout& strip, const Controls& row, const std::vector<QWidget*>& widgets) {
    const bool at_the_right = row.size() > 1 && AreButtons(row);
    const Control& last = *row.back();
    const bool fills = Is<forms::Label>(last) || Is<forms::TextBox>(last) || Is<forms::ProgressBar>(last);
    if (at_the_right) strip.addStretch(1);
    for (QWidget* const widget : widgets) strip.addWidget(widget, fills && widget == widgets.back() ? 1 : 0);
    if (!at_the_right && !fills) strip.addStretch(1);
  }

  QWidget& page_;
  Views& views_;
};

// A label moves the focus to the field that it names.
void SetBuddies(const Views& views) {
  for (const auto& [control, view] : views) {
    const forms::Captioned* named_by = nullptr;
    if (const auto* field = dynamic_cast<const forms::TextBox*>(control)) named_by = field->label;
    if (const auto* link = dynamic_cast<const forms::Link*>(control)) named_by = link->label;
    const auto found = views.find(named_by);
    if (found == views.end()) continue;
    auto* const label = dynamic_cast<QLabel*>(found->second.widget);
    if (label == nullptr || label->buddy() == view.widget) continue;
    label->setBuddy(view.widget);
    found->second.apply(forms::Facet::kText);
  }
}

}  // namespace

QFrame* MakeLine(QWidget* parent) {
  auto* const line = MakeChild<QFrame>(parent);
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  return line;
}

QWidget* MakePage(const wizard::Layout& layout, QWidget* parent, Views& views) {
  auto* const page = MakeChild<QWidget>(parent);
  PageBuilder(*page, views).Build(layout);
  SetBuddies(views);
  return page;
}

QWidget* MakeButtonRow(const wizard::Layout& layout, QWidget* parent, Views& views) {
  auto* const row = MakeChild<QWidget>(parent);
  auto* const strip = MakeChild<QHBoxLayout>(row);
  const int margin = Line(*row) * 3 / 4;
  strip->setContentsMargins(margin, margin, margin, margin);
  for (Control* control : wizard::ControlsOf(layout)) {
    View view = MakeView(*control, row);
    strip->addWidget(view.widget);
    if (strip->count() == 1) strip->addStretch(1);
    views[control] = std::move(view);
  }
  return row;
}

void SetTabOrder(const wizard::Layout& layout, const Views& views) {
  QWidget* before = nullptr;
  for (const Control* control : wizard::ControlsOf(layout)) {
    QWidget* const widget = views.at(control).widget;
    if (widget->focusPolicy() == Qt::NoFocus) continue;  // setTabOrder does nothing for it
    if (before != nullptr) QWidget::setTabOrder(before, widget);
    before = widget;
  }
}

}  // namespace discwright::desktop
