// Words what is wrong with a file of a profile folder.
#include "tools/createdsk/profile_folder.h"

#include "host/files.h"
#include "host/names.h"

namespace discwright::tools {

std::string Shown(std::string_view path) { return host::PathToNative(path); }

Result CannotRead(std::string_view path, const host::Status& status) {
  return Result::Failure(Shown(path) + " cannot be read: " + status.cause + ". Make it readable and try again.");
}

bool CouldNotLook(const host::Status& status) { return !status.ok() && status.error != host::ErrorClass::kNotFound; }

Result StaysInProfile(const std::string& folder, const std::string& path) {
  if (host::LiesBelow(folder, path)) return Result::Success();
  return Result::Failure(Shown(path) +
                         " is reached through a link that leads out of the profile folder. Put the file " +
                         "itself into the folder.");
}

}  // namespace discwright::tools
