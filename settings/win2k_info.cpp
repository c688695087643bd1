// The Windows 2000/XP/2003 installation info dialog, its setup script and its section of the key files.
#include "settings/win2k_info.h"

#include <array>
#include <utility>

#include "host/system.h"
#include "settings/ini_file.h"
#include "settings/key_files.h"
#include "util/paths.h"

namespace discwright::settings {

namespace {

constexpr const char* kTemplate = "\\files\\inf_files\\win2k_template.inf";  // below the program folder
constexpr const char* kJoinDomainKey = "JoinDomain";

struct Field {
  const char* key;
  forms::TextBox forms::FrmWin2KInfo::*text_box;
};

// In the order in which they are written and read back; the choice of the domain follows them.
constexpr std::array<Field, 5> kFields = {{{"TemplateFile", &forms::FrmWin2KInfo::TxtTemplate},
                                           {"OwnerName", &forms::FrmWin2KInfo::TxtOwner},
                                           {"Organization", &forms::FrmWin2KInfo::TxtOrg},
                                           {"ComputerName", &forms::FrmWin2KInfo::TxtPCName},
                                           {"Workgroup", &forms::FrmWin2KInfo::TxtWorkgroup}}};

void ChooseDomain(forms::FrmWin2KInfo& dialog, bool domain) {
  dialog.OptJoinWorkgroup.value = !domain;
  dialog.OptJoinDomain.value = domain;
}

}  // namespace

void LoadWin2KInfo(forms::FrmWin2KInfo& dialog) {
  if (std::exchange(dialog.loaded, true)) return;
  if (!util::FileExists(dialog.TxtTemplate.text.get())) dialog.TxtTemplate.text = host::ProgramFolder() + kTemplate;
  FillSetupDataFromUnattend(dialog, dialog.TxtTemplate.text);
}

void FillSetupDataFromUnattend(forms::FrmWin2KInfo& dialog, const std::string& script) {
  if (!util::FileExists(script)) return;
  const INIFile ini(script);
  dialog.TxtOwner.text = ini.GetINIKey("UserData", "FullName");
  dialog.TxtOrg.text = ini.GetINIKey("UserData", "OrgName");
  dialog.TxtPCName.text = ini.GetINIKey("UserData", "ComputerName");
  const std::string workgroup = util::TrimNull(ini.GetINIKey("Identification", "JoinWorkgroup"));
  const std::string domain = util::TrimNull(ini.GetINIKey("Identification", "JoinDomain"));
  // Two tests, not an alternative: a script with neither name ends with the domain chosen and an empty name, one with
  // both changes nothing.
  if (domain.empty()) {
    ChooseDomain(dialog, false);
    dialog.TxtWorkgroup.text = workgroup;
  }
  if (workgroup.empty()) {
    ChooseDomain(dialog, true);
    dialog.TxtWorkgroup.text = domain;
  }
}

void FillSetupDataToKeyFile(const forms::FrmWin2KInfo& dialog, const std::string& key_file) {
  const INIFile ini(key_file);
  for (const Field& field : kFields) ini.SetINIKey(kWin2KSection, field.key, (dialog.*field.text_box).text.get());
  ini.SetINIKey(kWin2KSection, kJoinDomainKey, dialog.OptJoinDomain.value ? "True" : "False");
}

void FillSetupDataFromKeyFile(forms::FrmWin2KInfo& dialog, const std::string& key_file) {
  if (!util::FileExists(key_file)) return;
  const INIFile ini(key_file);
  for (const Field& field : kFields) (dialog.*field.text_box).text = ini.GetINIKey(kWin2KSection, field.key);
  ChooseDomain(dialog, host::FoldCase(ini.GetINIKey(kWin2KSection, kJoinDomainKey)) == "true");
}

}  // namespace discwright::settings
