// Tests of the boot disk step: command lines, places, progress, failures.
#include "pipeline/boot_disks.h"

#include <algorithm>
#include <array>

#include "tests/pipeline/pipeline_fixture.h"

namespace discwright::pipeline {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class BootDisks : public discwright::testing::PipelineFixture {
 protected:
  BootDisks() {
    Listen(main.LblSub_Step,
           [this](forms::Control&, forms::Facet, forms::By) { captions.push_back(main.LblSub_Step.caption); });
    Listen(main.BarSub_Step,
           [this](forms::Control&, forms::Facet, forms::By) { bar.push_back(main.BarSub_Step.value); });
  }
  std::vector<std::string> captions;
  std::vector<std::int64_t> bar;
};

TEST_F(BootDisks, DefaultChoices_MakeThreeDisksWithDriverSelection) {
  AddDisks(context, {});
  EXPECT_THAT(programs.started, ElementsAre("C:\\Discwright\\CreateDsk.exe -t 144 vexasoftware",
                                            "C:\\Discwright\\CreateDsk.exe -t 144 vexasoftware_emm",
                                            "C:\\Discwright\\CreateDsk.exe -t 288 netaccess -sel"));
  EXPECT_EQ(WorkspaceFile("boot\\images\\vexastart.img"), "image of vexasoftware");
  EXPECT_EQ(WorkspaceFile("boot\\images\\vexaemm.img"), "image of vexasoftware_emm");
  EXPECT_EQ(WorkspaceFile("boot\\images\\vexanet.img"), "image of netaccess");
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexastart.img"));
  EXPECT_TRUE(user.messages.empty());
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(BootDisks, AllChoices_MakeLauncherAndLinkwellDiskInTheSharedPlace) {
  AddDisks(context, {.NetPlus = true, .AcceptDrivers = true, .MakeWin9xDisk = true});
  EXPECT_THAT(programs.started, ElementsAre("C:\\Discwright\\CreateDsk.exe -t 144 vexasoftware",
                                            "C:\\Discwright\\CreateDsk.exe -t 144 vexasoftware_emm",
                                            "C:\\Discwright\\CreateDsk.exe -t 144 winsetup",
                                            "C:\\Discwright\\CreateDsk.exe -t 288 linkwellplus288"));
  EXPECT_EQ(WorkspaceFile("boot\\images\\vexawin.img"), "image of winsetup");
  EXPECT_EQ(WorkspaceFile("boot\\images\\vexanet.img"), "image of linkwellplus288");
}

TEST_F(BootDisks, WithoutLauncher_ItsTextIsShownAndTheBarGoesToSixty) {
  AddDisks(context, {.AcceptDrivers = true});
  EXPECT_THAT(
      captions,
      ElementsAre("Creating Vexa Rescue Software Disk", "Creating Vexa Rescue Software Disk (EMM386 Support)",
                  "Creating the Vexa Windows Setup Launcher Disk", "Creating the Vexa Network Access Software Disk"));
  EXPECT_THAT(bar, ::testing::IsSupersetOf({20, 40, 60, 100}));
  EXPECT_FALSE(main.BarSub_Step.visible);
  EXPECT_EQ(main.BarSub_Step.value.get(), 0);
}

TEST_F(BootDisks, Bar_BeginsAtItsMinimumAndRunsTo100) {
  main.BarSub_Step.min = 10;
  main.BarSub_Step.max = 50;
  main.BarSub_Step.value = 30;
  main.BarSub_Step.visible = false;
  bar.clear();
  programs.run = [this](const std::string& command_line) {
    if (programs.started.size() == 1) {
      EXPECT_EQ(main.BarSub_Step.value.get(), 10);
      EXPECT_EQ(main.BarSub_Step.max.get(), 100);
    }
    EXPECT_TRUE(main.BarSub_Step.visible);
    return Play(command_line);
  };
  AddDisks(context, {.AcceptDrivers = true, .MakeWin9xDisk = true});
  bar.erase(std::unique(bar.begin(), bar.end()), bar.end());
  EXPECT_THAT(bar, ElementsAre(30, 10, 20, 40, 60, 100, 10));
  EXPECT_FALSE(main.BarSub_Step.visible);
}

TEST_F(BootDisks, EachRun_UsesTheSlowPollIntervalAndIsReleased) {
  AddDisks(context, {.AcceptDrivers = true});
  EXPECT_THAT(programs.configured, ElementsAre("8192 1000", "8192 1000", "8192 1000"));
  EXPECT_FALSE(main.ASyncAppRunning);
}

TEST_F(BootDisks, StaleImageOnTheCdTree_IsReplaced) {
  host.AddFile("C:\\Discwright\\vexacd\\boot\\images\\vexastart.img", "old", true);
  AddDisks(context, {.AcceptDrivers = true});
  EXPECT_EQ(WorkspaceFile("boot\\images\\vexastart.img"), "image of vexasoftware");
}

TEST_F(BootDisks, StaleNetworkImageBesideTheProgram_IsDeletedForTheLinkwellDisk) {
  host.AddFile("C:\\Discwright\\vexanet.img", "stale");
  AddDisks(context, {.NetPlus = true, .AcceptDrivers = true});
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexanet.img"));
  EXPECT_EQ(WorkspaceFile("boot\\images\\vexanet.img"), "image of linkwellplus288");
}

TEST_F(BootDisks, MissingImage_ShowsFatalErrorAndMakesNoFurtherDisk) {
  failing_profile = "vexasoftware_emm";
  AddDisks(context, {.AcceptDrivers = true, .MakeWin9xDisk = true});
  ASSERT_EQ(user.messages.size(), 1U);
  EXPECT_EQ(user.messages[0].text,
            "The creation the Boot image \"Vexa Rescue Software (EMM386 Support)\" failed, operation halted");
  EXPECT_EQ(user.messages[0].title, "Fatal Error");
  EXPECT_EQ(user.messages[0].icon, host::MessageIcon::kCritical);
  EXPECT_TRUE(user.messages[0].system_modal);
  EXPECT_TRUE(main.CancelCopy);
  EXPECT_EQ(programs.started.size(), 2U);
  ASSERT_FALSE(notes.all().empty());
  EXPECT_THAT(notes.all()[0].cause, HasSubstr("no such profile"));
}

TEST_F(BootDisks, ImageOfAnEarlierRun_IsUsedWhenTheToolFailsAndTheFailureIsNoted) {
  host.AddFile("C:\\Discwright\\vexaemm.img", "earlier");
  failing_profile = "vexasoftware_emm";
  AddDisks(context, {.AcceptDrivers = true});
  EXPECT_EQ(WorkspaceFile("boot\\images\\vexaemm.img"), "earlier");
  EXPECT_TRUE(user.messages.empty());
  EXPECT_EQ(notes.all().size(), 1U);
}

TEST_F(BootDisks, ImageThatCannotBeMoved_IsFatal) {
  host.FailOn("RenameFile", "vexaemm.img", host::ErrorClass::kDiskFull, "No space left on device");
  AddDisks(context, {.AcceptDrivers = true});
  ASSERT_EQ(user.messages.size(), 1U);
  EXPECT_EQ(user.messages[0].title, "Fatal Error");
  EXPECT_THAT(NoteLines(), ElementsAre("C:\\Discwright\\vexaemm.img: could not be moved to "
                                       "C:\\Discwright\\vexacd\\boot\\images\\vexaemm.img: No space left on device"));
}

TEST_F(BootDisks, FolderOrStaleImageThatTheSystemProtects_IsNotedWithTheCause) {
  const std::string folder = "C:\\Discwright\\vexacd\\boot\\images\\";
  const std::vector<std::array<std::string, 3>> failures = {
      {"MakeFolders", folder, folder + ": could not be created: refused"},
      {"RemoveFile", "vexastart.img", folder + "vexastart.img: could not be deleted: refused"}};
  for (const auto& [function, path, note] : failures) {
    host.AddFile(folder + "vexastart.img", "old");
    host.FailOn(function, path, host::ErrorClass::kAccessDenied, "refused", 1);
    notes = {};
    AddDisks(context, {.AcceptDrivers = true});
    EXPECT_THAT(NoteLines(), ::testing::Contains(note));
  }
}

TEST_F(BootDisks, ToolThatCannotBeStarted_ShowsAMessageAndCancels) {
  programs.start_status = host::Status::Failure(host::ErrorClass::kNotFound, "no such program");
  AddDisks(context, {.AcceptDrivers = true});
  ASSERT_EQ(user.messages.size(), 2U);
  EXPECT_EQ(user.messages[0].title, "Critical Error");
  EXPECT_EQ(user.messages[1].title, "Fatal Error");
  EXPECT_TRUE(main.CancelCopy);
}

TEST_F(BootDisks, CancelledMeanwhile_StillMakesAllItsImages) {
  user.on_do_events = [this] { main.CancelCopy = true; };
  AddDisks(context, {.AcceptDrivers = true, .MakeWin9xDisk = true});
  EXPECT_EQ(programs.started.size(), 4U);
}

TEST_F(BootDisks, InfoForEitherSetup_FillsTheKeyFile) {
  host.AddFile("C:\\Discwright\\keyfile2.txt", "[Win9xInfo]\r\nOwnerName=Ann\r\n");
  AddDisks(context, {.AcceptDrivers = true, .AddInfo_toWin9xSetup = true});
  EXPECT_THAT(host.Content("C:\\Discwright\\keyfile.txt"), HasSubstr("OwnerName=Ann"));
}

TEST_F(BootDisks, KeyFileThatCannotBeWritten_IsNotedAndTheDisksAreMade) {
  host.AddFile("C:\\Discwright\\keyfile2.txt", "[Win9xInfo]\r\nOwnerName=Ann\r\n");
  host.AddFile("C:\\Discwright\\keyfile.txt", "", true);
  AddDisks(context, {.AcceptDrivers = true, .AddInfo_toWin9xSetup = true});
  ASSERT_FALSE(notes.all().empty());
  EXPECT_EQ(notes.all()[0].place, "C:\\Discwright\\keyfile.txt");
  EXPECT_EQ(programs.started.size(), 3U);
}

TEST_F(BootDisks, NoInfo_LeavesTheKeyFileAlone) {
  host.AddFile("C:\\Discwright\\keyfile2.txt", "[Win9xInfo]\r\nOwnerName=Ann\r\n");
  AddDisks(context, {.AcceptDrivers = true});
  EXPECT_FALSE(host.Exists("C:\\Discwright\\keyfile.txt"));
}

}  // namespace
}  // namespace discwright::pipeline
