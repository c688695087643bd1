// Makes the widget of each kind of control. A widget passes what its user does to forms/user_actions, and shows the
// control again afterwards if the program did not accept it.
#include "desktop/qt/control_views.h"

#include <QCheckBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "desktop/qt/child.h"
#include "desktop/qt/drop_target.h"
#include "desktop/qt/painted_widgets.h"
#include "desktop/qt/qt_text.h"
#include "forms/all_windows.h"
#include "forms/user_actions.h"

namespace discwright::desktop {

namespace {

using forms::Facet;

// A bar of Qt counts with 32 bits and a bar of a form with 64, so each bar is shown in steps of a ten-thousandth.
constexpr int kBarSteps = 10000;

void Name(QWidget& widget, const forms::Control& control) {
  widget.setObjectName(ToQt(control.name()));
  const bool is_bar = dynamic_cast<const forms::ProgressBar*>(&control) != nullptr;
  widget.setAccessibleName(is_bar ? QStringLiteral("Progress") : ToQt(forms::NamingText(control)).trimmed());
}

void ShowEmphasis(QWidget& widget, const forms::Label& label) {
  QFont font = widget.font();
  font.setBold(label.bold);
  if (font.bold() != widget.font().bold()) widget.setFont(font);
  const int color = label.fore_color;
  if (color == 0) {
    widget.setPalette(QPalette());
    return;
  }
  constexpr int kByte = 0xFF;
  QPalette palette = widget.palette();
  palette.setColor(QPalette::WindowText, QColor(color & kByte, color >> 8 & kByte, color >> 16 & kByte));
  widget.setPalette(palette);
}

// A key that is held down presses the button once.
class Button : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (!event->isAutoRepeat()) QPushButton::keyPressEvent(event);
  }
};

// A label of Qt selects its link only when Tab is pressed a second time in it. This one selects the link with the first
// Tab and with the access key, so that Enter follows it.
class LinkLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void focusInEvent(QFocusEvent* event) override {
    QLabel::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    const bool by_key =
        reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
    if (by_key) QLabel::focusNextPrevChild(true);
  }
  // QLabel looks for another link in its text first, but this label has only one.
  bool focusNextPrevChild(bool next) override {
    return QWidget::focusNextPrevChild(next);  // NOLINT(bugprone-parent-virtual-call)
  }
};

int StepsOf(const forms::ProgressBar& bar) {
  const std::int64_t range = bar.max - bar.min;
  if (range <= 0) return 0;
  const std::int64_t part = std::clamp<std::int64_t>(bar.value - bar.min, 0, range);
  return static_cast<int>(static_cast<double>(part) / static_cast<double>(range) * kBarSteps);
}

}  // namespace

QString CaptionWithKey(const forms::Captioned& control) {
  if (control.placing().key == forms::kKeyInCaption) return ToQt(control.caption.get());
  QString text = ToQt(forms::ShownText(control));
  const qsizetype place = control.placing().key == 0 ? -1 : text.indexOf(QLatin1Char(control.placing().key));
  const qsizetype escaped = place < 0 ? 0 : place + text.left(place).count(u'&');
  text.replace(u"&"_qs, u"&&"_qs);
  return place < 0 ? text : text.insert(escaped, u'&');
}

View MakeLabelView(forms::Label& label, QWidget* parent) {
  QLabel* const widget = label.one_line ? MakeChild<CutLabel>(parent) : MakeChild<QLabel>(parent);
  widget->setTextFormat(Qt::PlainText);
  widget->setWordWrap(!label.one_line);
  return {widget, [widget, &label](Facet facet) {
            // Without a buddy, which PageView sets, Qt shows each ampersand as it is.
            if (facet == Facet::kText) {
              widget->setText(widget->buddy() == nullptr ? ToQt(forms::ShownText(label)) : CaptionWithKey(label));
              widget->setAccessibleName(ToQt(forms::ShownText(label)).trimmed());
            }
            if (facet == Facet::kEmphasis) ShowEmphasis(*widget, label);
          }};
}

View MakeMarkView(forms::Label& mark, QWidget* parent) {
  auto* const widget = MakeChild<MarkWidget>(parent);
  return {widget, [widget, &mark](Facet facet) {
            if (facet != Facet::kText) return;
            const std::string& glyph = mark.caption;
            widget->Show(glyph == forms::kTick    ? MarkWidget::Mark::kTick
                         : glyph == forms::kCross ? MarkWidget::Mark::kCross
                                                  : MarkWidget::Mark::kNone);
          }};
}

View MakeLinkView(forms::Link& link, QWidget* parent) {
  auto* const widget = MakeChild<LinkLabel>(parent);
  widget->setTextFormat(Qt::RichText);
  widget->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  widget->setFocusPolicy(Qt::StrongFocus);
  QObject::connect(widget, &QLabel::linkActivated, widget, [&link] { forms::Follow(link); });
  return {widget, [widget, &link](Facet facet) {
            if (facet != Facet::kText) return;
            const QString address = ToQt(link.caption.get()).toHtmlEscaped();
            widget->setText(u"<a href=\"%1\">%1</a>"_qs.arg(address));
          }};
}

View MakeButtonView(forms::CommandButton& button, QWidget* parent) {
  auto* const widget = MakeChild<Button>(parent);
  QObject::connect(widget, &QPushButton::clicked, widget, [&button] { forms::Press(button); });
  return {widget, [widget, &button](Facet facet) {
            if (facet == Facet::kText) widget->setText(CaptionWithKey(button));
          }};
}

