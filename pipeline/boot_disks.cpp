// The disk table and the one procedure that works through it.
#include "pipeline/boot_disks.h"

#include <array>
#include <string>

#include "host/files.h"
#include "host/names.h"
#include "host/system.h"
#include "integration/step.h"
#include "settings/key_files.h"
#include "util/paths.h"
#include "util/processes.h"

namespace discwright::pipeline {

namespace {

enum class When { kAlways, kMakeWin9xDisk, kNetPlus, kNotNetPlus };

struct Disk {
  const char* name;
  const char* sub_step;
  const char* command_line;  // below the program folder
  bool network;              // takes " -sel" when the default drivers are not accepted
  const char* image_out;     // below the program folder
  const char* cd_image;      // below the workspace root
  When when;
  int bar_after;  // -1: the bar is not moved
};

// The last two share one place on the CD, so that the boot menu is the same for both. The bar moves at the Windows
// setup launcher's position whether or not that disk is made.
constexpr std::array<Disk, 5> kDisks = {{
    {"Vexa Rescue Software", "Creating Vexa Rescue Software Disk", "\\CreateDsk.exe -t 144 vexasoftware", false,
     "\\vexastart.img", "\\boot\\images\\vexastart.img", When::kAlways, 20},
    {"Vexa Rescue Software (EMM386 Support)", "Creating Vexa Rescue Software Disk (EMM386 Support)",
     "\\CreateDsk.exe -t 144 vexasoftware_emm", false, "\\vexaemm.img", "\\boot\\images\\vexaemm.img", When::kAlways,
     40},
    {"Vexa Windows Setup Launcher", "Creating the Vexa Windows Setup Launcher Disk", "\\CreateDsk.exe -t 144 winsetup",
     false, "\\vexawin.img", "\\boot\\images\\vexawin.img", When::kMakeWin9xDisk, 60},
    {"Vexa Rescue Software Plus (Linkwell)", "Creating the Vexa Rescue Software Plus (Linkwell) Disk",
     "\\CreateDsk.exe -t 288 linkwellplus288", true, "\\vexalinkwell.img", "\\boot\\images\\vexanet.img",
     When::kNetPlus, -1},
    {"Vexa Network Access", "Creating the Vexa Network Access Software Disk", "\\CreateDsk.exe -t 288 netaccess", true,
     "\\vexanet.img", "\\boot\\images\\vexanet.img", When::kNotNetPlus, -1},
}};

void Delete(util::Context& context, const std::string& file) {
  if (!util::FileExists(file)) return;
  context.notes.Check(host::ClearAttributes(file), file, "could not be made writable");
  context.notes.Check(host::RemoveFile(file), file, "could not be deleted");
}

// Runs the disk image maker for one disk and moves its image onto the CD tree. False when there is no image.
bool MakeDisk(util::Context& context, const Disk& disk, bool select_drivers) {
  const std::string program_folder = host::ProgramFolder();
  const std::string cd_image = integration::WorkspaceRoot() + disk.cd_image;
  const std::string image_out = program_folder + disk.image_out;
  const bool share_place = disk.when == When::kNetPlus;

  util::ASyncShell(context, program_folder + disk.command_line + (select_drivers ? " -sel" : ""));
  util::WaitWhile(context, context.main().ASyncAppRunning, context.ASyncApp, util::kASyncPollInterval);

  if (share_place) Delete(context, program_folder + "\\vexanet.img");  // left by an earlier run without Linkwell Plus
  Delete(context, cd_image);
  if (!util::FileExists(image_out)) return false;
  const host::Status moved = host::RenameFile(image_out, cd_image);
  return context.notes.Check(moved, image_out, "could not be moved to " + host::PathToNative(cd_image));
}

void FailDisk(util::Context& context, const Disk& disk) {
  context.Halt({"The creation the Boot image \"" + std::string(disk.name) + "\" failed, operation halted",
                "Fatal Error", host::MessageIcon::kCritical, true});
}

}  // namespace

void AddDisks(util::Context& context, bool NetPlus, bool AcceptDrivers, bool MakeWin9xDisk, bool AddInfo_toWin9xSetup,
              bool AddInfo_toWin2KSetup) {
  forms::FrmDiscwright& main = context.main();
  const auto wanted = [&](When when) {
    return when == When::kAlways || (when == When::kMakeWin9xDisk && MakeWin9xDisk) ||
           (when == When::kNetPlus && NetPlus) || (when == When::kNotNetPlus && !NetPlus);
  };

  const std::string images = integration::WorkspaceRoot() + "\\boot\\images\\";
  context.notes.Check(host::MakeFolders(images), images, "could not be created");
  main.BarSub_Step.max = 100;
  main.BarSub_Step.value = main.BarSub_Step.min.get();
  main.BarSub_Step.visible = true;
  if (AddInfo_toWin2KSetup || AddInfo_toWin9xSetup) {
    settings::FillKeyFile(context.notes, AddInfo_toWin9xSetup, AddInfo_toWin2KSetup);
  }

  for (const Disk& disk : kDisks) {
    const bool shown_when_skipped = disk.when == When::kMakeWin9xDisk;
    if (wanted(disk.when) || shown_when_skipped) main.LblSub_Step.caption = disk.sub_step;
    if (wanted(disk.when) && !MakeDisk(context, disk, disk.network && !AcceptDrivers)) {
      FailDisk(context, disk);
      return;
    }
    if (disk.bar_after >= 0) main.BarSub_Step.value = disk.bar_after;
  }
  main.BarSub_Step.value = main.BarSub_Step.max.get();
  main.BarSub_Step.visible = false;
  main.BarSub_Step.value = main.BarSub_Step.min.get();
}

}  // namespace discwright::pipeline
