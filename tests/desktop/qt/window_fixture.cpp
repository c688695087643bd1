// Starts the program on the fake host, and sends keys and clicks to its windows.
#include "tests/desktop/qt/window_fixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QWindow>
#include <algorithm>
#include <stdexcept>

#include "tests/support/locations.h"

namespace discwright::testing {

namespace {

// Where a user clicks on a widget. A check box may be wider than its caption, so its indicator is clicked.
QPoint PlaceToClick(const QWidget& widget) {
  const bool has_indicator = widget.inherits("QCheckBox") || widget.inherits("QRadioButton");
  constexpr int kInIndicator = 8;
  return has_indicator ? QPoint(kInIndicator, widget.height() / 2) : widget.rect().center();
}

QWindow& WindowWithKeyboard() {
  QWindow* const window = QGuiApplication::focusWindow();
  if (window == nullptr) throw std::logic_error("no window has the keyboard");
  return *window;
}

bool IsDown(const QWidget* widget) {
  const auto* button = qobject_cast<const QAbstractButton*>(widget);
  return button != nullptr && button->isDown();
}

}  // namespace

WindowWatch::WindowWatch() { qApp->installEventFilter(this); }

bool WindowWatch::eventFilter(QObject* watched, QEvent* event) {
  auto* const window = qobject_cast<QDialog*>(watched);
  if (window == nullptr || !window->isModal()) return QObject::eventFilter(watched, event);
  if (event->type() == QEvent::Show) {
    QMetaObject::invokeMethod(
        window, [this, window] { Act(*window); }, Qt::QueuedConnection);
  }
  // The platform without a display has no window manager. So the fixture does what one does: when a window closes, the
  // window that it belongs to gets the keyboard.
  QWidget* const owner = window->parentWidget();
  if (event->type() == QEvent::Hide && owner != nullptr) {
    QMetaObject::invokeMethod(
        owner, [owner] { owner->activateWindow(); }, Qt::QueuedConnection);
  }
  return QObject::eventFilter(watched, event);
}

void WindowWatch::Act(QDialog& window) {
  window.activateWindow();
  QCoreApplication::processEvents();
  auto* const box = qobject_cast<QMessageBox*>(&window);
  if (box != nullptr) {
    messages.push_back({desktop::FromQt(box->windowTitle()), desktop::FromQt(box->text()),
                        desktop::FromQt(box->informativeText()), box->icon(), box->standardButtons(),
                        box->parentWidget() != nullptr});
  }
  if (!acts_.empty()) {
    const auto act = acts_.front();
    acts_.pop_front();
    act(window);
    EXPECT_FALSE(window.isVisible()) << "the test has not closed the window " << window.windowTitle().toStdString();
    if (window.isVisible()) window.close();
  } else if (box != nullptr) {
    QTest::keyClick(window.windowHandle(), Qt::Key_Enter);
  } else {
    ADD_FAILURE() << "unexpected window: " << desktop::FromQt(window.windowTitle());
    window.close();
  }
}

WindowFixture::WindowFixture() {
  AddLocations(host);
  Start();
}

WindowFixture::~WindowFixture() {
  EXPECT_EQ(watch.acts_left(), 0U) << "a window was expected and has not opened";
  for (const SeenMessage& message : watch.messages) EXPECT_TRUE(message.has_owner) << message.text;
  program.reset();
  Settle();
}

void WindowFixture::Start() {
  program.reset();
  program = std::make_unique<RunningProgram>(programs);
  wizard::Form_Load(program->context, "C:\\Discwright\\vexacd.ini");
  Settle();
}

void WindowFixture::Choose(bool win2k, bool win9x, bool advtools) { ChooseContents(records(), win2k, win9x, advtools); }

void WindowFixture::FillLocations() { testing::FillLocations(records()); }

void WindowFixture::GoTo(int page) {
  Choose(true, true, true);
  FillLocations();
  if (page == static_cast<int>(forms::kFinishPage)) forms::Press(records().CmdCancel);
  while (records().Step < page && page <= wizard::kSummaryPage) forms::Press(records().CmdNext);
  Settle();
}

QWidget& WindowFixture::Widget(const std::string& name) {
  QWidget* window = QApplication::activeModalWidget();
  if (window == nullptr || window->findChild<QWidget*>(desktop::ToQt(name)) == nullptr) window = &main();
  for (QWidget* const widget : window->findChildren<QWidget*>(desktop::ToQt(name))) {
    if (widget->window() == window) return *widget;
  }
  throw std::logic_error("no widget " + name);
}

std::string WindowFixture::FieldText(const std::string& name) { return desktop::FromQt(The<QLineEdit>(name).text()); }

std::string WindowFixture::ShownText(const std::string& label) {
  const auto& widget = The<QLabel>(label);
  QString text = widget.text();
  if (widget.buddy() != nullptr) text.remove(u'&');
  return desktop::FromQt(text);
}

std::string WindowFixture::Focus() {
  const QWidget* const widget = QApplication::focusWidget();
  return widget == nullptr ? "" : desktop::FromQt(widget->objectName());
}

int WindowFixture::PageSeen() {
  int seen = -1;
  for (std::size_t page = 0; page < forms::kPageCount; ++page) {
    if (!IsShown(records().Heading(page).name())) continue;
    if (seen >= 0) ADD_FAILURE() << "two pages are visible";
    seen = static_cast<int>(page);
  }
  return seen;
}

std::string WindowFixture::HeadingSeen() {
  const int page = PageSeen();
  if (page < 0) return "";
  return ShownText(records().Heading(static_cast<std::size_t>(page)).name());
}

void WindowFixture::PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(&WindowWithKeyboard(), key, modifiers);
}

void WindowFixture::PressAlt(char letter) {
  QTest::keyClick(&WindowWithKeyboard(), letter, Qt::AltModifier);
  const auto is_any_down = [] {
    const QWidgetList widgets = QApplication::allWidgets();
    return std::any_of(widgets.begin(), widgets.end(), IsDown);
  };
  while (is_any_down()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void WindowFixture::TabTo(const std::string& name) {
  const std::string start = Focus();
  do {
    PressKey(Qt::Key_Tab);
  } while (Focus() != name && Focus() != start);
  EXPECT_EQ(Focus(), name);
}

void WindowFixture::Write(const std::string& text) {
  for (const char letter : text) QTest::keyClick(&WindowWithKeyboard(), letter);
}

void WindowFixture::Click(const std::string& name) {
  if (!IsShown(name)) ADD_FAILURE() << name << " is not visible";
  ClickOn(Widget(name));
}

void WindowFixture::ClickOn(QWidget& widget) {
  const QPoint place = widget.mapTo(widget.window(), PlaceToClick(widget));
  QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
}

void WindowFixture::WriteInto(const std::string& name, const std::string& text) {
  Click(name);
  PressKey(Qt::Key_A, Qt::ControlModifier);
  PressKey(Qt::Key_Delete);
  Write(text);
}

void WindowFixture::Settle() {
  QCoreApplication::processEvents();
  QCoreApplication::processEvents();
}

void WindowFixture::AnswerNext(QMessageBox::StandardButton button) {
  watch.InNext([button](QDialog& window) { ClickOn(*dynamic_cast<QMessageBox&>(window).button(button)); });
}

void WindowFixture::PressKeyInNext(Qt::Key key) {
  watch.InNext([key](QDialog& window) { QTest::keyClick(window.windowHandle(), key); });
}

}  // namespace discwright::testing
