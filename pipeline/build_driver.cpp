// Runs the steps of a build in their order, and stops between two steps when the build was cancelled.
#include "pipeline/build_driver.h"

#include <string>

#include "integration/advanced_tools.h"
#include "integration/vexa_files.h"
#include "integration/win2k.h"
#include "integration/win9x.h"
#include "pipeline/boot_disks.h"
#include "pipeline/boot_password.h"
#include "pipeline/build_result.h"
#include "pipeline/hidden_files.h"
#include "pipeline/mastering.h"
#include "pipeline/workspace.h"
#include "util/processes.h"

namespace discwright::pipeline {

namespace {

// One of the five lines of the progress page.
struct StepLine {
  forms::FrmDiscwright& main;
  forms::Label& message;
  forms::Label& mark;

  void Begin() const {
    message.bold = true;
    message.Refresh();
    main.LblSub_Step.caption = message.caption.get();
  }
  void Complete() const {
    main.LblSub_Step.caption = message.caption.get() + " completed";
    message.bold = false;
    mark.caption = forms::kTick;
  }
  void Skip() const { mark.caption = forms::kCross; }
};

void RunBootDisks(steps::Context& context) {
  const forms::FrmDiscwright& main = context.main();
  AddDisks(context, {.NetPlus = main.ChkGet_Vexanetplus.checked(),
                     .AcceptDrivers = main.ChkSelectDrivers.checked(),
                     .MakeWin9xDisk = main.ChkGet_Win9x.checked(),
                     .AddInfo_toWin9xSetup = main.ChkWin9xInfo_Assis.checked(),
                     // The setup assistant on the boot disks always gets these answers, so ChkWin2KInfo_Assis has no
                     // effect here. Kept as it has always been.
                     .AddInfo_toWin2KSetup = true});
}

void RunWin2K(steps::Context& context) {
  const forms::FrmDiscwright& main = context.main();
  integration::AddWin2K(context, {.Source = main.Txt_i386_Loc.text,
                                  .DelTreeLang = main.ChkDelTree_Lang.checked(),
                                  .SP_exe = main.ChkSlipstream.checked() ? main.TxtSP_exe.text.get() : "",
                                  .AddInfo_toUnattend = main.ChkWin2KInfo_Unattend.checked()});
}

void RunWin9x(steps::Context& context) {
  const forms::FrmDiscwright& main = context.main();
  integration::AddWin9x(context, main.TxtWin9x_Loc.text.get(), main.ChkWin9xInfo_MSBatch.checked());
}

void RunToolsAndFiles(steps::Context& context) {
  const forms::FrmDiscwright& main = context.main();
  if (main.ChkGet_Advtools.checked()) {
    integration::AddAdvTools(context, {.GetErdC = main.ChkERDC.checked(),
                                       .GetBCon = main.ChkBCon.checked(),
                                       .ErdCLoc = main.TxtERDC.text,
                                       .BConLoc = main.TxtBCon.text});
  }
  if (!main.CancelCopy) {
    integration::AddVexa_Files(context, {.AddUtils = main.ChkVexaUtils.checked(),
                                         .AddAddFiles = main.ChkAddFiles.checked(),
                                         .Utils_Loc = main.TxtUtils_Loc.text,
                                         .AddFiles_Loc = main.TxtAddFiles_Loc.text});
  }
  if (!main.CancelCopy && main.ChkPassProtect.checked()) {
    ProtectBootMenu(context, main.TxtPass1.text.get(), main.TxtPass2.text.get());
  }
}

void RunMastering(steps::Context& context) {
  forms::FrmDiscwright& main = context.main();
  NoteHiddenFiles(context);
  if (main.CancelCopy) return;
  StartMKISOFS(context, main.TxtISOLoc.text.get(), main.ChkOptimizeISO.checked());
  util::WaitWhile(context.user, main.MKISOFSRunning, context.LaunchApp, kMasteringPollInterval);
  context.LaunchApp.reset();
}

// Returns false if the build was cancelled during the step. The driver then stops and does not touch the labels and
// buttons, because CancelApp has set them.
bool RunStep(steps::Context& context, const StepLine& line, void (*step)(steps::Context&)) {
  line.Begin();
  step(context);
  if (context.main().CancelCopy) return false;
  line.Complete();
  return true;
}

void CleanUp(steps::Context& context) {
  forms::Label& label = context.main().LblSub_Step;
  label.caption = "Cleaning session temperary data";
  label.bold = true;
  label.Refresh();
  CleanSession(context);
}

// Returns early if the build is cancelled. Labels and buttons then stay as CancelApp has set them.
void RunSteps(steps::Context& context) {
  forms::FrmDiscwright& main = context.main();
  const StepLine boot_disks{main, main.LblMsg1, main.LblRight1};
  const StepLine win2k{main, main.LblMsg2, main.LblRight2};
  const StepLine win9x{main, main.LblMsg3, main.LblRight3};
  const StepLine tools_and_files{main, main.LblMsg4, main.LblRight4};
  const StepLine mastering{main, main.LblMsg5, main.LblRight5};

  main.LblSub_Step.caption = "Cleaning previous sessions workspace";
  main.LblSub_Step.Refresh();
  Prepare_CDDir(context);
  if (main.CancelCopy) return;
  main.CmdFinish.enabled = false;
  if (!RunStep(context, boot_disks, RunBootDisks)) return;
  if (!main.ChkGet_Win2k.checked()) {
    win2k.Skip();
  } else if (!RunStep(context, win2k, RunWin2K)) {
    return;
  }
  if (!main.ChkGet_Win9x.checked()) {
    win9x.Skip();
  } else if (!RunStep(context, win9x, RunWin9x)) {
    return;
  }
  if (!RunStep(context, tools_and_files, RunToolsAndFiles)) return;
  if (!RunStep(context, mastering, RunMastering)) return;
  if (main.ChkCleanSession.checked()) CleanUp(context);
  main.CmdFinish.enabled = true;
}

}  // namespace

steps::BuildResult FinishApp(steps::Context& context) {
  RunSteps(context);
  return ResultOf(context);
}

void CancelApp(steps::Context& context) {
  forms::FrmDiscwright& main = context.main();
  main.Finished = true;
  main.CancelCopy = true;
  main.LblFinish.caption = "   Operation canceled";
  main.CmdNext.visible = false;
  main.CmdFinish.visible = true;
  main.CmdBack.enabled = false;
  main.CmdCancel.enabled = false;
  main.CmdFinish.enabled = true;
  for (forms::Frame& page : main.FraMain) page.visible = false;
  main.FraMain[forms::kFinishPage].visible = true;
  // The finish page is in view, but the help shows the topic of the progress page. Kept as it has always been.
  context.ShowHelp(static_cast<int>(forms::kProgressPage), false);
}

void Bind(steps::Context& context) {
  context.CancelApp = [&context] { CancelApp(context); };
}

}  // namespace discwright::pipeline
