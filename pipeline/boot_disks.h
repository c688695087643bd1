// The boot floppy images of the CD, made by the disk image maker.
#pragma once

#include "steps/context.h"

namespace discwright::pipeline {

struct DiskChoices {
  bool NetPlus = false;               // the disk of Linkwell Plus instead of the network access disk
  bool AcceptDrivers = false;         // the network disk takes its default drivers without asking at every start
  bool MakeWin9xDisk = false;         // the Windows setup launcher
  bool AddInfo_toWin9xSetup = false;  // the answers for Windows 98/Me go to the build's key file
  bool AddInfo_toWin2KSetup = false;  // those for Windows 2000/XP do
};

// Makes the images of the chosen disks and moves them to "boot\\images" of the CD's tree. The first one that fails
// halts the build.
void AddDisks(steps::Context& context, const DiskChoices& choices);

}  // namespace discwright::pipeline
