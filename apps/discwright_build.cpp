// Makes a rescue CD without a window: connects the parts of the program and runs one build.
#include <clocale>
#include <vector>

#include "desktop/console/console_user.h"
#include "desktop/console/headless_build.h"
#include "forms/user_actions.h"
#include "host/console.h"
#include "host/native_text.h"
#include "host/run_program.h"
#include "host/system.h"
#include "util/users_program_folder.h"
#include "wizard/navigation.h"
#include "wizard/place.h"
#include "wizard/report.h"

namespace {

using namespace discwright;

// A build makes and deletes all its files in the program folder. So it must not begin while that folder is unknown.
constexpr const char* kNoProgramFolder =
    "discwright-build: The system does not tell in which folder this program is, so nothing can be built. Start the "
    "program by its full path.\n";

int Build(const desktop::Options& options) {
  forms::Windows windows;
  using Progress = desktop::Terminal::Progress;
  const Progress progress = host::StandardErrorIsTerminal() ? Progress::kLiveLine : Progress::kLinePerStep;
  desktop::Terminal terminal(windows.main, options.quiet ? Progress::kNone : progress);
  util::Notes notes;
  const auto programs = host::SystemProgramRunner();
  const auto interrupted = [&] {
    terminal.PrintLine(windows.main.MKISOFSRunning
                           ? "Cancelling: the mastering is ended."
                           : "Cancelling: the copy or floppy image that is being made is finished first. Press Ctrl-C "
                             "again to stop at once.");
    forms::AskToClose(windows.main);
  };
  desktop::ConsoleUser user(terminal, interrupted);
  steps::Context context{windows, user, *programs, notes};
  notes.added = [&](const util::Note& note) { terminal.PrintLine(wizard::WarningLine(note)); };
  notes.remarked = [&](const util::Note& remark) { terminal.PrintLine(wizard::RemarkLine(remark)); };
  if (const std::string why = util::WhyNoUsersFolder(notes); !why.empty()) {
    terminal.PrintLine(why);
    return desktop::kExitFailed;
  }
  wizard::ShowPlace(windows.main);
  const forms::Subscription rules = wizard::Bind(context);
  host::CatchInterrupts(desktop::kExitCancelled);
  try {
    return desktop::RunBuild(context, terminal, options);
  } catch (...) {
    programs->EndAll();  // no other program would wait for them or end them
    throw;
  }
}

int Run(const std::vector<std::string>& arguments) {
  const desktop::Options options = desktop::ParseOptions(arguments);
  if (!options.error.empty()) {
    host::Print(host::Stream::kError, "discwright-build: " + options.error + "\nTry 'discwright-build --help'.\n");
    return desktop::kExitUsage;
  }
  if (options.help) {
    host::Print(host::Stream::kOutput, desktop::UsageText());
    return desktop::kExitMade;
  }
  if (options.version) {
    host::Print(host::Stream::kOutput, "discwright-build " DISCWRIGHT_VERSION "\n");
    return desktop::kExitMade;
  }
  if (host::ProgramFolder().empty()) {
    host::Print(host::Stream::kError, kNoProgramFolder);
    return desktop::kExitFailed;
  }
  return Build(options);
}

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_TIME, "");  // the summary shows day names in the language of the system
  return host::RunProgram("discwright-build", [&] { return Run(host::Arguments(argc, argv)); });
}
