// Tries whether the program folder can be written to.
#include "pipeline/build_place.h"

#include "host/files.h"
#include "host/names.h"
#include "host/system.h"
#include "util/program_folder.h"

namespace discwright::pipeline {

namespace {

// Two builds in one workspace would make CDs of what both put there.
std::string WhyNotClaimed(const std::string& folder, std::shared_ptr<void>& claim) {
  claim = host::ClaimFolder(folder);
  if (claim != nullptr) return "";
  return "Another build is under way in the program folder " + host::PathToNative(folder) +
         ".\nWait for its end, or copy the program to another folder and start it there.";
}

}  // namespace

std::string WhyNotBuiltHere(std::shared_ptr<void>& claim) {
  const std::string folder = host::ProgramFolder();
  const std::string attempt = util::PathOf(util::Item::kWriteTest);
  const host::Status status = host::OpenBinary(attempt, host::OpenMode::kCreateEmpty).status;
  if (status.ok()) host::RemoveFile(attempt);
  // Any other failure, a full disk for one, is told by the step that meets it: another folder would not help.
  if (status.error != host::ErrorClass::kAccessDenied) return WhyNotClaimed(folder, claim);
  return "The program folder " + host::PathToNative(folder) + " cannot be written to: " + status.cause +
         ".\nCopy the program to a folder of your own and start it there.";
}

}  // namespace discwright::pipeline