View MakeCheckBoxView(forms::CheckBox& box, QWidget* parent) {
  auto* const widget = MakeChild<QCheckBox>(parent);
  const auto show_value = [widget, &box] {
    constexpr int kGreyed = 2;
    widget->setTristate(box.value == kGreyed);
    widget->setCheckState(box.value == kGreyed ? Qt::PartiallyChecked : box.checked() ? Qt::Checked : Qt::Unchecked);
  };
  QObject::connect(widget, &QCheckBox::clicked, widget, [&box, show_value](bool on) {
    forms::Toggle(box, on);
    show_value();
  });
  return {widget, [widget, &box, show_value](Facet facet) {
            if (facet == Facet::kText) widget->setText(CaptionWithKey(box));
            if (facet == Facet::kValue) show_value();
          }};
}

View MakeOptionView(forms::OptionButton& option, QWidget* parent) {
  auto* const widget = MakeChild<QRadioButton>(parent);
  widget->setAutoExclusive(false);  // the form clears the other options itself
  const auto show_value = [widget, &option] { widget->setChecked(option.value); };
  QObject::connect(widget, &QRadioButton::clicked, widget, [&option, show_value] {
    forms::Choose(option);
    show_value();
  });
  return {widget, [widget, &option, show_value](Facet facet) {
            if (facet == Facet::kText) widget->setText(CaptionWithKey(option));
            if (facet == Facet::kValue) show_value();
          }};
}

View MakeFieldView(forms::TextBox& field, QWidget* parent) {
  auto* const widget = MakeChild<QLineEdit>(parent);
  widget->setEchoMode(field.password ? QLineEdit::Password : QLineEdit::Normal);
  widget->setReadOnly(field.read_only);
  constexpr int kLettersWide = 28;  // at least; a field takes all the room of its row
  widget->setMinimumWidth(widget->fontMetrics().averageCharWidth() * kLettersWide);
  TakeDrops(*widget, field);
  QObject::connect(widget, &QLineEdit::textEdited, widget,
                   [&field](const QString& text) { forms::Type(field, FromQt(text)); });
  return {widget, [widget, &field](Facet facet) {
            const QString text = ToQt(field.text.get());
            if (facet == Facet::kText && widget->text() != text) widget->setText(text);
          }};
}

View MakeTextView(forms::TextBox& text, QWidget* parent) {
  auto* const widget = MakeChild<QPlainTextEdit>(parent);
  widget->setReadOnly(text.read_only);
  widget->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  widget->setTabChangesFocus(true);
  constexpr int kLinesHigh = 8;  // at least; the text takes all the room of its page
  widget->setMinimumHeight(widget->fontMetrics().lineSpacing() * kLinesHigh);
  widget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  return {widget, [widget, &text](Facet facet) {
            if (facet == Facet::kText) widget->setPlainText(LinesToQt(text.text.get()));
          }};
}

View MakeProgressView(forms::ProgressBar& bar, QWidget* parent) {
  auto* const widget = MakeChild<QProgressBar>(parent);
  widget->setRange(0, kBarSteps);
  QSizePolicy keeps_its_place = widget->sizePolicy();
  keeps_its_place.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(keeps_its_place);
  return {widget, [widget, &bar](Facet facet) {
            if (facet == Facet::kValue || facet == Facet::kRange) widget->setValue(StepsOf(bar));
          }};
}

View MakePictureView(forms::Picture& /*picture*/, QWidget* parent) {
  return {MakeChild<SidePictureWidget>(parent), [](Facet) {}};
}

namespace {

// The kinds, each with its function. A link is also a label, so it is asked for first.
View MakeViewOfKind(forms::Control& control, QWidget* parent) {
  if (auto* link = dynamic_cast<forms::Link*>(&control)) return MakeLinkView(*link, parent);
  if (auto* label = dynamic_cast<forms::Label*>(&control)) {
    return label->symbol_font ? MakeMarkView(*label, parent) : MakeLabelView(*label, parent);
  }
  if (auto* button = dynamic_cast<forms::CommandButton*>(&control)) return MakeButtonView(*button, parent);
  if (auto* box = dynamic_cast<forms::CheckBox*>(&control)) return MakeCheckBoxView(*box, parent);
  if (auto* option = dynamic_cast<forms::OptionButton*>(&control)) return MakeOptionView(*option, parent);
  if (auto* text = dynamic_cast<forms::TextBox*>(&control)) {
    return text->multi_line ? MakeTextView(*text, parent) : MakeFieldView(*text, parent);
  }
  if (auto* bar = dynamic_cast<forms::ProgressBar*>(&control)) return MakeProgressView(*bar, parent);
  return MakePictureView(dynamic_cast<forms::Picture&>(control), parent);
}

}  // namespace

View MakeView(forms::Control& control, QWidget* parent) {
  View view = MakeViewOfKind(control, parent);
  Name(*view.widget, control);
  view.apply = [apply = std::move(view.apply), widget = view.widget, &control](Facet facet) {
    if (facet == Facet::kVisible) widget->setVisible(control.visible);
    if (facet == Facet::kEnabled) widget->setEnabled(control.enabled);
    if (facet == Facet::kRepaint) widget->repaint();
    apply(facet);
  };
  for (const Facet facet : {Facet::kText, Facet::kRange, Facet::kValue, Facet::kEmphasis, Facet::kEnabled}) {
    view.apply(facet);
  }
  if (!control.visible) view.widget->hide();
  return view;
}

}  // namespace discwright::desktop
