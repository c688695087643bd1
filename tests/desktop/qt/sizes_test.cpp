// Tests of the sizes: in small and large fonts nothing is cut off, and on a small screen the pages can be scrolled.
#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

#include "tests/desktop/qt/window_fixture.h"
#include "wizard/layout.h"

namespace discwright::desktop {
namespace {

// Makes the letters of the desktop larger until it is destroyed.
class LargerFont {
 public:
  explicit LargerFont(double times) : before_(QApplication::font()) {
    QFont font = before_;
    font.setPointSizeF(font.pointSizeF() * times);
    QApplication::setFont(font);
  }
  ~LargerFont() { QApplication::setFont(before_); }
  LargerFont(const LargerFont&) = delete;
  LargerFont& operator=(const LargerFont&) = delete;

 private:
  QFont before_;
};

class SizesTest : public testing::WindowFixture, public ::testing::WithParamInterface<double> {
 protected:
  SizesTest() { Start(); }

  static int WidestWord(const QLabel& label) {
    int widest = 0;
    for (const QString& word : label.text().split(' ')) {
      widest = std::max(widest, label.fontMetrics().horizontalAdvance(word));
    }
    return widest;
  }
  static QSize NeededBy(const QWidget& widget) {
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label != nullptr && label->wordWrap()) return {WidestWord(*label), label->heightForWidth(label->width())};
    if (widget.inherits("QLabel") && widget.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored) {
      return {0, widget.fontMetrics().height()};  // it is cut on purpose
    }
    if (label != nullptr || qobject_cast<const QAbstractButton*>(&widget) != nullptr) return widget.sizeHint();
    return widget.minimumSizeHint();
  }
  // Looks at every visible widget that shows a text of its own.
  static int ExpectNothingCut(QWidget& container) {
    int count = 0;
    for (QWidget* const widget : container.findChildren<QWidget*>()) {
      const bool has_text = widget->inherits("QLabel") || widget->inherits("QAbstractButton") ||
                            widget->inherits("QGroupBox") || widget->inherits("QLineEdit");
      if (!has_text || !widget->isVisible() || widget->window() != container.window()) continue;
      const std::string name = FromQt(widget->objectName());
      EXPECT_GE(widget->height(), NeededBy(*widget).height()) << name;
      EXPECT_GE(widget->width(), NeededBy(*widget).width()) << name;
      const QRect place(widget->mapTo(&container, QPoint(0, 0)), widget->size());
      EXPECT_TRUE(container.rect().contains(place)) << name;
      ExpectNoSiblingCovers(*widget);
      ++count;
    }
    return count;
  }
  static void ExpectNoSiblingCovers(const QWidget& widget) {
    for (const QObject* const child : widget.parentWidget()->children()) {
      const auto* sibling = qobject_cast<const QWidget*>(child);
      if (sibling == nullptr || sibling == &widget || !sibling->isVisible() || sibling->isWindow()) continue;
      EXPECT_FALSE(sibling->geometry().intersects(widget.geometry()))
          << FromQt(widget.objectName()) << " and " << FromQt(sibling->objectName());
    }
  }

