// The way through the pages, and what the five buttons do.
#include "wizard/navigation.h"

#include "pipeline/build_driver.h"
#include "settings/session.h"
#include "util/paths.h"
#include "wizard/choosers.h"
#include "wizard/dialogs.h"
#include "wizard/help.h"
#include "wizard/page_checks.h"
#include "wizard/page_defaults.h"
#include "wizard/pages.h"
#include "wizard/rules.h"
#include "wizard/summary.h"

namespace discwright::wizard {

namespace {

using forms::FrmDiscwright;

void TurnTo(steps::Context& context, std::size_t page) {
  FrmDiscwright& main = context.main();
  main.FraMain[static_cast<std::size_t>(main.Step)].visible = false;
  main.FraMain[page].visible = true;
  main.Step = static_cast<std::int16_t>(page);
  ShowHelp(context, kPageInView, false);
}

// The page behind `page`; `page` itself when one of its checks fails. Defaults and summary are filled in either way.
int PageAfter(steps::Context& context, int page) {
  FrmDiscwright& main = context.main();
  if (page >= kSummaryPage) return kSummaryPage;
  const bool valid = PageIsValid(context, page);
  FillDefaults(main, page);
  if (page == kIsoPage) main.TxtSummery.text = GenerateSummery(main);
  if (!valid) return page;
  if (IsOnTheWay(main, page + 1)) return page + 1;
  // A page that is skipped is left like any other: what it fills in is needed behind it.
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

}  // namespace

forms::Subscription Bind(steps::Context& context) {
  FrmDiscwright& main = context.main();
  main.CmdNext.click = [&context] { CmdNext_Click(context); };
  main.CmdBack.click = [&context] { CmdBack_Click(context); };
  main.CmdFinish.click = [&context] { CmdFinish_Click(context); };
  main.CmdCancel.click = [&context] { CmdCancel_Click(context); };
  main.CmdHelp.click = [&context] { CmdHelp_Click(context); };
  main.asked_to_close = [&context] { CloseMainWindow(context); };
  context.ShowHelp = [&context](int intStep, bool ForceShow) { ShowHelp(context, intStep, ForceShow); };
  BindChoosers(context);
  BindDialogs(context);
  pipeline::Bind(context);
  return KeepRules(context.windows);
}

void Form_Load(steps::Context& context, const std::string& session_file) {
  if (util::FileExists(session_file)) {
    settings::ReadVexaCDINI(context.windows, context.notes, session_file);
  } else {
    FillStartDefaults(context.main());
  }
  context.main().visible = true;
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
  TurnTo(context, static_cast<std::size_t>(new_page));
}

void CmdBack_Click(steps::Context& context) {
  FrmDiscwright& main = context.main();
  if (main.Step == kSummaryPage) {
    main.CmdNext.visible = true;
    main.CmdFinish.visible = false;
  }
  if (main.Step == kContentsPage) main.CmdBack.enabled = false;
  TurnTo(context, static_cast<std::size_t>(PageBefore(main, main.Step)));
}

void CmdFinish_Click(steps::Context& context) {
  FrmDiscwright& main = context.main();
  if (main.Finished) {
    settings::WriteVexaCDINI(context.windows, context.notes);
    main.visible = false;  // the program ends with its window, once a cancelled build has returned
    return;
  }
  // The build lets clicks through before it disables the button: a double click must not start a second one.
  if (BuildRuns(main)) return;
  main.CmdBack.enabled = false;
  main.CmdFinish.enabled = true;
  TurnTo(context, forms::kProgressPage);
  context.result = pipeline::FinishApp(context);
  main.Finished = true;
  TurnTo(context, forms::kFinishPage);
  if (context.closing) main.visible = false;
}

void CmdCancel_Click(steps::Context& context) { CancelByUser(context); }

void CmdHelp_Click(steps::Context& context) { ShowHelp(context, kPageInView, true); }

void CloseMainWindow(steps::Context& context) {
  FrmDiscwright& main = context.main();
  if (!BuildRuns(main)) {
    main.visible = false;
    return;
  }
  context.closing = true;
  CancelByUser(context);
  // Nobody is left to wait for an image.
  if (main.MKISOFSRunning) context.programs.EndAll();
}

}  // namespace discwright::wizard
