// Shows a form as a window. The window follows the form: it is visible while the form is, and every change of a control
// is shown at once. FormWindow has what the main window and the dialogs share.
#pragma once

#include <QDialog>
#include <QElapsedTimer>

#include "desktop/qt/page_view.h"
#include "forms/all_windows.h"

namespace discwright::desktop {

class FormWindow : public QDialog {
 public:
  // `form` must outlive the window. The window belongs to `owner`, and is modal to it unless that is null.
  FormWindow(forms::Form& form, QWidget* owner);

  // Handles Esc, for which QDialog calls this function.
  void reject() override;

 protected:
  // A subclass makes its widgets, adds their views, and then calls this function once.
  void ShowChanges();
  virtual void OnChange(forms::Control& control, forms::Facet facet);
  // Sets the focus to the first control of a page, or to the default button if `first` is null.
  void SetFocusTo(const forms::Control* first);
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

  forms::Form& form() const { return form_; }
  Views& views() { return views_; }

 private:
  void ApplyToForm(forms::Facet facet);
  void ApplyToView(forms::Control& control, forms::Facet facet);
  void ShowDefaultButton();

  forms::Form& form_;
  Views views_;
  forms::Subscription listening_;
  QElapsedTimer since_repaint_;
};

// An installation info dialog: one page.
class DialogWindow : public FormWindow {
 public:
  DialogWindow(const wizard::Layout& layout, QWidget* owner);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  const forms::Control* first_focus_;
};

}  // namespace discwright::desktop
