// Pressing the wizard's buttons, and saying what came of it.
#include "desktop/console/headless_build.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <string>

#include "host/console.h"
#include "host/files.h"
#include "host/native_text.h"
#include "host/system.h"
#include "host/text_encoding.h"
#include "pipeline/program_folder.h"
#include "settings/key_files.h"
#include "settings/session.h"
#include "settings/win2k_info.h"
#include "settings/win9x_info.h"
#include "util/paths.h"
#include "wizard/navigation.h"

namespace discwright::desktop {

namespace {

constexpr int kSummaryPage = 8;
constexpr std::size_t kLogLinesShown = 20;

int UsageError(Terminal& terminal, const std::string& error) {
  terminal.PrintLine("discwright-build: " + error);
  terminal.PrintLine("Try 'discwright-build --help'.");
  return kExitUsage;
}

bool IsPasswordBox(std::string_view control) {
  control = control.substr(control.find('.') + 1);  // npos + 1 is the start
  return forms::SameName(control, "TxtPass1") || forms::SameName(control, "TxtPass2");
}

// The first line of the file or of standard input; false when it cannot be read or is empty, which would be no
// password.
bool ReadPassword(const std::string& file, std::string& password, std::string& cause) {
  std::string content;
  if (file == "-") {
    std::getline(std::cin, content);
  } else if (const host::Status status = host::ReadWholeFile(host::PathFromNative(file), content); !status.ok()) {
    cause = status.cause;
    return false;
  }
  if (host::IsUtf16File(content)) {
    cause = "is Unicode text of two bytes per character; please save it as plain text";
    return false;
  }
  password = host::DecodeText(content.substr(0, content.find_first_of("\r\n")));
  if (password.empty()) cause = "its first line is empty, and a password is needed";
  return !password.empty();
}

// The dialog's Browse button: a script that is chosen fills the fields, which otherwise would replace its answers.
void FillFromChosenScript(forms::Windows& windows, const Options& options) {
  for (const auto& [control, value] : options.assignments) {
    if (forms::FindControl(windows, control) != &windows.win2k_info.TxtTemplate) continue;
    settings::FillSetupDataFromUnattend(windows.win2k_info, util::StripQuotes(value));
  }
}

// The dialogs' OK buttons: for answers given on the command line, and for those that the CD is to hold, because nobody
// else is here to confirm what a session brought. Answers of an earlier build stay where nothing new has come.
void ConfirmDialogs(util::Context& context, const Options& options, bool has_session) {
  forms::Windows& windows = context.windows;
  const forms::FrmDiscwright& main = windows.main;
  const auto touched = [&](const forms::Form& form) {
    return std::any_of(options.assignments.begin(), options.assignments.end(), [&](const auto& assignment) {
      const forms::Control* control = forms::FindControl(windows, assignment.first);
      return control != nullptr && &control->form() == &form;
    });
  };
  const auto news = [&](const char* section) { return has_session || !settings::HoldsAnswers(section); };
  const bool win9x_wanted = main.ChkWin9xInfo_MSBatch.checked() || main.ChkWin9xInfo_Assis.checked();
  const bool win2k_wanted = main.ChkWin2KInfo_Unattend.checked() || main.ChkWin2KInfo_Assis.checked();
  const std::string key_file = host::ProgramFolder() + settings::kWorkingKeyFile;
  const auto check = [&](const host::Status& status, const std::string& system) {
    context.notes.Check(status, key_file, "your answers for the Setup of " + system + " could not be written");
  };
  if ((win9x_wanted && news(settings::kWin9xSection)) || touched(windows.win9x_info)) {
    check(settings::FillSetupDataToKeyFile(windows.win9x_info), "Windows 98/Me");
  }
  if ((win2k_wanted && news(settings::kWin2KSection)) || touched(windows.win2k_info)) {
    check(settings::FillSetupDataToKeyFile(windows.win2k_info, key_file), "Windows 2000/XP/2003");
  }
}

// Applies the command line to the controls. Returns what is wrong with it, or the empty string.
std::string ApplyOptions(util::Context& context, const Options& options, bool has_session) {
  forms::Windows& windows = context.windows;
  settings::LoadWin2KInfo(windows.win2k_info);  // loading them later would undo what is set here
  settings::LoadWin9xInfo(windows.win9x_info);
  FillFromChosenScript(windows, options);  // before the answers that stand beside it
  for (const auto& [control, value] : options.assignments) {
    if (IsPasswordBox(control)) return "a password cannot be set on the command line; use --password-file";
    const std::string error = forms::Assign(windows, control, value);
    if (!error.empty()) return std::string("--set ").append(control).append(": ").append(error);
  }
  ConfirmDialogs(context, options, has_session);
  forms::FrmDiscwright& main = windows.main;
  if (!options.output.empty()) main.TxtISOLoc.text = host::PathFromNative(options.output);
  if (!options.password_file.empty()) {
    std::string password;
    std::string cause;
    if (!ReadPassword(options.password_file, password, cause)) return options.password_file + ": " + cause;
    main.ChkPassProtect.value = 1;
    main.TxtPass1.text = password;
    main.TxtPass2.text = password;
  }
  return "";
}

// Next until the summary; false when a page keeps the wizard.
bool WalkThePages(util::Context& context) {
  forms::FrmDiscwright& main = context.main();
  while (main.Step < kSummaryPage) {
    const std::int16_t page = main.Step;
    main.CmdNext.click();
    if (main.Step == page) return false;
  }
  return true;
}

void PrintLogTail(Terminal& terminal) {
  const std::string path = host::ProgramFolder() + "\\mkisofs.log";
  std::string log;
  if (!host::ReadWholeFile(path, log).ok()) return;
  log = host::TextFromNative(log);
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < log.size();) {
    const std::size_t end = std::min(log.find_first_of("\r\n", start), log.size());
    if (end > start) lines.push_back(log.substr(start, end - start));
    start = end + 1;
  }
  terminal.PrintLine("The end of " + host::PathToNative(path) + ":");
  for (std::size_t i = lines.size() - std::min(lines.size(), kLogLinesShown); i < lines.size(); ++i) {
    terminal.PrintLine("  " + lines[i]);
  }
}

// The mastering ran and no image came of it.
int MasteringFailed(const util::Context& context, Terminal& terminal) {
  const forms::FrmDiscwright& main = context.main();
  PrintLogTail(terminal);
  if (main.LblAbort.visible) {
    terminal.PrintLine(util::Trim(main.LblFinish.caption.get()) + ": " + main.LblAbort.caption.get());
  } else {
    terminal.PrintLine("The mastering failed; the file at " +
                       host::PathToNative(util::NamedFile(main.TxtISOLoc.text.get())) +
                       " is the one that stood there before.");
  }
  return kExitFailed;
}

// Where the image is, its size and its digest. Reading it back takes longer than making it, so nobody waits for that
// who does not want to see it.
host::Status PrintResult(const std::string& image) {
  host::Status status;
  const std::string digest = host::Sha256OfFile(image, status);
  const std::optional<host::Entry> entry = host::Look(image);
  if (!entry) return host::Status::Failure(host::ErrorClass::kNotFound, "it has vanished");
  if (!status.ok()) return status;
  host::Print(host::Stream::kOutput, "Image:   " + host::PathToNative(image) + "\nSize:    " +
                                         std::to_string(entry->size) + " bytes\nSHA-256: " + digest + "\n");
  return status;
}

int Made(const util::Context& context, Terminal& terminal, const Options& options) {
  const std::string image = util::NamedFile(context.main().TxtISOLoc.text.get());
  if (!options.quiet) {
    const host::Status status = PrintResult(image);
    if (!status.ok()) {
      terminal.PrintLine(host::PathToNative(image) + ": the image cannot be read back: " + status.cause);
      return kExitFailed;
    }
  }
  const std::size_t warnings = context.notes.all().size();
  if (warnings == 0) return kExitMade;
  terminal.PrintLine("The image was made, with " + std::to_string(warnings) + " warning" + (warnings == 1 ? "" : "s") +
                     " (see above).");
  return kExitMadeWithWarnings;
}

}  // namespace

