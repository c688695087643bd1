// Tests whether files can be created in the program folder, and claims it for this process.
#include "pipeline/build_place.h"

#include "host/files.h"
#include "host/names.h"
#include "host/system.h"
#include "util/emptied_folders.h"
#include "util/program_folder.h"

namespace discwright::pipeline {

namespace {

// Two builds in one workspace would mix their files.
std::string WhyNotClaimed(const std::string& folder, std::shared_ptr<void>& claim) {
  claim = host::ClaimFolder(folder);
  if (claim != nullptr) return "";
  return "Another build is under way in the program folder " + host::PathToNative(folder) +
         ".\nWait until it has ended, or copy the program to another folder and start it there.";
}

}  // namespace

std::string WhyNotBuiltHere(std::shared_ptr<void>& claim) {
  const std::string folder = host::ProgramFolder();
  const std::string test_file = util::PathOf(util::Item::kWriteTest);
  const host::Status status = host::OpenBinary(test_file, host::OpenMode::kCreateEmpty).status;
  if (status.ok()) host::RemoveFile(test_file);
  // Only a refused access is reported here, because the advice is to use another folder. Other failures, for example a
  // full disk, are noted by the build step in which they occur.
  if (status.error != host::ErrorClass::kAccessDenied) {
    std::string why = WhyNotClaimed(folder, claim);
    return why.empty() ? util::WhyNotEmptied() : why;
  }
  return "The program folder " + host::PathToNative(folder) + " cannot be written to: " + status.cause +
         ".\nCopy the program to a folder of your own and start it there.";
}

}  // namespace discwright::pipeline
