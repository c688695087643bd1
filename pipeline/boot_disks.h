// Makes the boot floppy images of the CD with the disk image maker, CreateDsk. Call AddDisks once per build, after
// Prepare_CDDir.
#pragma once

#include "steps/context.h"

namespace discwright::pipeline {

struct DiskChoices {
  bool NetPlus = false;               // make the Linkwell Plus disk instead of the network access disk
  bool AcceptDrivers = false;         // the network disk uses its default drivers and does not ask at every start
  bool MakeWin9xDisk = false;         // make the Windows setup launcher
  bool AddInfo_toWin9xSetup = false;  // copy the answers for Windows 98/Me to "keyfile.txt"
  bool AddInfo_toWin2KSetup = false;  // copy the answers for Windows 2000/XP to "keyfile.txt"
};

// Makes the images of the chosen disks and moves them to "boot\images" of the workspace. If one of them cannot be made,
// that is shown and the build ends.
void AddDisks(steps::Context& context, const DiskChoices& choices);

}  // namespace discwright::pipeline
