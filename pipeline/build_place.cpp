// Tests whether files can be created in the program folder, and claims it for this process.
#include "pipeline/build_place.h"

#include <utility>

#include "host/files.h"
#include "host/left_files.h"
#include "host/names.h"
#include "host/system.h"
#include "util/emptied_folders.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::pipeline {

namespace {

// The program folder during a build. Its test file stays until the end, so a test file at the start shows that the last
// run was killed.
struct Claim {
  explicit Claim(std::shared_ptr<void> of_folder) : folder(std::move(of_folder)) {}
  Claim(const Claim&) = delete;
  Claim& operator=(const Claim&) = delete;
  ~Claim() { host::RemoveFile(util::PathOf(util::Item::kWriteTest)); }

  std::shared_ptr<void> folder;
};

// Deletes the disk images of a killed run. A later build may not make all of these disks, and would leave their images
// there for ever. Images of a run that ended by itself stay: they are used when CreateDsk fails (see boot_disks.cpp).
void RemoveImagesOfAKilledRun() {
  using util::Item;
  if (!util::FileExists(util::PathOf(Item::kWriteTest))) return;
  for (const Item image : {Item::kVexastartImage, Item::kVexaemmImage, Item::kVexawinImage, Item::kVexalinkwellImage,
                           Item::kVexanetImage}) {
    host::RemoveFile(util::PathOf(image));
  }
}

std::string WhyNotWritable(const std::string& folder) {
  const host::Status status =
      host::OpenBinary(util::PathOf(util::Item::kWriteTest), host::OpenMode::kCreateEmpty).status;
  // Only a refused access is reported here, because the advice is to use another folder. Other failures, for example a
  // full disk, are noted by the build step in which they occur.
  if (status.error != host::ErrorClass::kAccessDenied) return "";
  return "The program folder " + host::PathToNative(folder) + " cannot be written to: " + status.cause +
         ".\nCopy the program to a folder of your own and start it there.";
}

// Two builds in one workspace would mix their files.
std::string AnotherBuildsIn(const std::string& folder) {
  return "Another build is under way in the program folder " + host::PathToNative(folder) +
         ".\nWait until it has ended, or copy the program to another folder and start it there.";
}

}  // namespace

std::string WhyNotBuiltHere(std::shared_ptr<void>& claim) {
  const std::string folder = host::ProgramFolder();
  std::shared_ptr<void> of_folder = host::ClaimFolder(folder);
  if (of_folder == nullptr) return AnotherBuildsIn(folder);
  RemoveImagesOfAKilledRun();
  const auto whole = std::make_shared<Claim>(std::move(of_folder));
  std::string why = WhyNotWritable(folder);
  if (why.empty()) why = util::WhyNotEmptied();
  if (!why.empty()) return why;
  host::RemoveLeftFiles(folder);
  claim = whole;
  return "";
}

}  // namespace discwright::pipeline