int RunBuild(util::Context& context, Terminal& terminal, const Options& options) {
  forms::FrmDiscwright& main = context.main();
  const std::string session = options.session.empty() ? settings::SessionFile() : host::PathFromNative(options.session);
  if (!options.session.empty() && !host::CanRead(session)) {
    return UsageError(terminal, options.session + ": there is no such session file, or it cannot be read");
  }
  const bool has_session = host::CanRead(session);
  if (has_session && !settings::HoldsChoices(session)) {
    return UsageError(terminal, host::PathToNative(session) +
                                    ": no choice of a session can be read from it; please save it as plain text");
  }
  std::shared_ptr<void> claim;
  if (const std::string problem = pipeline::WhyNotBuiltHere(claim); !problem.empty()) {
    terminal.PrintLine(problem);
    return kExitFailed;
  }
  wizard::Form_Load(context, session);
  if (const std::string error = ApplyOptions(context, options, has_session); !error.empty()) {
    return UsageError(terminal, error);
  }
  if (!WalkThePages(context)) {
    const auto page = static_cast<std::size_t>(main.Step);
    terminal.PrintLine("The page \"" + util::Trim(main.Heading(page).caption.get()) + "\" did not accept its choices.");
    return kExitPageCheck;
  }
  main.CmdFinish.click();
  context.user.DoEvents(0);  // a Ctrl-C that came last
  terminal.ClearLiveLine();
  if (host::InterruptCount() > 0) {
    terminal.PrintLine("Cancelled.");
    return kExitCancelled;
  }
  if (main.CancelCopy) return kExitFailed;
  if (main.LblAbort.visible || !context.mastering_end.Succeeded()) return MasteringFailed(context, terminal);
  return Made(context, terminal, options);
}

}  // namespace discwright::desktop
