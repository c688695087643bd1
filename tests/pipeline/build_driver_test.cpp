// Tests of the build driver: order of the steps, marks, cancellation, clean-up.
#include "pipeline/build_driver.h"

#include <algorithm>
#include <cstdint>
#include <map>

#include "tests/pipeline/pipeline_fixture.h"

namespace discwright::pipeline {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
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
      host.AddFile(std::string(tool) + "\\I386\\FROM.TXT", tool);
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
  // Builds once for each of the choices, with that one ticked and the others not.
  template <typename Look>
  void BuildForEachAlone(const std::vector<forms::CheckBox*>& choices, Look look) {
    for (const forms::CheckBox* alone : choices) {
      for (forms::CheckBox* choice : choices) choice->value = choice == alone ? 1 : 0;
      programs.started.clear();
      host.nodes.erase(host.Key("C:\\Discwright\\keyfile.txt"));
      FinishApp(context);
      SCOPED_TRACE(alone->name());
      look(*alone);
    }
  }
  // The arguments of CreateDsk, without the sizes of the disks.
  std::string Disks() const {
    std::string disks;
    for (const std::string& line : programs.started) {
      const std::size_t profile = line.find("88 ") == line.npos ? line.find("44 ") : line.find("88 ");
      if (profile != line.npos) disks += (disks.empty() ? "" : ", ") + line.substr(profile + 3);
    }
    return disks;
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
  main.ChkCleanSession.value = 1;
  FinishApp(context);
  EXPECT_THAT(bold, ElementsAre("LblMsg1", "LblMsg4", "LblMsg5", "LblSub_Step"));
  EXPECT_FALSE(main.LblMsg1.bold);
  EXPECT_FALSE(main.LblMsg5.bold);
}

TEST_F(BuildDriver, SubStep_NamesEachStepAtItsStartAndAtItsEnd) {
  std::vector<std::string> shown;
  Listen(main.LblSub_Step, [&](forms::Control&, forms::Facet facet, forms::By) {
    const std::string& text = main.LblSub_Step.caption;
    const bool is_of_the_driver = text.starts_with("Cleaning") || text.ends_with(" completed") ||
                                  text == main.LblMsg1.caption.get() || text == main.LblMsg4.caption.get() ||
                                  text == main.LblMsg5.caption.get();
    if (is_of_the_driver) shown.push_back(text + (facet == forms::Facet::kRepaint ? " (at once)" : ""));
  });
  FinishApp(context);
  EXPECT_THAT(shown,
              ElementsAre("Cleaning previous sessions workspace", "Cleaning previous sessions workspace (at once)",
                          "Creating Vexa Boot Disks", "Creating Vexa Boot Disks completed",
                          "Adding Vexa Utilities/Advanced Tools", "Adding Vexa Utilities/Advanced Tools completed",
                          "Creating Final ISO File", "Creating Final ISO File completed"));
}

TEST_F(BuildDriver, Finish_CannotBePressedWhileAStepRuns) {
  std::vector<bool> enabled;
  programs.run = [&](const std::string& command_line) {
    enabled.push_back(main.CmdFinish.enabled);
    return Play(command_line);
  };
  FinishApp(context);
  EXPECT_THAT(enabled, ElementsAre(false, false, false, false));
  EXPECT_TRUE(main.CmdFinish.enabled);
}

TEST_F(BuildDriver, Start_ResetsTheWorkspaceToTheTemplateTree) {
  host.AddLeftFile("C:\\Discwright\\vexacd\\I386\\old.txt", "old", true);
  FinishApp(context);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\I386"));
  EXPECT_EQ(WorkspaceFile("boot\\loader.bin"), "loader");
  EXPECT_EQ(host.Content("C:\\Discwright\\files\\vexacd\\boot\\loader.bin"), "loader");
}

TEST_F(BuildDriver, UndeletableOldWorkspace_IsNotedAndBuiltOver) {
  host.AddLeftFile("C:\\Discwright\\vexacd\\locked.txt", "old");
  host.FailOn("RemoveFile", "locked.txt", host::ErrorClass::kAccessDenied, "in use");
  FinishApp(context);
  EXPECT_TRUE(host.Exists("C:\\Discwright\\vexacd\\locked.txt"));
  EXPECT_EQ(WorkspaceFile("boot\\loader.bin"), "loader");
  EXPECT_THAT(NoteLines(), Contains("C:\\Discwright\\vexacd\\locked.txt: could not be deleted: in use"));
}

TEST_F(BuildDriver, OldWorkspaceThatCannotBeListed_IsNotedBecauseItsFilesComeOntoTheCd) {
  host.AddLeftFile("C:\\Discwright\\vexacd\\old.txt", "old");
  host.FailOn("ListFolder", "Discwright\\vexacd", host::ErrorClass::kNotReady, "Input/output error", 2);
  EXPECT_EQ(FinishApp(context).end, steps::BuildEnd::kMadeWithNotes);
  EXPECT_THAT(NoteLines(), Contains("C:\\Discwright\\vexacd: could not be deleted: Input/output error"));
}

TEST_F(BuildDriver, WorkspaceOfSomebodyElse_HaltsTheBuildBeforeAnythingIsTouched) {
  host.AddFile("C:\\Discwright\\vexacd\\photo.jpg", "mine");
  const steps::BuildResult result = FinishApp(context);
  EXPECT_EQ(result.end, steps::BuildEnd::kFailed);
  EXPECT_THAT(result.why, HasSubstr("C:\\Discwright\\vexacd is not known to be made by this program"));
  EXPECT_EQ(host.Content("C:\\Discwright\\vexacd\\photo.jpg"), "mine");
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(BuildDriver, LinkInPlaceOfTheWorkspaceThatCannotBeDeleted_HaltsTheBuild) {
  host.AddFile("D:\\photos\\photo.jpg", "mine");
  host.AddLink("C:\\Discwright\\vexacd", "D:\\photos");
  host.FailOn("RemoveFile", "vexacd", host::ErrorClass::kAccessDenied, "in use");
  const steps::BuildResult result = FinishApp(context);
  EXPECT_EQ(result.end, steps::BuildEnd::kFailed);
  EXPECT_THAT(result.why, HasSubstr("The folder C:\\Discwright\\vexacd and its mark could not be made: "));
  EXPECT_FALSE(host.Exists("D:\\photos\\boot"));
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

TEST_F(BuildDriver, EachChoiceOfTheDisks_ChangesItsOwnDiskOnly) {
  host.AddFile("C:\\Discwright\\keyfile2.txt", "[Win9xInfo]\r\nOwnerName=Ann\r\n[Win2KInfo]\r\nOwnerName=Bob\r\n");
  host.AddFile("D:\\98\\BASE4.CAB", "cabinet");
  main.TxtWin9x_Loc.text = "D:\\98";
  const std::map<std::string, std::string> disks = {
      {"ChkGet_Vexanetplus", "vexasoftware, vexasoftware_emm, linkwellplus288 -sel"},
      {"ChkSelectDrivers", "vexasoftware, vexasoftware_emm, netaccess"},
      {"ChkGet_Win9x", "vexasoftware, vexasoftware_emm, winsetup, netaccess -sel"},
      {"ChkWin9xInfo_Assis", "vexasoftware, vexasoftware_emm, netaccess -sel"},
      {"ChkWin9xInfo_MSBatch", "vexasoftware, vexasoftware_emm, netaccess -sel"}};
  BuildForEachAlone({&main.ChkGet_Vexanetplus, &main.ChkSelectDrivers, &main.ChkGet_Win9x, &main.ChkWin9xInfo_Assis,
                     &main.ChkWin9xInfo_MSBatch},
                    [&](const forms::CheckBox& alone) {
                      EXPECT_EQ(Disks(), disks.at(alone.name()));
                      const std::string key_file = host.Content("C:\\Discwright\\keyfile.txt");
                      EXPECT_EQ(key_file.find("OwnerName=Ann") != key_file.npos, &alone == &main.ChkWin9xInfo_Assis);
                      EXPECT_THAT(key_file, HasSubstr("OwnerName=Bob"));
                    });
}

TEST_F(BuildDriver, EachChoiceOfWindows2000_ChangesItsOwnFilesOnly) {
  host.AddFile("C:\\Discwright\\files\\inf_files\\win2k_template.inf", "[Data]\r\n");
  host.AddFile("C:\\Discwright\\keyfile2.txt", "[Win2KInfo]\r\nOwnerName=Bob\r\n");
  host.AddFile("D:\\I386\\LANG\\FONT.TT_", "font");
  main.ChkGet_Win2k.value = 1;
  main.Txt_i386_Loc.text = "D:\\I386";
  BuildForEachAlone({&main.ChkDelTree_Lang, &main.ChkWin2KInfo_Assis, &main.ChkWin2KInfo_Unattend},
                    [&](const forms::CheckBox& alone) {
                      EXPECT_EQ(WorkspaceFile("I386\\LANG\\FONT.TT_") == "<missing>", &alone == &main.ChkDelTree_Lang);
                      EXPECT_EQ(WorkspaceFile("I386\\WINNT.SIF") != "<missing>", &alone == &main.ChkWin2KInfo_Unattend);
                    });
}

TEST_F(BuildDriver, EachChoiceOfWindows98_ChangesItsOwnFilesOnly) {
  host.AddFile("C:\\Discwright\\files\\inf_files\\winme_template.inf", "[Setup]\r\n");
  host.AddFile("C:\\Discwright\\keyfile2.txt", "[Win9xInfo]\r\nOwnerName=Ann\r\n");
  host.AddFile("D:\\98\\BASE4.CAB", "cabinet");
  main.ChkGet_Win9x.value = 1;
  main.TxtWin9x_Loc.text = "D:\\98";
  BuildForEachAlone({&main.ChkWin9xInfo_Assis, &main.ChkWin9xInfo_MSBatch}, [&](const forms::CheckBox& alone) {
    EXPECT_EQ(WorkspaceFile("WIN98\\BASE4.CAB"), "cabinet");
    EXPECT_EQ(WorkspaceFile("WIN98\\MSBATCH.INF") != "<missing>", &alone == &main.ChkWin9xInfo_MSBatch);
  });
}

TEST_F(BuildDriver, EachChoiceOfToolsAndFiles_BringsItsOwnFolderOnly) {
  ChooseEverything();
  host.AddFile("D:\\extra\\read.me", "read");
  main.TxtAddFiles_Loc.text = "D:\\extra";
  BuildForEachAlone({&main.ChkERDC, &main.ChkBCon, &main.ChkVexaUtils, &main.ChkAddFiles},
                    [&](const forms::CheckBox& alone) {
                      const auto file_of = [&](const forms::CheckBox& choice, const char* content) {
                        return &alone == &choice ? content : "<missing>";
                      };
                      EXPECT_EQ(WorkspaceFile("ERDC\\FROM.TXT"), file_of(main.ChkERDC, "E:\\erd"));
                      EXPECT_EQ(WorkspaceFile("OOBC\\FROM.TXT"), file_of(main.ChkBCon, "E:\\bluecon"));
                      EXPECT_EQ(WorkspaceFile("vexa\\probe.exe"), file_of(main.ChkVexaUtils, "probe"));
                      EXPECT_EQ(WorkspaceFile("read.me"), file_of(main.ChkAddFiles, "read"));
                    });
}

TEST_F(BuildDriver, ToolsWithoutTheirPage_AreNotAdded) {
  ChooseEverything();
  main.ChkGet_Advtools.value = 0;
  FinishApp(context);
  EXPECT_EQ(WorkspaceFile("ERDC\\FROM.TXT"), "<missing>");
  EXPECT_EQ(WorkspaceFile("OOBC\\FROM.TXT"), "<missing>");
}

TEST_F(BuildDriver, PasswordsThatDiffer_ProtectNothingAndTheBuildGoesOn) {
  ChooseEverything();
  main.TxtPass2.text = "another";
  FinishApp(context);
  ASSERT_EQ(user.messages.size(), 1U);
  EXPECT_EQ(user.messages[0].title, "Password Protection disabled");
  EXPECT_THAT(WorkspaceFile("boot\\scripts\\main.cds"), HasSubstr("Set PasswordRequest=0"));
  EXPECT_THAT(Marks(), ElementsAre(tick, tick, tick, tick, tick));
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
  host.AddLeftFile("C:\\Discwright\\advtemp\\I386\\OLD.SYS", "old", true);
  ChooseEverything();
  FinishApp(context);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\advtemp"));
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd\\ERDC\\OLD.SYS"));
}

TEST_F(BuildDriver, CancelledInStepTwo_LeavesTheLaterMarksEmptyAndTheWorkspaceInPlace) {
  ChooseEverything();
  host.AddFileOfSize("D:\\I386\\HUGE.CAB", std::int64_t{1} << 31);  // halts the step of Windows 2000/XP
  main.ChkCleanSession.value = 1;
  FinishApp(context);
  EXPECT_THAT(Marks(), ElementsAre(tick, "", "", "", ""));
  EXPECT_EQ(WorkspaceFile("boot\\loader.bin"), "loader");
  EXPECT_EQ(main.LblFinish.caption.get(), "   Operation canceled");
}

TEST_F(BuildDriver, CancelledDuringTheTemplateCopy_StopsBeforeTheFirstStep) {
  user.on_do_events = [this] {
    if (main.LblSub_Step.caption.get().starts_with("Copying : ")) context.CancelApp();
  };
  FinishApp(context);
  EXPECT_TRUE(main.CancelCopy);
  EXPECT_TRUE(programs.started.empty());
  EXPECT_THAT(Marks(), ElementsAre("", "", "", "", ""));
  EXPECT_EQ(WorkspaceFile("boot\\scripts\\main.cds"), "script");  // the copy itself runs to its end
}

TEST_F(BuildDriver, CancelledWhileTheTemplateTreeIsCounted_CopiesNothing) {
  user.on_do_events = [this] { context.CancelApp(); };
  EXPECT_EQ(FinishApp(context).end, steps::BuildEnd::kCancelled);
  EXPECT_EQ(WorkspaceFile("boot\\scripts\\main.cds"), "<missing>");
}

TEST_F(BuildDriver, CancelledWhileTheOldWorkspaceIsDeleted_LeavesTheRestOfIt) {
  for (const char* name : {"a", "b", "c"}) host.AddLeftFile(std::string("C:\\Discwright\\vexacd\\") + name, "old");
  user.on_do_events = [this] {
    if (!host.Exists("C:\\Discwright\\vexacd\\a")) context.CancelApp();
  };
  FinishApp(context);
  EXPECT_EQ(WorkspaceFile("b"), "old");
  EXPECT_TRUE(programs.started.empty());
  EXPECT_TRUE(user.messages.empty());
}

TEST_F(BuildDriver, CancelledWhileTheSetupFilesAreCounted_EndsWithoutAMessage) {
  ChooseEverything();
  user.on_do_events = [this] {
    if (main.LblMsg2.bold && main.LblSub_Step.caption.get() == "Preparing for Copy") context.CancelApp();
  };
  EXPECT_EQ(FinishApp(context).end, steps::BuildEnd::kCancelled);
  EXPECT_THAT(Marks(), ElementsAre(tick, "", "", "", ""));
  EXPECT_TRUE(user.messages.empty());
  EXPECT_EQ(context.failure, "");
}

TEST_F(BuildDriver, CancelledWhileTheSessionIsCleaned_LeavesTheRest) {
  main.ChkCleanSession.value = 1;
  user.on_do_events = [this] {
    if (main.LblSub_Step.caption.get() == "Cleaning session temperary data") context.CancelApp();
  };
  EXPECT_EQ(FinishApp(context).end, steps::BuildEnd::kCancelled);
  EXPECT_EQ(WorkspaceFile("boot\\scripts\\main.cds"), "script");
}

TEST_F(BuildDriver, CancelledWhileTheImageIsMade_LeavesStepFiveUnmarkedAndCleansNothing) {
  main.ChkCleanSession.value = 1;
  mastering_output = {"begun\n"};
  programs.run = [&](const std::string& command_line) {
    discwright::testing::FakeRun run = Play(command_line);
    if (command_line.ends_with("makecd.bat")) run.at_end = [this] { context.CancelApp(); };
    return run;
  };
  FinishApp(context);
  EXPECT_THAT(Marks(), ElementsAre(tick, cross, cross, tick, ""));
  EXPECT_EQ(main.LblSub_Step.caption.get(), "Creating Final ISO File");
  EXPECT_EQ(WorkspaceFile("boot\\loader.bin"), "loader");
  EXPECT_EQ(context.LaunchApp, nullptr);
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

TEST_F(BuildDriver, KeyFileThatCannotBeDeleted_IsNoted) {
  host.AddFile("C:\\Discwright\\keyfile2.txt", "[Win9xInfo]\r\n");
  host.FailOn("RemoveFile", "keyfile2.txt", host::ErrorClass::kAccessDenied, "refused");
  main.ChkCleanSession.value = 1;
  FinishApp(context);
  EXPECT_THAT(NoteLines(), ElementsAre("C:\\Discwright\\keyfile2.txt: could not be deleted: refused"));
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
