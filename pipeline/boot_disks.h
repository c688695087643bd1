// The boot floppy images of the CD, made by the disk image maker.
#pragma once

#include "util/context.h"

namespace discwright::pipeline {

void AddDisks(util::Context& context, bool NetPlus, bool AcceptDrivers, bool MakeWin9xDisk, bool AddInfo_toWin9xSetup,
              bool AddInfo_toWin2KSetup);

}  // namespace discwright::pipeline
