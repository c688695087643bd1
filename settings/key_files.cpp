// Copies the answers for Windows Setup from the working store to the build copy.
#include "settings/key_files.h"

#include <initializer_list>
#include <string>

#include "host/profile.h"
#include "host/system.h"
#include "settings/ini_file.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::settings {

bool HoldsAnswers(const char* section) {
  return host::ReadProfileValue(util::PathOf(util::Item::kWorkingKeyFile), section, "OwnerName").value.has_value();
}

void FillKeyFile(util::Notes& notes, const ChosenSections& chosen) {
  const INIFile target(util::PathOf(util::Item::kBuildKeyFile));
  const INIFile source(util::PathOf(util::Item::kWorkingKeyFile));
  if (!util::FileExists(notes, source.FileName)) return;
  // A path of the template that is too long is not noted here. FillSetupDataFromKeyFileToUnattend notes it, unless it
  // is the program's own template, which is used in that case anyway.
  util::Notes not_shown;
  const auto copy = [&](const char* section, std::initializer_list<const char*> keys) {
    for (const std::string key : keys) {
      const host::Result<std::string> value = source.ReadINIKey(key == kTemplateKey ? not_shown : notes, section, key);
      // The build copy keeps its old value: an empty one would look like an answer of the user.
      if (!notes.Check(value.status, source.FileName, "could not be read")) continue;
      const host::Status written = target.SetINIKey(section, key, value.value);
      notes.Check(written, target.FileName, key + " could not be written");
    }
  };
  if (chosen.AddInfo_toWin9xSetup) copy(kWin9xSection, {"OwnerName", "Organization", "ComputerName", "Workgroup"});
  if (chosen.AddInfo_toWin2KSetup) {
    copy(kWin2KSection, {kTemplateKey, "OwnerName", "Organization", "ComputerName", "Workgroup", "JoinDomain"});
  }
}

}  // namespace discwright::settings
