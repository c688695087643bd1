// The Windows 98/Me installation info dialog and its section of the key files.
#include "settings/win9x_info.h"

#include <array>
#include <utility>

#include "host/system.h"
#include "settings/ini_file.h"
#include "settings/key_files.h"
#include "util/paths.h"

namespace discwright::settings {

namespace {

struct Field {
  const char* key;
  forms::TextBox forms::FrmWin9xInfo::*text_box;
};

// In the order in which they are read and written.
constexpr std::array<Field, 5> kFields = {{{"OwnerName", &forms::FrmWin9xInfo::TxtOwner},
                                           {"Organization", &forms::FrmWin9xInfo::TxtOrg},
                                           {"OptimizedFor", &forms::FrmWin9xInfo::TxtOSType},
                                           {"ComputerName", &forms::FrmWin9xInfo::TxtPCName},
                                           {"Workgroup", &forms::FrmWin9xInfo::TxtWorkgroup}}};

}  // namespace

void LoadWin9xInfo(forms::FrmWin9xInfo& dialog) {
  if (std::exchange(dialog.loaded, true)) return;
  // The program folder is asked whether the file exists, but what is read is a file of that bare name: meant. Where a
  // bare name leads is the system's affair: to the folder of its profile functions on Windows, to the current folder
  // elsewhere.
  if (util::FileExists(host::ProgramFolder() + kWorkingKeyFile)) {
    FillSetupDataFromKeyFile(dialog, "KeyFile2.txt");
  } else if (util::FileExists(host::ProgramFolder() + kBuildKeyFile)) {
    FillSetupDataFromKeyFile(dialog, "KeyFile.txt");
  }
}

void FillSetupDataFromKeyFile(forms::FrmWin9xInfo& dialog, const std::string& key_file) {
  if (!util::FileExists(key_file)) return;
  const INIFile ini(key_file);
  for (const Field& field : kFields) (dialog.*field.text_box).text = ini.GetINIKey(kWin9xSection, field.key);
}

void FillSetupDataToKeyFile(const forms::FrmWin9xInfo& dialog) {
  const INIFile ini(host::ProgramFolder() + kWorkingKeyFile);
  for (const Field& field : kFields) ini.SetINIKey(kWin9xSection, field.key, (dialog.*field.text_box).text.get());
}

}  // namespace discwright::settings
