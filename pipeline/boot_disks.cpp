// The table of the boot disks, and the step that makes them.
#include "pipeline/boot_disks.h"

#include <array>
#include <string>

#include "host/files.h"
#include "host/names.h"
#include "host/system.h"
#include "settings/key_files.h"
#include "steps/processes.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::pipeline {

namespace {

using util::Item;

enum class When { kAlways, kMakeWin9xDisk, kNetPlus, kNotNetPlus };

struct Disk {
  const char* name;
  const char* sub_step;
  const char* arguments;  // of CreateDsk.exe
  bool network;           // gets the argument " -sel" when the default drivers are not accepted
  Item image_out;         // the image that CreateDsk.exe makes
  const char* cd_image;   // relative to the workspace
  When when;
  int bar_after;  // the value of the progress bar after this disk; -1: unchanged
};

// The last two disks have the same path on the CD, so that the boot menu is the same for both. The sub-step text and
// the bar change at the Windows setup launcher even if that disk is not made. Kept as it has always been.
constexpr std::array<Disk, 5> kDisks = {{
    {"Vexa Rescue Software", "Creating Vexa Rescue Software Disk", " -t 144 vexasoftware", false, Item::kVexastartImage,
     "\\boot\\images\\vexastart.img", When::kAlways, 20},
    {"Vexa Rescue Software (EMM386 Support)", "Creating Vexa Rescue Software Disk (EMM386 Support)",
     " -t 144 vexasoftware_emm", false, Item::kVexaemmImage, "\\boot\\images\\vexaemm.img", When::kAlways, 40},
    {"Vexa Windows Setup Launcher", "Creating the Vexa Windows Setup Launcher Disk", " -t 144 winsetup", false,
     Item::kVexawinImage, "\\boot\\images\\vexawin.img", When::kMakeWin9xDisk, 60},
    {"Vexa Rescue Software Plus (Linkwell)", "Creating the Vexa Rescue Software Plus (Linkwell) Disk",
     " -t 288 linkwellplus288", true, Item::kVexalinkwellImage, "\\boot\\images\\vexanet.img", When::kNetPlus, -1},
    {"Vexa Network Access", "Creating the Vexa Network Access Software Disk", " -t 288 netaccess", true,
     Item::kVexanetImage, "\\boot\\images\\vexanet.img", When::kNotNetPlus, -1},
}};

// Runs the disk image maker for one disk and moves the image into the workspace. Returns false if that fails.
bool MakeDisk(steps::Context& context, const Disk& disk, bool select_drivers) {
  const std::string cd_image = util::PathOf(util::Item::kWorkspace) + disk.cd_image;
  const std::string image_out = util::PathOf(disk.image_out);
  const bool is_linkwell = disk.when == When::kNetPlus;

  steps::ASyncShell(context, util::PathOf(Item::kCreateDsk) + disk.arguments + (select_drivers ? " -sel" : ""));
  steps::WaitForASyncApp(context);

  // An earlier build without Linkwell Plus may have left the other network disk in the program folder.
  if (is_linkwell) util::RemoveIfExists(context.notes, util::PathOf(util::Item::kVexanetImage));
  util::RemoveIfExists(context.notes, cd_image);
  // If CreateDsk makes no image, one that an earlier build left in the program folder is used. Kept as it has
  // always been; the failure of CreateDsk is noted.
  if (!util::FileExists(image_out)) return false;
  const host::Status moved = host::RenameFile(image_out, cd_image);
  return context.notes.Check(moved, image_out, "could not be moved to " + host::PathToNative(cd_image));
}

void FailDisk(steps::Context& context, const Disk& disk) {
  context.Halt({"The creation the Boot image \"" + std::string(disk.name) + "\" failed, operation halted",
                "Fatal Error", host::MessageIcon::kCritical, true});
}

}  // namespace

void AddDisks(steps::Context& context, const DiskChoices& choices) {
  forms::FrmDiscwright& main = context.main();
  const auto wanted = [&](When when) {
    return when == When::kAlways || (when == When::kMakeWin9xDisk && choices.MakeWin9xDisk) ||
           (when == When::kNetPlus && choices.NetPlus) || (when == When::kNotNetPlus && !choices.NetPlus);
  };

  const std::string images = util::PathOf(util::Item::kWorkspace) + "\\boot\\images\\";
  context.notes.Check(host::MakeFolders(images), images, "could not be created");
  main.BarSub_Step.max = 100;
  main.BarSub_Step.value = main.BarSub_Step.min.get();
  main.BarSub_Step.visible = true;
  if (choices.AddInfo_toWin2KSetup || choices.AddInfo_toWin9xSetup) {
    settings::FillKeyFile(context.notes, {.AddInfo_toWin9xSetup = choices.AddInfo_toWin9xSetup,
                                          .AddInfo_toWin2KSetup = choices.AddInfo_toWin2KSetup});
  }

  for (const Disk& disk : kDisks) {
    const bool shown_when_skipped = disk.when == When::kMakeWin9xDisk;
    if (wanted(disk.when) || shown_when_skipped) main.LblSub_Step.caption = disk.sub_step;
    if (wanted(disk.when) && !MakeDisk(context, disk, disk.network && !choices.AcceptDrivers)) {
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
