// Moves between the pages, and contains the handlers of the five buttons, of Esc, and of the close button.
#include "wizard/navigation.h"

#include <utility>

#include "forms/user_actions.h"
#include "host/files.h"
#include "host/names.h"
#include "pipeline/build_driver.h"
#include "pipeline/build_place.h"
#include "settings/session.h"
#include "util/paths.h"
#include "wizard/choosers.h"
#include "wizard/dialogs.h"
#include "wizard/help.h"
#include "wizard/iso_destination.h"
#include "wizard/page_checks.h"
#include "wizard/page_defaults.h"
#include "wizard/pages.h"
#include "wizard/report.h"
#include "wizard/rules.h"
#include "wizard/summary.h"

namespace discwright::wizard {

namespace {

using forms::FrmDiscwright;

void ShowPage(steps::Context& context, std::size_t page) {
  FrmDiscwright& main = context.main();
  main.FraMain[static_cast<std::size_t>(main.Step)].visible = false;
  main.FraMain[page].visible = true;
  main.Step = static_cast<std::int16_t>(page);
  ShowHelp(context, kPageInView, false);
}

// Returns the page after `page`, or `page` itself if one of its checks fails. The defaults and the summary are filled
// in even then.
int PageAfter(steps::Context& context, int page) {
  FrmDiscwright& main = context.main();
  if (page >= kSummaryPage) return kSummaryPage;
  const bool valid = PageIsValid(context, page);
  FillDefaults(main, page);
  if (page == kIsoPage) main.TxtSummery.text = GenerateSummery(main);
  if (!valid) return page;
  if (IsOnTheWay(main, page + 1)) return page + 1;
  // A skipped page is left like any other, because later pages need the defaults that it fills in.
  return PageAfter(context, page + 1);
}

int PageBefore(FrmDiscwright& main, int page) {
  if (page <= kWelcomePage) return kWelcomePage;
  do {
    --page;
  } while (!IsOnTheWay(main, page));
  return page;
}

void CancelByUser(steps::Context& context) {
  if (context.failure.empty()) context.cancelled_by_user = true;
  context.CancelApp();
}

// Asks whether to cancel the build, because hours of work would be lost. Returns true for a build that is cancelled
// already. While a question is open, a second one is not asked and counts as No. After the answer, the build may have
// ended; that counts as No, too.
bool UserGivesUpTheBuild(steps::Context& context) {
  if (context.main().CancelCopy) return true;
  if (std::exchange(context.is_asking, true)) return false;
  host::Message question{"Cancel the build?", context.main().caption, host::MessageIcon::kExclamation};
  question.question = true;
  const bool agrees = context.user.ShowMessage(question);
  context.is_asking = false;
  return agrees && BuildRuns(context.main());
}

// Whether the build can begin: the program folder can be used, and no file of the user would be replaced without a
// question.
bool MayBuild(steps::Context& context) {
  host::Message message{"", "Error"};
  if (context.claim == nullptr) message.text = pipeline::WhyNotBuiltHere(context.claim);
  if (!message.text.empty()) {
    context.user.ShowMessage(message);
    return false;
  }
  const std::string destination = context.main().TxtISOLoc.text;
  if (!HoldsSomethingElse(destination)) return true;
  message.text = host::PathToNative(util::NamedFile(destination)) + " is a file of another kind.\r\nReplace it?";
  message.icon = host::MessageIcon::kExclamation;
  message.question = true;
  const bool agrees = context.user.ShowMessage(message);
  if (!agrees) context.claim.reset();
  return agrees;
}

}  // namespace

forms::Subscription Bind(steps::Context& context) {
  FrmDiscwright& main = context.main();
  main.CmdNext.click = [&context] { CmdNext_Click(context); };
  main.CmdBack.click = [&context] { CmdBack_Click(context); };
  main.CmdFinish.click = [&context] { CmdFinish_Click(context); };
  main.CmdCancel.click = [&context] { CmdCancel_Click(context); };
  main.CmdHelp.click = [&context] { CmdHelp_Click(context); };
  main.asked_to_cancel = [&context] { CancelByKey(context); };
  main.asked_to_close = [&context] { CloseMainWindow(context); };
  context.ShowHelp = [&context](int intStep, bool ForceShow) { ShowHelp(context, intStep, ForceShow); };
  BindChoosers(context);
  BindDialogs(context);
  pipeline::Bind(context);
  return KeepRules(context.windows);
}

host::Status Form_Load(steps::Context& context, const std::string& session_file) {
  host::Status read = host::CheckReadable(session_file);
  if (read.error == host::ErrorClass::kNotFound) {
    FillStartDefaults(context.main());
    read = host::Status::Success();
  } else if (context.notes.Check(read, session_file, "could not be opened")) {
    read = settings::ReadVexaCDINI(context.windows, context.notes, session_file);
  }
  context.main().visible = true;
  return read;
}

void CmdNext_Click(steps::Context& context) {
  FrmDiscwright& main = context.main();
  const int old_page = main.Step;
  if (old_page == kWelcomePage) main.CmdBack.enabled = true;
  const int new_page = PageAfter(context, old_page);
  if (old_page == kIsoPage && new_page == kSummaryPage) {
    main.CmdNext.visible = false;
    main.CmdFinish.visible = true;
  }
  ShowPage(context, static_cast<std::size_t>(new_page));
}

void CmdBack_Click(steps::Context& context) {
  FrmDiscwright& main = context.main();
  if (main.Step == kSummaryPage) {
    main.CmdNext.visible = true;
    main.CmdFinish.visible = false;
  }
  if (main.Step == kContentsPage) main.CmdBack.enabled = false;
  ShowPage(context, static_cast<std::size_t>(PageBefore(main, main.Step)));
}

void CmdFinish_Click(steps::Context& context) {
  FrmDiscwright& main = context.main();
  if (main.Finished) {
    settings::WriteVexaCDINI(context.windows, context.notes);
    main.visible = false;  // ends the program, as soon as a cancelled build has returned
    return;
  }
  // The build handles clicks before it disables this button. A double click must not start a second build.
  if (BuildRuns(main) || !MayBuild(context)) return;
  main.CmdBack.enabled = false;
  main.CmdFinish.enabled = true;
  ShowPage(context, forms::kProgressPage);
  context.result = pipeline::FinishApp(context);
  context.claim.reset();
  main.Finished = true;
  ShowReport(context);
  ShowPage(context, forms::kFinishPage);
  if (context.closing) main.visible = false;
}

void CmdCancel_Click(steps::Context& context) { CancelByUser(context); }

void CmdHelp_Click(steps::Context& context) { ShowHelp(context, kPageInView, true); }

void CancelByKey(steps::Context& context) {
  FrmDiscwright& main = context.main();
  if (!forms::CanBeUsed(main.CmdCancel)) return;
  if (BuildRuns(main) && !UserGivesUpTheBuild(context)) return;
  forms::Press(main.CmdCancel);  // does nothing when the build was cancelled while the question was open
}

void CloseMainWindow(steps::Context& context) {
  FrmDiscwright& main = context.main();
  if (!BuildRuns(main)) {
    main.visible = false;
    return;
  }
  if (!UserGivesUpTheBuild(context)) return;
  context.closing = true;
  CancelByUser(context);
  // The window closes, so nobody waits for the image any more.
  if (main.MKISOFSRunning) context.programs.EndAll();
}

}  // namespace discwright::wizard