 private:
  LargerFont font_{GetParam()};
};

TEST_P(SizesTest, Pages_ShowAllTheirTexts) {
  for (int page = 0; page < static_cast<int>(forms::kPageCount); ++page) {
    SCOPED_TRACE(page);
    for (forms::Frame& frame : records().FraMain) frame.visible = frame.index() == page;
    records().LblAbort.visible = true;
    records().BarSub_Step.visible = true;
    Settle();
    EXPECT_GE(ExpectNothingCut(main()), 5);
  }
}

TEST_P(SizesTest, Dialogs_ShowAllTheirTexts) {
  for (forms::Form* form : {static_cast<forms::Form*>(&program->windows.win2k_info),
                            static_cast<forms::Form*>(&program->windows.win9x_info)}) {
    watch.InNext([](QDialog& dialog) {
      EXPECT_GE(ExpectNothingCut(dialog), 12);
      EXPECT_EQ(dialog.size(), dialog.sizeHint());
      dialog.close();
    });
    form->visible = true;
    Settle();
  }
}

TEST_P(SizesTest, LongestTextsOfABuild_FitTheirPages) {
  records().LblWin2KOSVer.caption = "Microsoft Windows 2000 Advanced Server SP4";
  records().LblAbort.visible = true;
  records().LblAbort.caption = "Not enough free space to complete the ISO file !!!";
  records().LblSub_Step.caption = "Copying : " + std::string(300, 'w');
  for (const int page : {2, 9, 10}) {
    SCOPED_TRACE(page);
    for (forms::Frame& frame : records().FraMain) frame.visible = frame.index() == page;
    Settle();
    ExpectNothingCut(main());
  }
}

TEST_P(SizesTest, LargeScreen_NeedsNoScrollBars) {
  const auto* const area = main().findChild<QScrollArea*>();
  EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
  EXPECT_FALSE(area->verticalScrollBar()->isVisible());
  EXPECT_EQ(main().size(), main().sizeHint());
  EXPECT_LE(main().height(), main().screen()->availableSize().height());
}

INSTANTIATE_TEST_SUITE_P(Fonts, SizesTest, ::testing::Values(1.0, 1.5, 2.0),
                         [](const auto& one) { return std::to_string(static_cast<int>(one.param * 100)); });

class ScreenTest : public testing::WindowFixture {};

TEST_F(ScreenTest, LargerFontWhileTheWindowIsOpen_GivesThePagesTheSizeThatTheyWouldStartWith) {
  const auto size_of_pages = [this] { return main().findChild<QScrollArea*>()->size(); };
  const QSize before = size_of_pages();
  const LargerFont font(1.5);
  Settle();
  const QSize after = size_of_pages();
  EXPECT_GT(after.width(), before.width());
  Start();
  EXPECT_EQ(after, size_of_pages());
}

TEST_F(ScreenTest, SmallScreen_HoldsTheWindowAndScrollsItsPages) {
  const LargerFont font(1.5);
  QScreen* const small = QGuiApplication::screens().back();
  ASSERT_EQ(small->size(), QSize(800, 600));
  program = std::make_unique<testing::RunningProgram>(programs);
  main().setScreen(small);
  main().move(small->geometry().topLeft());
  wizard::Form_Load(program->context, "C:\\Discwright\\vexacd.ini");
  Settle();
  EXPECT_LE(main().width(), 800);
  EXPECT_LE(main().height(), 600);
  GoTo(7);
  const auto* const area = main().findChild<QScrollArea*>();
  EXPECT_TRUE(area->verticalScrollBar()->isVisible());
  for (const char* button : {"CmdHelp", "CmdCancel", "CmdBack", "CmdNext"}) {
    const QRect place(Widget(button).mapTo(&main(), QPoint(0, 0)), Widget(button).size());
    EXPECT_TRUE(main().rect().contains(place)) << button;
  }
  // The keyboard brings every control into view.
  for (const char* name : {"TxtISOLoc", "ChkCleanSession"}) {
    TabTo(name);
    const QWidget& widget = Widget(name);
    const QRect place(widget.mapTo(area->viewport(), QPoint(0, 0)), QSize(20, widget.height()));
    EXPECT_TRUE(area->viewport()->rect().contains(place)) << name;
  }
}

TEST_F(ScreenTest, NextPage_BeginsAtItsTop) {
  const auto* const area = main().findChild<QScrollArea*>();
  GoTo(6);
  area->verticalScrollBar()->setRange(0, 100);
  area->verticalScrollBar()->setValue(100);
  PressKey(Qt::Key_Enter);
  EXPECT_EQ(area->verticalScrollBar()->value(), 0);
}

}  // namespace
}  // namespace discwright::desktop
