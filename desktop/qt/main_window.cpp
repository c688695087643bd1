// Arranges the main window and shows the page that the form shows.
#include "desktop/qt/main_window.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/qt/child.h"
#include "wizard/pages.h"

namespace discwright::desktop {

namespace {

int HeightOf(const QWidget& page, int width) {
  const QLayout& layout = *page.layout();
  return layout.hasHeightForWidth() ? layout.totalHeightForWidth(width) : layout.totalSizeHint().height();
}

}  // namespace

MainWindow::MainWindow(forms::Windows& windows)
    : FormWindow(windows.main, nullptr),
      main_(windows.main),
      area_(MakeChild<QScrollArea>(this)),
      pages_(MakeChild<QStackedWidget>(area_)) {
  setWindowFlags(Qt::Window | Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
  View picture = MakeView(main_.PicSideImage, this);
  AddPages(windows);
  area_->setFrameShape(QFrame::NoFrame);
  area_->setWidgetResizable(true);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->setWidget(pages_);

  auto* const upper = MakeChild<QHBoxLayout>();
  upper->setSpacing(0);
  upper->addWidget(picture.widget);
  upper->addWidget(area_, 1);
  auto* const column = MakeChild<QVBoxLayout>(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(upper, 1);
  column->addWidget(MakeLine(this));
  const wizard::Layout buttons = wizard::LayoutOfButtons(windows);
  buttons_ = MakeButtonRow(buttons, this, views());
  column->addWidget(buttons_);
  column->setSizeConstraint(QLayout::SetFixedSize);
  views()[&main_.PicSideImage] = std::move(picture);
  SetTabOrder(buttons, views());
  ShowChanges();
  ShowPage(wizard::PageInView(main_));
  FitToPages();
  adjustSize();  // the system places the window by the size that it has when it appears
}

void MainWindow::AddPages(forms::Windows& windows) {
  for (int page = 0; page < static_cast<int>(forms::kPageCount); ++page) {
    layouts_.push_back(wizard::LayoutOfPage(windows, page));
    pages_->addWidget(MakePage(layouts_.back(), pages_, views()));
    SetTabOrder(layouts_.back(), views());
  }
}

void MainWindow::OnChange(forms::Control& control, forms::Facet facet) {
  FormWindow::OnChange(control, facet);
  const bool is_page = dynamic_cast<forms::Frame*>(&control) != nullptr && control.index() >= 0;
  if (!is_page || facet != forms::Facet::kVisible || !control.visible) return;
  // A page that refuses Next is shown again. The focus then stays in the field that the message has named.
  if (control.index() != pages_->currentIndex()) ShowPage(control.index());
}

void MainWindow::ShowPage(int page) {
  pages_->setCurrentIndex(page);
  area_->ensureVisible(0, 0);
  SetFocusTo(layouts_[static_cast<std::size_t>(page)].first_focus);
}

QSize MainWindow::SizeOfPages() const {
  constexpr int kLettersWide = 96;
  constexpr int kLinesHigh = 28;
  int width = fontMetrics().averageCharWidth() * kLettersWide;
  for (int i = 0; i < pages_->count(); ++i) width = std::max(width, pages_->widget(i)->minimumSizeHint().width());
  int height = fontMetrics().height() * kLinesHigh;
  for (int i = 0; i < pages_->count(); ++i) height = std::max(height, HeightOf(*pages_->widget(i), width));
  return {width, height};
}

// Controls that are hidden now count, too: the window must not grow when one of them appears.
QSize MainWindow::SizeOfFullPages() {
  std::vector<QWidget*> shown;
  for (const auto& [control, view] : views()) {
    if (!view.widget->isHidden() || !pages_->isAncestorOf(view.widget)) continue;
    view.widget->show();
    shown.push_back(view.widget);
  }
  const QSize size = SizeOfPages();
  for (QWidget* const widget : shown) widget->hide();
  return size;
}

void MainWindow::FitToPages() {
  const QSize wanted = SizeOfFullPages();
  pages_->setMinimumSize(wanted);
  // The borders of the window, which the system draws, and the panels of the desktop need some room, too.
  constexpr double kPartOfScreen = 0.95;
  const QSize available = screen()->availableSize() * kPartOfScreen;
  const int beside = views().at(&main_.PicSideImage).widget->sizeHint().width();
  const int below = buttons_->sizeHint().height();
  area_->setFixedSize(std::min(wanted.width(), available.width() - beside),
                      std::min(wanted.height(), available.height() - below));
}

void MainWindow::changeEvent(QEvent* event) {
  FormWindow::changeEvent(event);
  const bool changes_size = event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange;
  if (changes_size && buttons_ != nullptr) FitToPages();
}

void MainWindow::showEvent(QShowEvent* event) {
  FitToPages();
  FormWindow::showEvent(event);
}

}  // namespace discwright::desktop
