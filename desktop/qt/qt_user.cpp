// Shows message boxes, choosers and the help window, and lets Qt handle its events.
#include "desktop/qt/qt_user.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QMessageBox>
#include <QTimer>
#include <QUrl>

#include "desktop/qt/help_window.h"
#include "desktop/qt/qt_text.h"
#include "host/console.h"
#include "host/names.h"

namespace discwright::desktop {

namespace {

QMessageBox::Icon IconOf(const host::Message& box) {
  if (box.question) return QMessageBox::Question;
  switch (box.icon) {
    case host::MessageIcon::kCritical:
      return QMessageBox::Critical;
    case host::MessageIcon::kExclamation:
      return QMessageBox::Warning;
    case host::MessageIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

// "Text file (*.txt; *.sif)|*.txt; *.sif" becomes "Text file (*.txt *.sif)".
QString QtFilter(std::string_view filter) {
  const QString text = ToQt(filter);
  const QString name = text.section(u'(', 0, 0).trimmed();
  QString patterns = text.section(u'|', 1, 1);
  return u"%1 (%2)"_qs.arg(name, patterns.replace(u';', u' ').simplified());
}

// "CDROM Image (*.iso)|*.iso" gives "iso", which a new file gets when its name has no extension.
QString Suffix(std::string_view filter) {
  return ToQt(filter).section(u'|', 1, 1).section(u';', 0, 0).section(u"*."_qs, 1).trimmed();
}

std::string CorePath(const QString& native) { return native.isEmpty() ? "" : host::PathFromNative(FromQt(native)); }

// The window that a message or chooser belongs to: the dialog that is open, or else the main window. It need not be the
// active window, which is another one while the user is in the help or in another program.
QWidget* Owner() {
  if (QWidget* const dialog = QApplication::activeModalWidget()) return dialog;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && qobject_cast<QDialog*>(window) != nullptr) return window;
  }
  return nullptr;
}

// Runs a dialog to its end. A signal that asks the program to end closes it: DoEvents does not run meanwhile.
int Run(QDialog& dialog) {
  constexpr int kLookEvery = 250;  // milliseconds
  QTimer timer;
  timer.callOnTimeout([&dialog] {
    if (host::InterruptCount() > 0) dialog.reject();
  });
  timer.start(kLookEvery);
  return dialog.exec();
}

void FocusOn(QWidget* window, const std::string& control) {
  QWidget* const widget = window == nullptr || control.empty() ? nullptr : window->findChild<QWidget*>(ToQt(control));
  if (widget != nullptr) widget->setFocus(Qt::TabFocusReason);
}

}  // namespace

QtUser::QtUser(std::function<void()> interrupted) : interrupted_(std::move(interrupted)) {}

QtUser::~QtUser() = default;

bool QtUser::ShowMessage(const host::Message& box) {
  if (interrupt_seen_ && box.question) return true;  // a signal asks the program to end, and nobody may be there
  QWidget* const owner = Owner();
  QMessageBox window(IconOf(box), ToQt(box.title), LinesToQt(box.text), QMessageBox::NoButton, owner);
  window.setTextFormat(Qt::PlainText);
  window.setInformativeText(LinesToQt(box.detail));
  window.setStandardButtons(box.question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
  if (box.question) window.setDefaultButton(QMessageBox::No);
  if (box.system_modal) window.setWindowFlag(Qt::WindowStaysOnTopHint);
  const int answer = Run(window);
  FocusOn(owner, box.control);
  return !box.question || answer == QMessageBox::Yes;
}

// A copy calls this with every piece of a file. Without a wait, events are handled fifty times in a second at
// most, because each call costs time even if nothing has happened.
void QtUser::DoEvents(int wait_milliseconds) {
  constexpr int kShortestPause = 20;  // milliseconds
  if (wait_milliseconds <= 0 && since_events_.isValid() && since_events_.elapsed() < kShortestPause) return;
  if (wait_milliseconds > 0 && !woken_.exchange(false)) {
    QTimer end;
    end.setSingleShot(true);
    end.start(wait_milliseconds);
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);  // does not wait if an event is pending
  } else {
    QCoreApplication::processEvents();
  }
  since_events_.start();
  HandleInterrupt();
}

void QtUser::HandleInterrupt() {
  if (interrupt_seen_ || host::InterruptCount() == 0) return;
  interrupt_seen_ = true;
  interrupted_();
}

void QtUser::Wake() {
  woken_ = true;
  QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance(qApp->thread());
  if (dispatcher != nullptr) dispatcher->wakeUp();
}

std::string QtUser::ChooseFolder(std::string_view start_folder, std::string_view title) {
  QFileDialog dialog(Owner(), ToQt(title), ToQt(host::PathToNative(start_folder)));
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  return Run(dialog) == QDialog::Accepted ? CorePath(dialog.selectedFiles().value(0)) : "";
}

// No question is asked before an existing file is chosen: the wizard asks when it would lose something.
std::string QtUser::ChooseFile(const host::FileRequest& request) {
  QFileDialog dialog(Owner(), ToQt(request.title));
  dialog.setNameFilter(QtFilter(request.filter));
  dialog.setFileMode(request.must_exist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  dialog.setAcceptMode(request.must_exist ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  if (!request.must_exist) dialog.setDefaultSuffix(Suffix(request.filter));
  const QFileInfo named(ToQt(host::PathToNative(request.file_name)));
  if (named.dir().exists()) dialog.setDirectory(named.dir());
  dialog.selectFile(named.fileName());
  return Run(dialog) == QDialog::Accepted ? CorePath(dialog.selectedFiles().value(0)) : "";
}

bool QtUser::HelpIsOpen(std::string_view /*window_class*/, std::string_view title) {
  return help_ != nullptr && help_->isVisible() && help_->windowTitle() == ToQt(title);
}

void QtUser::ShowHelp(const host::HelpRequest& request) {
  if (help_ == nullptr) help_ = std::make_unique<HelpWindow>([this](const std::string& address) { OpenLink(address); });
  const std::string problem = help_->Show(request);
  if (!problem.empty()) ShowMessage({problem, "Help", host::MessageIcon::kExclamation});
}

void QtUser::OpenLink(std::string_view address) { QDesktopServices::openUrl(QUrl(ToQt(address))); }

}  // namespace discwright::desktop
