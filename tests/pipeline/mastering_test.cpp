// Tests of the mastering script, of the log, and of the end of a mastering.
#include "pipeline/mastering.h"

#include "tests/pipeline/pipeline_fixture.h"
#include "util/processes.h"

namespace discwright::pipeline {
namespace {

using ::testing::ElementsAre;

constexpr const char* kCommand =
    "mkisofs.exe  -volid \"VEXA_RESCUE\" -preparer \"Brennick\" -publisher \"KORVANE LTD\" -appid \"Vexa CD Creator\" "
    "-iso-level 4 -omit-period -no-emul-boot -boot-load-size 4 -eltorito-boot boot/loader.bin -hide loader.bin "
    "-hide boot.catalog -follow-links -cache-inodes -output c:\\out\\rescue.iso vexacd";

class Mastering : public discwright::testing::PipelineFixture {
 protected:
  void Run(bool optimize = false) {
    StartMKISOFS(context, main.TxtISOLoc.text.get(), optimize);
    util::WaitWhile(user, main.MKISOFSRunning, context.LaunchApp, kMasteringPollInterval);
    context.LaunchApp.reset();
  }
};

TEST_F(Mastering, Script_HasFourLines) {
  EXPECT_THAT(MasteringScript("C:\\Out\\Rescue.iso", false),
              ElementsAre("@echo off", "C:", "cd c:\\discwright", kCommand));
}

TEST_F(Mastering, OptimizedScript_HasFiveLines) {
  EXPECT_THAT(MasteringScript("C:\\Out\\Rescue.iso", true),
              ElementsAre("@echo off", "C:", "cd c:\\discwright", "dfl.exe vexacd link", kCommand));
}

TEST_F(Mastering, FolderAndImageThatHaveAShortForm_AreNamedByIt) {
  host.program_folder = "C:\\Program Files\\Disc";
  host.short_paths["C:\\Program Files\\Disc"] = "C:\\PROGRA~1\\DISC";
  host.short_paths["D:\\My Images\\new.iso"] = "D:\\MYIMAG~1\\NEW.ISO";
  const auto lines = MasteringScript(" \"D:\\My Images\\new.iso\" ", false);
  EXPECT_EQ(lines[2], "cd c:\\progra~1\\disc");
  EXPECT_THAT(lines[3], ::testing::EndsWith("-output d:\\myimag~1\\new.iso vexacd"));
}

TEST_F(Mastering, Start_WritesTheScriptAnewAndRunsIt) {
  host.AddFile("C:\\Discwright\\makecd.bat", "something much longer than the new script " + std::string(4000, 'x'));
  Run();
  EXPECT_EQ(host.Content("C:\\Discwright\\makecd.bat"),
            "@echo off\r\nC:\r\ncd c:\\discwright\r\n" + std::string(kCommand) + "\r\n");
  EXPECT_THAT(programs.started, ElementsAre("C:\\Discwright\\makecd.bat"));
  EXPECT_THAT(programs.configured, ElementsAre("8192 500"));
}

TEST_F(Mastering, UnfinishedImageOfAKilledMastering_IsDeleted) {
  host.AddFile("C:\\out\\.discwright-Rescue.iso.part", "half an image");
  host.AddFile("C:\\out\\Rescue.iso.part", "a file of the user");
  mastering_fails = true;
  Run();
  EXPECT_FALSE(host.Exists("C:\\out\\.discwright-Rescue.iso.part"));
  EXPECT_TRUE(host.Exists("C:\\out\\Rescue.iso.part"));
}

TEST_F(Mastering, Start_DisablesCancelAndPreparesTheBar) {
  main.BarSub_Step.min = 10;
  main.BarSub_Step.max = 60;
  main.BarSub_Step.value = 55;
  main.BarSub_Step.visible = false;
  StartMKISOFS(context, main.TxtISOLoc.text.get(), false);
  EXPECT_FALSE(main.CmdCancel.enabled);
  EXPECT_TRUE(main.MKISOFSRunning);
  EXPECT_TRUE(main.BarSub_Step.visible);
  EXPECT_EQ(main.BarSub_Step.value.get(), 10);
  EXPECT_EQ(main.BarSub_Step.max.get(), 100);
}

TEST_F(Mastering, Output_IsLoggedPieceByPiece) {
  mastering_output = {"first\n", " 50.00% done", "12 extents written (0 MB)\n"};
  Run();
  EXPECT_EQ(host.Content("C:\\Discwright\\mkisofs.log"),
            "MkISOFS.EXE Log File\r\nfirst\r\n 50.00% done\r\n12 extents written (0 MB)\r\n");
  EXPECT_EQ(main.LblSub_Step.caption.get(), "Total ISO size : 0 MB");
}

TEST_F(Mastering, LogOfAnyOutput_HasCrLfLineEndsThroughout) {
  mastering_output = {"one\ntwo\n\nthree", "four\r\nfive\r\n", "six\r", "\n", "seven\r", "\neight\r", "nine\n", "\n"};
  Run();
  EXPECT_EQ(host.Content("C:\\Discwright\\mkisofs.log"),
            "MkISOFS.EXE Log File\r\none\r\ntwo\r\n\r\nthree\r\nfour\r\nfive\r\nsix\r\nseven\r\neight\r\nnine\r\n\r\n");
}

TEST_F(Mastering, QuotesAroundTheImage_AreNoPartOfItsName) {
  for (const char* text : {"\"C:\\Out\\Rescue.iso\"", "  C:\\Out\\Rescue.iso ", "C:\\Out\\Rescue.iso\\"}) {
    EXPECT_EQ(MasteringScript(text, false)[3], kCommand) << text;
  }
}

TEST_F(Mastering, LinkerThatHasFinished_IsNotNoted) {
  mastering_output = {"Scanning vexacd\r\nFinding duplicate files\r\n12 files lin", "ked, 34", "56 bytes saved\r", "\n",
                      " 50.00% done\n"};
  Run(true);
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(Mastering, LinkerThatHasNotFinished_IsNotedOnce) {
  const std::vector<std::vector<std::string>> outputs = {
      {},
      {"sh: dfl: not found\n", " 50.00% done\n"},
      {"Scanning vexacd\nFinding duplicate files\n", "Killed\n"},
      {"12 files linked, 3456 bytes saved, some files were left alone\n"},
      {"about 12 files linked, 3456 bytes saved\n"},
      {"12 files linked, 3456 bytes saved"},
      {" files linked,  bytes saved\n"},
      {"12 files linked, bytes saved\n"},
  };
  for (std::size_t number = 0; number < outputs.size(); ++number) {
    mastering_output = outputs[number];
    util::Notes notes_of_run;
    steps::Context run{windows, user, programs, notes_of_run};
    StartMKISOFS(run, main.TxtISOLoc.text.get(), true);
    util::WaitWhile(user, main.MKISOFSRunning, run.LaunchApp, kMasteringPollInterval);
    ASSERT_EQ(notes_of_run.all().size(), 1U) << number;
    EXPECT_EQ(notes_of_run.all()[0].place, "C:\\Discwright\\mkisofs.log");
    EXPECT_THAT(notes_of_run.all()[0].cause, ::testing::StartsWith("dfl, the program that links duplicate files"));
    EXPECT_THAT(notes_of_run.all()[0].cause, ::testing::EndsWith("duplicate files were stored more than once"));
  }
}

TEST_F(Mastering, FileThatTheMasteringLeavesOut_IsNotedWithAndWithoutTheLinker) {
  for (const bool optimize : {false, true}) {
    const std::string line = std::string("mkisofs: vexacd/") + (optimize ? "a" : "b") +
                             " is a temporary link that an interrupted dfl has left: it is not on the disc";
    mastering_output = {"0 files linked, 0 bytes saved\n" + line.substr(0, 30), line.substr(30) + "\r\n"};
    const std::size_t before = notes.all().size();
    Run(optimize);
    ASSERT_EQ(notes.all().size(), before + 1);
    EXPECT_EQ(notes.all().back().cause, line);
  }
}

TEST_F(Mastering, UnwantedLinker_IsNotNoted) {
  Run(false);
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(Mastering, FailedMastering_HasNoNoteOnTheLinker) {
  mastering_fails = true;
  Run(true);
  EXPECT_TRUE(notes.all().empty());
  host.AddFile("C:\\out\\Rescue.iso", "old");
  Run(true);
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(Mastering, QuotedImage_IsFoundAtTheEnd) {
  main.TxtISOLoc.text = "\"C:\\out\\Rescue.iso\"";
  Run();
  EXPECT_FALSE(main.LblAbort.visible);
}

TEST_F(Mastering, End_HidesTheFullBarAndKeepsTheResult) {
  Run();
  EXPECT_FALSE(main.BarSub_Step.visible);
  EXPECT_EQ(main.BarSub_Step.value.get(), 100);
  EXPECT_FALSE(main.LblAbort.visible);
  EXPECT_TRUE(context.mastering_end.Succeeded());
}

TEST_F(Mastering, NoImageAtTheEnd_IsAborted) {
  mastering_fails = true;
  Run();
  EXPECT_EQ(main.LblFinish.caption.get(), "   Operation Aborted");
  EXPECT_TRUE(main.LblAbort.visible);
  EXPECT_EQ(main.LblAbort.caption.get(), "Couldn't access destination ISO File");
  EXPECT_EQ(host.Content("C:\\Discwright\\mkisofs.log"),
            "MkISOFS.EXE Log File\r\nThe mastering ended with exit code 2.\r\n");
}

TEST_F(Mastering, FullDisk_IsAbortedThoughAnImageIsThere) {
  host.AddFile("C:\\out\\Rescue.iso", "half");
  mastering_fails = true;
  mastering_output = {"genisoimage: No space left on device.\n"};
  Run();
  EXPECT_EQ(main.LblFinish.caption.get(), "   Operation Aborted");
  EXPECT_EQ(main.LblAbort.caption.get(), "Not enough free space to complete the ISO file !!!");
}

TEST_F(Mastering, OldImageAndAFailedRun_LookSuccessfulToTheWizardButTheEndIsKept) {
  host.AddFile("C:\\out\\Rescue.iso", "old");
  mastering_fails = true;
  Run();
  EXPECT_EQ(main.LblFinish.caption.get(), "  Operation completed successfully");
  EXPECT_FALSE(main.LblAbort.visible);
  EXPECT_FALSE(context.mastering_end.Succeeded());
}

TEST_F(Mastering, CleanSession_DeletesTheScriptAndKeepsTheLog) {
  main.ChkCleanSession.value = 1;
  Run();
  EXPECT_FALSE(host.Exists("C:\\Discwright\\makecd.bat"));
  EXPECT_TRUE(host.Exists("C:\\Discwright\\mkisofs.log"));
}

TEST_F(Mastering, LauncherThatCannotBeMade_ShowsAMessageAndDoesNotRun) {
  programs.can_create = false;
  StartMKISOFS(context, main.TxtISOLoc.text.get(), false);
  EXPECT_FALSE(main.MKISOFSRunning);
  ASSERT_EQ(user.messages.size(), 1U);
  EXPECT_EQ(user.messages[0].text,
            "There appears to be a problem in your installation, try to manually register redirect.dll");
  EXPECT_EQ(user.messages[0].title, "Critical Error");
  EXPECT_TRUE(main.CancelCopy);
}

TEST_F(Mastering, UnwritableLog_IsNotedOnceAndTheRunGoesOn) {
  host.FailOn("WriteAt", "mkisofs.log", host::ErrorClass::kDiskFull, "No space left on device");
  mastering_output = {"one\n", "two\n"};
  Run();
  EXPECT_THAT(NoteLines(), ElementsAre("C:\\Discwright\\mkisofs.log: the mastering log is incomplete: "
                                       "No space left on device"));
  EXPECT_EQ(host.Content("C:\\out\\Rescue.iso"), "image");
}

TEST_F(Mastering, LogThatMissedALine_GetsNoFurtherOnes) {
  host.FailOn("WriteAt", "mkisofs.log", host::ErrorClass::kDiskFull, "No space left on device", 1);
  mastering_output = {"one\n", "two\n"};
  Run();
  EXPECT_EQ(host.Content("C:\\Discwright\\mkisofs.log"), "");
  EXPECT_EQ(notes.all().size(), 1U);
}

TEST_F(Mastering, LogThatCannotBeCreated_IsNotedOnceAndTheRunGoesOn) {
  host.FailOn("OpenBinary", "mkisofs.log", host::ErrorClass::kAccessDenied, "refused");
  mastering_output = {"one\n", "two\n"};
  Run();
  EXPECT_THAT(NoteLines(), ElementsAre("C:\\Discwright\\mkisofs.log: the mastering log could not be created: refused"));
  EXPECT_EQ(host.Content("C:\\out\\Rescue.iso"), "image");
}

TEST_F(Mastering, ScriptThatCannotBeDeleted_IsNoted) {
  main.ChkCleanSession.value = 1;
  host.FailOn("RemoveFile", "makecd.bat", host::ErrorClass::kAccessDenied, "refused");
  Run();
  EXPECT_THAT(NoteLines(), ElementsAre("C:\\Discwright\\makecd.bat: could not be deleted: refused"));
}

TEST_F(Mastering, ImageThatTheScriptCannotName_IsNotedAndAnOldScriptNeverRuns) {
  host.AddFile("C:\\Discwright\\makecd.bat", "old");
  host.FailOn("ScriptBytes", "rescue.iso", host::ErrorClass::kOther, "no such characters here");
  StartMKISOFS(context, main.TxtISOLoc.text.get(), false);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\makecd.bat"));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\out\\Rescue.iso");
  EXPECT_EQ(notes.all()[0].cause,
            "the path of the image cannot be written to the mastering script: no such characters here");
}

TEST_F(Mastering, UnwritableScript_IsNotedAndAnOldOneNeverRuns) {
  host.AddFile("C:\\Discwright\\makecd.bat", "old");
  host.FailOn("WriteWholeFile", "makecd.bat", host::ErrorClass::kDiskFull, "No space left on device");
  StartMKISOFS(context, main.TxtISOLoc.text.get(), false);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\makecd.bat"));
  EXPECT_THAT(NoteLines(), ElementsAre("C:\\Discwright\\makecd.bat: could not be written: No space left on device"));
}

}  // namespace
}  // namespace discwright::pipeline
