// Applies the changes of a form to its widgets, and passes the keys and the closing of the window to the form.
#include "desktop/qt/form_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "desktop/qt/child.h"
#include "desktop/qt/qt_text.h"
#include "forms/user_actions.h"

namespace discwright::desktop {

FormWindow::FormWindow(forms::Form& form, QWidget* owner) : QDialog(owner), form_(form) {
  setWindowTitle(ToQt(form.caption.get()));
  setObjectName(ToQt(form.name()));
  if (owner != nullptr) setWindowModality(Qt::WindowModal);
  if (form.help_button == nullptr) return;
  const auto* const help = MakeChild<QShortcut>(QKeySequence::HelpContents, this);
  connect(help, &QShortcut::activated, this, [this] { forms::Press(*form_.help_button); });
}

void FormWindow::reject() { forms::AskToCancel(form_); }

// The program decides whether the window closes: it then hides the form.
void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  forms::AskToClose(form_);
}

// A key that is held down acts once. Enter would otherwise run through all pages and press Finish.
void FormWindow::keyPressEvent(QKeyEvent* event) {
  if (!event->isAutoRepeat()) QDialog::keyPressEvent(event);
}

void FormWindow::ShowChanges() {
  form_.window = this;
  ShowDefaultButton();
  listening_ =
      form_.Listen([this](forms::Control& control, forms::Facet facet, forms::By) { OnChange(control, facet); });
}

void FormWindow::OnChange(forms::Control& control, forms::Facet facet) {
  if (&control == &form_) {
    ApplyToForm(facet);
  } else {
    ApplyToView(control, facet);
  }
}

// A form is disabled while a dialog runs over it. Qt keeps its user out then, so nothing is greyed.
void FormWindow::ApplyToForm(forms::Facet facet) {
  if (facet == forms::Facet::kText) setWindowTitle(ToQt(form_.caption.get()));
  if (facet == forms::Facet::kVisible) setVisible(form_.visible);
  if (facet == forms::Facet::kValue && form_.busy) setCursor(Qt::WaitCursor);
  if (facet == forms::Facet::kValue && !form_.busy) unsetCursor();
}

void FormWindow::ApplyToView(forms::Control& control, forms::Facet facet) {
  const auto found = views_.find(&control);
  if (found == views_.end()) return;
  if (facet == forms::Facet::kRepaint) {
    // A copy asks for this with every file. The eye sees no more than some twenty pictures in a second.
    constexpr int kShortestPause = 50;  // milliseconds
    if (since_repaint_.isValid() && since_repaint_.elapsed() < kShortestPause) return;
    since_repaint_.start();
  }
  // Qt would move the focus of a widget that is disabled or hidden to the next one. That could be the Cancel button,
  // and a key pressed by accident would end a build. So the window itself gets the focus. If no widget had it, Qt would
  // choose one as soon as the window becomes active again.
  const bool loses_focus = found->second.widget->hasFocus() && !(control.visible && control.enabled);
  if (loses_focus) setFocus();
  found->second.apply(facet);
  const bool is_default = dynamic_cast<forms::CommandButton*>(&control) != nullptr && facet == forms::Facet::kVisible;
  if (is_default) ShowDefaultButton();
}

void FormWindow::ShowDefaultButton() {
  for (const forms::CommandButton* button : form_.default_buttons) {
    if (button->visible) dynamic_cast<QPushButton&>(*views_.at(button).widget).setDefault(true);
  }
}

void FormWindow::SetFocusTo(const forms::Control* first) {
  const auto found = views_.find(first);
  if (found != views_.end()) {
    found->second.widget->setFocus(Qt::TabFocusReason);
    return;
  }
  for (const forms::CommandButton* button : form_.default_buttons) {
    if (forms::CanBeUsed(*button)) views_.at(button).widget->setFocus(Qt::OtherFocusReason);
  }
}

DialogWindow::DialogWindow(const wizard::Layout& layout, QWidget* owner)
    : FormWindow(*layout.form, owner), first_focus_(layout.first_focus) {
  auto* const column = MakeChild<QVBoxLayout>(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(MakePage(layout, this, views()));
  column->setSizeConstraint(QLayout::SetFixedSize);
  SetTabOrder(layout, views());
  ShowChanges();
}

void DialogWindow::showEvent(QShowEvent* event) {
  SetFocusTo(first_focus_);
  FormWindow::showEvent(event);
}

}  // namespace discwright::desktop
