// Prepares a build, presses the wizard's buttons and reports the result. A function that checks something returns a
// sentence for the user when it fails, and the empty string on success.
#include "desktop/console/headless_build.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>

#include "base/source_date.h"
#include "base/utf8.h"
#include "desktop/console/page_text.h"
#include "forms/user_actions.h"
#include "host/console.h"
#include "host/files.h"
#include "host/names.h"
#include "host/native_text.h"
#include "host/system.h"
#include "pipeline/build_place.h"
#include "settings/ini_file.h"
#include "settings/key_files.h"
#include "settings/session.h"
#include "settings/session_check.h"
#include "util/emptied_folders.h"
#include "util/paths.h"
#include "util/program_folder.h"
#include "wizard/choices.h"
#include "wizard/iso_destination.h"
#include "wizard/navigation.h"
#include "wizard/pages.h"
#include "wizard/report.h"

namespace discwright::desktop {

namespace {

constexpr std::size_t kLongestPassword = 4096;  // bytes: nobody types more at a boot menu

int UsageError(Terminal& terminal, const std::string& error) {
  terminal.PrintLine("discwright-build: " + error);
  terminal.PrintLine("Try 'discwright-build --help'.");
  return kExitUsage;
}

// Returns the first line of standard input. If the line is too long or endless, returns only so much that its length
// shows this.
std::string FirstLineOfInput() {
  std::string line;
  for (char character = 0; line.size() <= kLongestPassword && std::cin.get(character) && character != '\n';) {
    line += character;
  }
  return line;
}

// Reads the password from the first line of the file, or of standard input for "-". Refuses an empty or endless line.
std::string ReadPassword(const std::string& file, std::string& password) {
  std::string content;
  if (file == "-") {
    content = FirstLineOfInput();
  } else {
    const host::Result<std::string> read = host::ReadWholeFile(host::PathFromNative(file));
    if (!read.ok()) return read.status.cause;
    content = read.value;
  }
  if (base::IsUtf16File(content)) return "is Unicode text of two bytes per character; please save it as plain text";
  content.resize(std::min(content.find_first_of("\r\n"), content.size()));
  if (content.size() > kLongestPassword) {
    return "its first line is too long for a password: at most " + std::to_string(kLongestPassword) +
           " bytes are possible";
  }
  password = host::DecodeText(content);
  return password.empty() ? "its first line is empty, and a password is needed" : "";
}

std::string ApplyPassword(forms::FrmDiscwright& main, const std::string& file) {
  std::string password;
  const std::string problem = ReadPassword(file, password);
  if (!problem.empty()) return file + ": " + problem;
  main.ChkPassProtect.value = 1;
  main.TxtPass1.text = password;
  main.TxtPass2.text = password;
  return "";
}

// Whether the command line sets a password field with --set. That is refused, because every user of a machine can read
// the command lines of its programs.
bool ChoosesPassword(forms::Windows& windows, const Options& options) {
  for (const wizard::Choice& choice : options.choices) {
    for (const forms::Control* control : forms::FindControls(windows, choice.control)) {
      const auto* field = dynamic_cast<const forms::TextBox*>(control);
      if (field != nullptr && field->password) return true;
    }
  }
  return false;
}

// Returns why the session file cannot be used; empty if it can. A file that the command line names is checked line by
// line, because a mistake in it would otherwise have no visible effect. For the program's own file the only check is
// whether it is a session.
std::string WhyNoSession(const std::string& session, const Options& options) {
  const std::string shown = options.session.empty() ? host::PathToNative(session) : options.session;
  const host::Status readable = host::ReadWholeFile(session).status;
  if (readable.error == host::ErrorClass::kNotFound) {
    return options.session.empty() ? "" : shown + ": there is no such session file";
  }
  if (!readable.ok()) return shown + ": the session file cannot be read: " + readable.cause;
  if (!settings::HoldsChoices(session)) {
    return shown + ": no choice of a session can be read from it; please save it as plain text";
  }
  std::string problems;
  if (options.session.empty()) return problems;
  for (const settings::SessionProblem& problem : settings::CheckSession(session)) {
    problems += (problems.empty() ? "" : "\n") + shown + ": " + problem.Sentence();
  }
  return problems;
}

// Sets the controls to the values of the command line.
std::string ApplyOptions(steps::Context& context, const Options& options) {
  forms::FrmDiscwright& main = context.main();
  if (ChoosesPassword(context.windows, options)) {
    return "a password cannot be set on the command line; use --password-file";
  }
  const std::string error = wizard::Choose(context, options.choices);
  if (!error.empty()) return "--set: " + error;
  if (!options.output.empty()) main.TxtISOLoc.text = util::AsTyped(host::PathFromNative(options.output));
  return options.password_file.empty() ? "" : ApplyPassword(main, options.password_file);
}

// Returns the files that this run reads or writes itself.
std::vector<std::string> OwnFiles(const std::string& session, const Options& options) {
  std::vector<std::string> files = {session, util::PathOf(util::Item::kWorkingKeyFile),
                                    util::PathOf(util::Item::kBuildKeyFile)};
  const bool is_file = !options.password_file.empty() && options.password_file != "-";
  if (is_file) files.push_back(host::PathFromNative(options.password_file));
  return files;
}

// Returns why the file `path` must not be replaced; empty if it may be. A file that this run needs is never replaced. A
// file of another kind is replaced only with --force.
std::string WhyNotReplaced(const std::string& path, bool is_other_kind, const std::string& session,
                           const Options& options) {
  const std::string shown = host::PathToNative(path);
  for (const std::string& own : OwnFiles(session, options)) {
    if (util::IsOneFile(path, own)) return shown + " is a file that this run needs: choose another name";
  }
  if (!is_other_kind || options.force) return "";
  return shown + " is a file of another kind: choose another name, or add --force to replace it";
}

// Returns why a file of the command line would be deleted, which happens in a folder that the build empties. The text
// is empty if no file is in such a folder.
std::string WhyDeleted(const Options& options) {
  for (const std::string& file : {options.session, options.password_file, options.save_session}) {
    const bool is_file = !file.empty() && file != "-";
    const std::string folder = is_file ? util::EmptiedFolderAround(host::PathFromNative(file)) : "";
    if (folder.empty()) continue;
    return file + " is in " + host::PathToNative(folder) + ", which every build empties: choose another place";
  }
  return "";
}

// Returns why the image or the kept session cannot be written to its place; empty if both can.
std::string WhyNotWritten(const steps::Context& context, const std::string& session, const Options& options) {
  const std::string destination = context.main().TxtISOLoc.text;
  const std::string image = util::NamedFile(destination);
  std::string why = WhyDeleted(options);
  if (!why.empty()) return why;
  why = WhyNotReplaced(image, wizard::HoldsSomethingElse(destination), session, options);
  if (!why.empty() || options.save_session.empty()) return why;
  const std::string kept = host::PathFromNative(options.save_session);
  if (util::IsOneFile(kept, session)) return "";  // saving over the session that was loaded is allowed
  const host::ErrorClass error = host::CheckReadable(kept).error;
  const bool is_file = error != host::ErrorClass::kNotFound && error != host::ErrorClass::kWrongKind;
  const bool is_other_kind = is_file && !settings::HoldsChoices(kept);
  why = WhyNotReplaced(kept, is_other_kind, session, options);
  return why.empty() && util::IsOneFile(kept, image)
             ? host::PathToNative(kept) + " is the name of the image: choose another name for the session"
             : why;
}

// Saves the choices if the command line asks for it.
std::string SaveSession(steps::Context& context, Terminal& terminal, const Options& options) {
  if (options.save_session.empty()) return "";
  const std::string file = host::PathFromNative(options.save_session);
  const host::Status status = settings::WriteSession(context.windows, context.notes, file);
  if (!status.ok()) return options.save_session + ": the choices could not be saved: " + status.cause;
  if (context.main().ChkSlipstream.checked()) {
    terminal.PrintLine("remark: A session file cannot hold ChkSlipstream: add --set ChkSlipstream=1 when you use it.");
  }
  return "";
}

// The Report functions print the end of a run and return its exit code.
int ReportRefusal(const forms::FrmDiscwright& main, Terminal& terminal) {
  const auto page = static_cast<std::size_t>(main.Step);
  const bool lacks_destination = page == wizard::kIsoPage && util::StripQuotes(main.TxtISOLoc.text.get()).empty();
  if (lacks_destination) terminal.PrintLine("Use -o FILE.iso to name the image file.");
  terminal.PrintLine("The page \"" + util::Trim(main.Heading(page).caption.get()) + "\" did not accept its choices.");
  return kExitPageCheck;
}

int ReportFailure(const steps::Context& context, Terminal& terminal) {
  const steps::BuildResult& result = context.result;
  for (const std::string& line : wizard::LogLines(result)) terminal.PrintLine(line);
  const bool was_shown = result.why == context.failure;  // by the message box of the step that failed
  if (!was_shown) terminal.PrintLine(result.why);
  return kExitFailed;
}

int ReportImage(const steps::Context& context, Terminal& terminal) {
  const steps::BuildResult& result = context.result;
  if (!result.sha256.empty()) {
    for (const std::string& line : wizard::ImageLines(result)) host::Print(host::Stream::kOutput, line + "\n");
  }
  if (result.end == steps::BuildEnd::kMade) return kExitMade;
  terminal.PrintLine("The image was made, with " + wizard::Counted(context.notes.all().size(), "warning") +
                     " (see above).");
  return kExitMadeWithWarnings;
}

int ReportCancellation(Terminal& terminal) {
  terminal.PrintLine("Cancelled.");
  return kExitCancelled;
}

int ReportResult(steps::Context& context, Terminal& terminal) {
  terminal.ClearLiveLine();
  switch (context.result.end) {
    case steps::BuildEnd::kMade:
    case steps::BuildEnd::kMadeWithNotes:
      return ReportImage(context, terminal);
    case steps::BuildEnd::kFailed:
      return ReportFailure(context, terminal);
    case steps::BuildEnd::kNone:
    case steps::BuildEnd::kCancelled:
      break;
  }
  return ReportCancellation(terminal);
}

int ListControls(forms::Windows& windows, Terminal& terminal, const std::string& page) {
  const std::string text = PageText(windows, page);
  if (text.empty()) {
    return UsageError(
        terminal, "--controls: there is no page '" + page + "'; the pages are 0 to 10, FrmWin2KInfo and FrmWin9xInfo");
  }
  host::Print(host::Stream::kOutput, text);
  return kExitMade;
}

// Makes the image from the choices in the controls.
int BuildWith(steps::Context& context, Terminal& terminal, const Options& options) {
  if (!wizard::WalkToTheSummary(context)) {
    return host::InterruptCount() > 0 ? ReportCancellation(terminal) : ReportRefusal(context.main(), terminal);
  }
  if (const std::string problem = SaveSession(context, terminal, options); !problem.empty()) {
    terminal.PrintLine(problem);
    return kExitFailed;
  }
  context.wants_digest = !options.quiet;
  forms::Press(context.main().CmdFinish);
  return ReportResult(context, terminal);
}

}  // namespace

int RunBuild(steps::Context& context, Terminal& terminal, const Options& options) {
  const std::string session =
      options.session.empty() ? util::PathOf(util::Item::kSession) : host::PathFromNative(options.session);
  std::string problem = WhyNoSession(session, options);
  if (problem.empty()) problem = host::TextFromNative(base::WhyNoSourceDate(std::getenv(base::kSourceDateVariable)));
  if (!problem.empty()) return UsageError(terminal, problem);
  if (!options.controls) {
    problem = pipeline::WhyNotBuiltHere(context.claim);
    if (!problem.empty()) {
      terminal.PrintLine(problem);
      return kExitFailed;
    }
  }
  const bool has_session = host::CheckReadable(session).ok();
  // Listing the controls must write nothing into the program folder, because a build may be running there.
  host::Status read = wizard::Form_Load(context, options.controls ? "" : session);
  if (options.controls && has_session) read = settings::ReadSession(context.windows, context.notes, session);
  if (!read.ok()) return UsageError(terminal, host::PathToNative(session) + ": could not be read: " + read.cause);
  problem = ApplyOptions(context, options);
  if (!problem.empty()) return UsageError(terminal, problem);
  if (options.controls) return ListControls(context.windows, terminal, *options.controls);
  problem = WhyNotWritten(context, session, options);
  if (!problem.empty()) return UsageError(terminal, problem);
  std::vector<std::string> remarks = wizard::RemarksOn(context.windows, options.choices, !options.session.empty());
  for (std::string& remark : wizard::ConfirmDialogs(context, options.choices, has_session)) {
    remarks.push_back(std::move(remark));
  }
  for (const std::string& remark : remarks) terminal.PrintLine("remark: " + remark);
  return BuildWith(context, terminal, options);
}

}  // namespace discwright::desktop
