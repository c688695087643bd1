// The build driver: order, marks, cancellation, clean-up.
#include "pipeline/build_driver.h"

#include <algorithm>
#include <cstdint>

#include "tests/pipeline/pipeline_fixture.h"

namespace discwright::pipeline {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class BuildDriver : public discwright::testing::PipelineFixture {
 protected:
  std::vector<std::string> Marks() const {
    return {main.LblRight1.caption, main.LblRight2.caption, main.LblRight3.caption, main.LblRight4.caption,
            main.LblRight5.caption};
  }
  void ChooseEverything() {
    for (const char* sector : {"w2ksect.bin", "erdc.bin", "oobc.bin"}) {
      host.AddFile(std::string("C:\\Discwright\\files\\bootsect\\") + sector, "I386");
    }
    host.AddFile("C:\\Discwright\\files\\vexacd\\boot\\scripts\\main.cds",
                 "Set PasswordRequest=0\r\nSet PasswordString=\"\"\r\n");
    host.AddFile("D:\\I386\\SETUPLDR.BIN", "i386 of Windows");
    host.AddFile("D:\\98\\BASE4.CAB", "cabinet");
    for (const char* tool : {"E:\\erd", "E:\\bluecon"}) {
      host.AddFile(std::string(tool) + "\\I386\\SETUPLDR.BIN", "i386");
      host.AddFile(std::string(tool) + "\\I386\\TXTSETUP.SIF", "i386");
    }
    host.AddFile("D:\\tools\\probe.exe", "probe");
    for (forms::CheckBox* choice : {&main.ChkGet_Win2k, &main.ChkGet_Win9x, &main.ChkGet_Advtools, &main.ChkERDC,
                                    &main.ChkBCon, &main.ChkVexaUtils, &main.ChkPassProtect}) {
      choice->value = 1;
    }
    main.Txt_i386_Loc.text = "D:\\I386";
    main.TxtWin9x_Loc.text = "D:\\98";
    main.TxtERDC.text = "E:\\erd";
    main.TxtBCon.text = "E:\\bluecon";
    main.TxtUtils_Loc.text = "D:\\tools";
    main.TxtPass1.text = "secret";
    main.TxtPass2.text = "secret";
  }
  const std::string tick = forms::kTick;
  const std::string cross = forms::kCross;
};

TEST_F(BuildDriver, NothingChosen_TicksOneFourAndFiveAndCrossesTheRest) {
  FinishApp(context);
  EXPECT_THAT(Marks(), ElementsAre(tick, cross, cross, tick, tick));
  EXPECT_EQ(main.LblSub_Step.caption.get(), "Creating Final ISO File completed");
  EXPECT_TRUE(main.CmdFinish.enabled);
  EXPECT_EQ(host.Content("C:\\out\\Rescue.iso"), "image");
  EXPECT_TRUE(user.messages.empty());
  EXPECT_FALSE(main.LblAbort.visible);
  EXPECT_EQ(main.LblFinish.caption.get(), "  Operation completed successfully");
}

TEST_F(BuildDriver, RunningStep_IsBoldAndNormalAfterwards) {
  std::vector<std::string> bold;
  ListenToAll(main, [&](forms::Control& control, forms::Facet facet, forms::By) {
    if (facet != forms::Facet::kRepaint) return;
    auto* label = dynamic_cast<forms::Label*>(&control);
    if (label != nullptr && label->bold) bold.push_back(label->name());
  });
  FinishApp(context);
  EXPECT_THAT(bold, ElementsAre("LblMsg1", "LblMsg4", "LblMsg5"));
  EXPECT_FALSE(main.LblMsg1.bold);
  EXPECT_FALSE(main.LblMsg5.bold);
}

TEST_F(BuildDriver, Start_ResetsTheWorkspaceToTheTemplateTree) {
  host.AddFile("C:\\Discwright\\vexacd\\I386\\old.txt", "old", true);
  FinishApp(context);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\I386"));
  EXPECT_EQ(WorkspaceFile("boot\\loader.bin"), "loader");
  EXPECT_EQ(host.Content("C:\\Discwright\\files\\vexacd\\boot\\loader.bin"), "loader");
}

TEST_F(BuildDriver, UndeletableOldWorkspace_IsNotedAndBuiltOver) {
  host.AddFile("C:\\Discwright\\vexacd\\locked.txt", "old");
  host.FailOn("RemoveFile", "locked.txt", host::ErrorClass::kAccessDenied, "in use");
  FinishApp(context);
  EXPECT_TRUE(host.Exists("C:\\Discwright\\vexacd\\locked.txt"));
  EXPECT_EQ(WorkspaceFile("boot\\loader.bin"), "loader");
  EXPECT_THAT(notes.all().at(0).place, HasSubstr("locked.txt"));
}

TEST_F(BuildDriver, MissingTemplateTree_IsNotedAndTheBuildGoesOn) {
  host.nodes.erase(host.Key("C:\\Discwright\\files\\vexacd\\boot\\loader.bin"));
  host.nodes.erase(host.Key("C:\\Discwright\\files\\vexacd\\boot\\scripts\\main.cds"));
  host.nodes.erase(host.Key("C:\\Discwright\\files\\vexacd\\boot\\scripts"));
  host.nodes.erase(host.Key("C:\\Discwright\\files\\vexacd\\boot"));
  host.nodes.erase(host.Key("C:\\Discwright\\files\\vexacd"));
  FinishApp(context);
  EXPECT_FALSE(notes.all().empty());
  EXPECT_EQ(Marks()[4], tick);
}

TEST_F(BuildDriver, UtilitiesAndAdditionalFiles_ReachTheCdTree) {
  host.AddFile("D:\\tools\\probe.exe", "probe");
  host.AddFile("D:\\extra\\notes\\read.me", "read");
  main.ChkVexaUtils.value = 1;
  main.TxtUtils_Loc.text = "D:\\tools";
  main.ChkAddFiles.value = 1;
  main.TxtAddFiles_Loc.text = "D:\\extra";
  FinishApp(context);
  EXPECT_EQ(WorkspaceFile("vexa\\probe.exe"), "probe");
  EXPECT_EQ(WorkspaceFile("notes\\read.me"), "read");
}

TEST_F(BuildDriver, EverythingChosen_RunsEveryStepInItsOrder) {
  ChooseEverything();
  FinishApp(context);
  EXPECT_THAT(Marks(), ElementsAre(tick, tick, tick, tick, tick));
  EXPECT_TRUE(user.messages.empty());
  EXPECT_TRUE(notes.all().empty());
  EXPECT_EQ(WorkspaceFile("I386\\SETUPLDR.BIN"), "i386 of Windows");
  EXPECT_EQ(WorkspaceFile("WIN98\\BASE4.CAB"), "cabinet");
  EXPECT_EQ(WorkspaceFile("ERDC\\SETUPLDR.BIN"), "erdc");
  EXPECT_EQ(WorkspaceFile("OOBC\\SETUPLDR.BIN"), "oobc");
  EXPECT_EQ(WorkspaceFile("vexa\\probe.exe"), "probe");
  EXPECT_THAT(WorkspaceFile("boot\\scripts\\main.cds"), HasSubstr("Set PasswordString=\"secret\""));
  const auto place = [this](const std::string& part) {
    return std::find_if(host.calls.begin(), host.calls.end(),
                        [&](const std::string& call) { return call.find(part) != std::string::npos; });
  };
  const std::vector<std::string> order = {
      "vexastart.img",       "I386\\SETUPLDR.BIN", "WIN98",     "advtemp\\I386\\SETUPLDR.BIN",
      "vexacd\\vexa\\probe", "main.cds (keeping",  "makecd.bat"};
  EXPECT_TRUE(std::is_sorted(order.begin(), order.end(),
                             [&](const std::string& a, const std::string& b) { return place(a) < place(b); }));
}

TEST_F(BuildDriver, ServicePackWithoutItsTick_IsNotSlipstreamed) {
  ChooseEverything();
  main.TxtSP_exe.text = "D:\\pack.exe";
  host.AddFile("D:\\pack.exe", "MZ");
  FinishApp(context);
  EXPECT_THAT(programs.started, Not(Contains(HasSubstr("pack.exe"))));
  main.ChkSlipstream.value = 1;
  FinishApp(context);
  EXPECT_THAT(programs.started, Contains("D:\\pack.exe -s:C:\\Discwright\\vexacd"));
}

TEST_F(BuildDriver, PasswordWithoutItsTick_LeavesTheScriptAlone) {
  main.TxtPass1.text = "secret";
  FinishApp(context);
  EXPECT_EQ(WorkspaceFile("boot\\scripts\\main.cds"), "script");
}

TEST_F(BuildDriver, HaltedInTheTools_AddsNoFilesAndNoPassword) {
  ChooseEverything();
  host.AddFileOfSize("E:\\erd\\HUGE.BIN", std::int64_t{1} << 31);
  FinishApp(context);
  EXPECT_THAT(Marks(), ElementsAre(tick, tick, tick, "", ""));
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\vexa"));
  EXPECT_THAT(WorkspaceFile("boot\\scripts\\main.cds"), Not(HasSubstr("secret")));
}

TEST_F(BuildDriver, BuildAfterOneThatWasHaltedInTheTools_KeepsNothingOfIt) {
  host.AddFile("C:\\Discwright\\advtemp\\I386\\OLD.SYS", "old", true);
  ChooseEverything();
  FinishApp(context);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\advtemp"));
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\ERDC\\OLD.SYS"));
}

TEST_F(BuildDriver, CancelledInStepTwo_LeavesTheLaterMarksEmptyAndTheWorkspaceInPlace) {
  ChooseEverything();
  host.AddFileOfSize("D:\\I386\\HUGE.CAB", std::int64_t{1} << 31);  // halts that step
  main.ChkCleanSession.value = 1;
  FinishApp(context);
  EXPECT_THAT(Marks(), ElementsAre(tick, "", "", "", ""));
  EXPECT_EQ(WorkspaceFile("boot\\loader.bin"), "loader");
  EXPECT_EQ(main.LblFinish.caption.get(), "   Operation canceled");
}

TEST_F(BuildDriver, CancelledDuringTheTemplateCopy_StopsBeforeTheFirstStep) {
  user.on_do_events = [this] { context.CancelApp(); };
  FinishApp(context);
  EXPECT_TRUE(programs.started.empty());
  EXPECT_THAT(Marks(), ElementsAre("", "", "", "", ""));
  EXPECT_EQ(WorkspaceFile("boot\\scripts\\main.cds"), "script");  // the copy itself runs to its end
}

TEST_F(BuildDriver, MasteringFailure_StillTicksStepFiveAndCleansUp) {
  mastering_fails = true;
  main.ChkCleanSession.value = 1;
  FinishApp(context);
  EXPECT_EQ(Marks()[4], tick);
  EXPECT_EQ(main.LblFinish.caption.get(), "   Operation Aborted");
  EXPECT_TRUE(main.LblAbort.visible);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd"));
  EXPECT_FALSE(context.mastering_end.Succeeded());
}

TEST_F(BuildDriver, CleanSession_DeletesWorkspaceKeyFileAndScriptOnly) {
  host.AddFile("C:\\Discwright\\keyfile2.txt", "[Win9xInfo]\r\nOwnerName=Ann\r\n");
  main.ChkCleanSession.value = 1;
  FinishApp(context);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd"));
  EXPECT_FALSE(host.Exists("C:\\Discwright\\keyfile2.txt"));
  EXPECT_FALSE(host.Exists("C:\\Discwright\\makecd.bat"));
  EXPECT_TRUE(host.Exists("C:\\Discwright\\mkisofs.log"));
  EXPECT_TRUE(host.Exists("C:\\out\\Rescue.iso"));
  EXPECT_EQ(main.LblSub_Step.caption.get(), "Cleaning session temperary data");
  EXPECT_TRUE(main.LblSub_Step.bold);
}

TEST_F(BuildDriver, WithoutCleanSession_KeepsTheWorkspace) {
  FinishApp(context);
  EXPECT_EQ(WorkspaceFile("boot\\images\\vexastart.img"), "image of vexasoftware");
  EXPECT_TRUE(host.Exists("C:\\Discwright\\makecd.bat"));
}

TEST_F(BuildDriver, BootDisks_AlwaysGetInfoForTheWin2KSetup) {
  host.AddFile("C:\\Discwright\\keyfile2.txt", "[Win2KInfo]\r\nOwnerName=Ann\r\n");
  FinishApp(context);
  EXPECT_THAT(host.Content("C:\\Discwright\\keyfile.txt"), HasSubstr("OwnerName=Ann"));
}

TEST_F(BuildDriver, AfterTheMastering_TheLauncherIsReleased) {
  FinishApp(context);
  EXPECT_EQ(context.LaunchApp, nullptr);
}

TEST_F(BuildDriver, SecondBuildInOneProgramFolder_KeepsNothingOfTheFirst) {
  host.AddFile("D:\\tools\\probe.exe", "probe");
  main.ChkVexaUtils.value = 1;
  main.TxtUtils_Loc.text = "D:\\tools";
  FinishApp(context);
  main.ChkVexaUtils.value = 0;
  FinishApp(context);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\vexa"));
}

TEST_F(BuildDriver, CancelApp_ShowsTheFinishPageAsCancelled) {
  CancelApp(context);
  EXPECT_TRUE(main.Finished);
  EXPECT_TRUE(main.CancelCopy);
  EXPECT_EQ(main.LblFinish.caption.get(), "   Operation canceled");
  EXPECT_FALSE(main.CmdNext.visible);
  EXPECT_TRUE(main.CmdFinish.visible);
  EXPECT_TRUE(main.CmdFinish.enabled);
  EXPECT_FALSE(main.CmdBack.enabled);
  EXPECT_FALSE(main.CmdCancel.enabled);
  for (std::size_t page = 0; page < forms::kPageCount; ++page) {
    EXPECT_EQ(main.FraMain[page].visible.get(), page == forms::kFinishPage) << page;
  }
  EXPECT_THAT(help, ElementsAre("10"));
}

}  // namespace
}  // namespace discwright::pipeline
