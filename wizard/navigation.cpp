// The way through the pages, and what the five buttons do.
#include "wizard/navigation.h"

#include "pipeline/build_driver.h"
#include "settings/session.h"
#include "settings/win2k_info.h"
#include "settings/win9x_info.h"
#include "util/paths.h"
#include "wizard/help_topics.h"
#include "wizard/page_checks.h"
#include "wizard/page_defaults.h"
#include "wizard/pages.h"
#include "wizard/summary.h"

namespace discwright::wizard {

namespace {

using forms::FrmDiscwright;

constexpr int kPageInView = 255;

void TurnTo(util::Context& context, std::size_t page) {
  FrmDiscwright& main = context.main();
  main.FraMain[static_cast<std::size_t>(main.Step)].visible = false;
  main.FraMain[page].visible = true;
  main.Step = static_cast<std::int16_t>(page);
  ShowHelp(context, kPageInView, false);
}

// The page behind `page`; `page` itself when one of its checks fails: defaults and summary are filled in all the same.
int PageAfter(util::Context& context, int page) {
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

int PageBefore(const FrmDiscwright& main, int page) {
  if (page <= kWelcomePage) return kWelcomePage;
  do {
    --page;
  } while (!IsOnTheWay(main, page));
  return page;
}

// The dialogs open with what they were left with in this run.
void BindDialogs(util::Context& context) {
  forms::Windows& windows = context.windows;
  settings::BindWin2KInfo(windows.win2k_info, context.user);
  settings::BindWin9xInfo(windows.win9x_info);
  windows.main.CmdSetWin2KInfo.click = [&dialog = windows.win2k_info] {
    settings::LoadWin2KInfo(dialog);
    dialog.visible = true;
  };
  windows.main.CmdSetWin9xInfo.click = [&dialog = windows.win9x_info] {
    settings::LoadWin9xInfo(dialog);
    dialog.visible = true;
  };
}

}  // namespace

void Bind(util::Context& context) {
  FrmDiscwright& main = context.main();
  main.CmdNext.click = [&context] { CmdNext_Click(context); };
  main.CmdBack.click = [&context] { CmdBack_Click(context); };
  main.CmdFinish.click = [&context] { CmdFinish_Click(context); };
  main.CmdCancel.click = [&context] { CmdCancel_Click(context); };
  main.CmdHelp.click = [&context] { CmdHelp_Click(context); };
  context.ShowHelp = [&context](int intStep, bool ForceShow) { ShowHelp(context, intStep, ForceShow); };
  BindDialogs(context);
  pipeline::Bind(context);
}

void Form_Load(util::Context& context, const std::string& session_file) {
  if (util::FileExists(session_file)) settings::ReadVexaCDINI(context, session_file);
  context.main().visible = true;
}

void CmdNext_Click(util::Context& context) {
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

void CmdBack_Click(util::Context& context) {
  FrmDiscwright& main = context.main();
  if (main.Step == kSummaryPage) {
    main.CmdNext.visible = true;
    main.CmdFinish.visible = false;
  }
  if (main.Step == kContentsPage) main.CmdBack.enabled = false;
  TurnTo(context, static_cast<std::size_t>(PageBefore(main, main.Step)));
}

void CmdFinish_Click(util::Context& context) {
  FrmDiscwright& main = context.main();
  if (main.Finished) {
    settings::WriteVexaCDINI(context);
    main.visible = false;  // the program ends with its window
    return;
  }
  // The build lets clicks through before it disables the button: a double click must not start a second one.
  if (main.Step == static_cast<int>(forms::kProgressPage)) return;
  main.CmdBack.enabled = false;
  main.CmdFinish.enabled = true;
  TurnTo(context, forms::kProgressPage);
  pipeline::FinishApp(context);
  main.Finished = true;
  TurnTo(context, forms::kFinishPage);
}

void CmdCancel_Click(util::Context& context) { context.CancelApp(); }

void CmdHelp_Click(util::Context& context) { ShowHelp(context, kPageInView, true); }

void ShowHelp(util::Context& context, int intStep, bool ForceShow) {
  if (!ForceShow && !context.user.HelpIsOpen()) return;
  context.user.ShowHelpTopic(HelpPath(), HelpTopic(intStep == kPageInView ? context.main().Step : intStep));
}

}  // namespace discwright::wizard
