// Shows the wizard's main window: the side picture, one of the eleven pages, a line, and the five buttons.
#pragma once

#include <QScrollArea>
#include <QStackedWidget>

#include "desktop/qt/form_window.h"

namespace discwright::desktop {

// The size of the window is that of the largest page, so that it is the same for all pages. On a screen that is too
// small for it, the pages can be scrolled.
class MainWindow : public FormWindow {
 public:
  explicit MainWindow(forms::Windows& windows);

 protected:
  void OnChange(forms::Control& control, forms::Facet facet) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void AddPages(forms::Windows& windows);
  void ShowPage(int page);
  QSize SizeOfPages() const;
  QSize SizeOfFullPages();
  void FitToPages();

  forms::FrmDiscwright& main_;
  QScrollArea* area_;      // these belong to the window
  QStackedWidget* pages_;  // the page of FraMain[n] has the index n
  QWidget* buttons_ = nullptr;
  std::vector<wizard::Layout> layouts_;
};

}  // namespace discwright::desktop
