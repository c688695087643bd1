// The wizard with a window: connects the parts of the program and runs until the window is closed.
#include <QApplication>
#include <clocale>

#include "desktop/qt/art.h"
#include "desktop/qt/main_window.h"
#include "desktop/qt/qt_text.h"
#include "desktop/qt/qt_user.h"
#include "forms/user_actions.h"
#include "host/console.h"
#include "host/names.h"
#include "host/run_program.h"
#include "host/system.h"
#include "util/program_folder.h"
#include "util/users_program_folder.h"
#include "wizard/navigation.h"
#include "wizard/place.h"
#include "wizard/report.h"

namespace {

using namespace discwright;

constexpr const char* kTitle = "Vexa Discwright";
constexpr int kExitFailed = 1;
constexpr int kExitInterrupted = 130;

// Tells the user about a session file that cannot be read. The wizard then starts with its first values.
void TellAboutSession(host::UserInterface& user, const std::string& session, const host::Status& read) {
  if (read.ok()) return;
  user.ShowMessage({"Your choices of the last time cannot be read, so the pages show their first values.", kTitle,
                    host::MessageIcon::kExclamation, false, "", host::PathToNative(session) + ": " + read.cause});
}

// Prepares the folder in which an installed program works, and tells which of its files an update has left as the user
// has changed them. Returns false when the program cannot work.
bool HasProgramFolder(host::UserInterface& user) {
  util::Notes notes;
  if (const std::string why = util::WhyNoUsersFolder(notes); !why.empty()) {
    user.ShowMessage({why, kTitle});
    return false;
  }
  std::string kept;
  for (const util::Note& remark : notes.remarks()) {
    const bool is_file = remark.place != host::ProgramFolder();  // the first page names the folder itself
    if (is_file) kept += wizard::RemarkLine(remark) + "\r\n";
  }
  if (!kept.empty())
    user.ShowMessage({"The program has been updated.", kTitle, host::MessageIcon::kNone, false, "", kept});
  return true;
}

int ShowWizard() {
  constexpr int kLongestWait = 1000;  // milliseconds; whatever happens in the window ends the wait
  forms::Windows windows;
  util::Notes notes;
  const auto programs = host::SystemProgramRunner();
  desktop::QtUser user([&] { forms::AskToClose(windows.main); });
  steps::Context context{windows, user, *programs, notes};
  if (!HasProgramFolder(user)) return kExitFailed;
  wizard::ShowPlace(windows.main);
  const forms::Subscription rules = wizard::Bind(context);
  desktop::MainWindow main(windows);
  const desktop::DialogWindow win2k_info(wizard::LayoutOfDialog(windows.win2k_info), &main);
  const desktop::DialogWindow win9x_info(wizard::LayoutOfDialog(windows.win9x_info), &main);
  host::CatchInterrupts(kExitInterrupted);
  const std::string session = util::PathOf(util::Item::kSession);
  const host::Status read = wizard::Form_Load(context, session);
  TellAboutSession(user, session, read);
  try {
    while (windows.main.visible) user.DoEvents(kLongestWait);
  } catch (...) {
    programs->EndAll();  // no other program would wait for them or end them
    throw;
  }
  return host::InterruptCount() > 0 ? kExitInterrupted : 0;
}

// A build makes and deletes all its files in the program folder. So it must not begin while that folder is unknown.
int Run() {
  if (!host::ProgramFolder().empty()) return ShowWizard();
  desktop::QtUser user([] {});
  user.ShowMessage(
      {"The system does not tell in which folder this program is, so nothing can be built. Start the "
       "program by its full path.",
       "Vexa Discwright"});
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setApplicationName("discwright");
  QApplication::setApplicationVersion(DISCWRIGHT_VERSION);
  QApplication::setDesktopFileName("org.example.discwright");
  QApplication::setWindowIcon(desktop::ProgramIcon());
  QApplication::setQuitOnLastWindowClosed(false);
  std::setlocale(LC_NUMERIC, "C");  // Qt has set the language of the system; numbers are written without it
  return host::RunProgram("discwright", Run);
}
