// The behaviour of the Windows 98/Me installation info dialog.
#include "settings/win9x_info.h"

#include <array>
#include <utility>

#include "host/profile.h"
#include "host/system.h"
#include "settings/answer_file.h"
#include "settings/ini_file.h"
#include "settings/key_files.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::settings {

namespace {

constexpr int kWindows9x = 1;  // see util::GetPlatformId

constexpr const char* kOSTypeKey = "OptimizedFor";

struct Field {
  const char* key;
  forms::TextBox forms::FrmWin9xInfo::*text_box;
};

// In the order in which they are read and written.
constexpr std::array<Field, 5> kFields = {{{"OwnerName", &forms::FrmWin9xInfo::TxtOwner},
                                           {"Organization", &forms::FrmWin9xInfo::TxtOrg},
                                           {kOSTypeKey, &forms::FrmWin9xInfo::TxtOSType},
                                           {"ComputerName", &forms::FrmWin9xInfo::TxtPCName},
                                           {"Workgroup", &forms::FrmWin9xInfo::TxtWorkgroup}}};

constexpr const char* kWindowsKey = "Software\\Microsoft\\Windows\\CurrentVersion";
constexpr const char* kNetworkKey = "System\\CurrentControlSet\\Services\\VxD\\VNETSUP";

struct RegistryValue {
  const char* key;
  const char* name;
  forms::TextBox forms::FrmWin9xInfo::*text_box;
};

constexpr std::array<RegistryValue, 5> kRegistryValues = {
    {{kWindowsKey, "RegisteredOwner", &forms::FrmWin9xInfo::TxtOwner},
     {kWindowsKey, "RegisteredOrganization", &forms::FrmWin9xInfo::TxtOrg},
     {kWindowsKey, "ProductName", &forms::FrmWin9xInfo::TxtOSType},
     {kNetworkKey, "ComputerName", &forms::FrmWin9xInfo::TxtPCName},
     {kNetworkKey, "Workgroup", &forms::FrmWin9xInfo::TxtWorkgroup}}};

constexpr std::array<Answer, 4> kAnswers = {{{"NameAndOrg", "Name", "OwnerName"},
                                             {"NameAndOrg", "Org", "Organization"},
                                             {"Network", "ComputerName", "ComputerName"},
                                             {"Network", "Workgroup", "Workgroup"}}};

}  // namespace

void LoadWin9xInfo(forms::FrmWin9xInfo& dialog, util::Notes& notes) {
  if (std::exchange(dialog.loaded, true)) return;
  // The file must exist in the program folder, but it is opened by its name without a folder. The system decides where
  // it looks for that name: on Windows the profile functions have a folder of their own, elsewhere it is the current
  // folder. Kept as it has always been.
  if (util::FileExists(notes, util::PathOf(util::Item::kWorkingKeyFile))) {
    FillSetupDataFromKeyFile(dialog, notes, "KeyFile2.txt");
  } else if (util::FileExists(notes, util::PathOf(util::Item::kBuildKeyFile))) {
    FillSetupDataFromKeyFile(dialog, notes, "KeyFile.txt");
  } else if (util::GetPlatformId() == kWindows9x) {
    FillSetupDataFromReg(dialog);
  }
}

void FillSetupDataFromKeyFile(forms::FrmWin9xInfo& dialog, util::Notes& notes, const std::string& key_file) {
  if (!util::FileExists(notes, key_file)) return;
  const INIFile ini(key_file);
  for (const Field& field : kFields) {
    const host::Result<std::string> value = ini.ReadINIKey(notes, kWin9xSection, field.key);
    if (!value.ok()) return;
    (dialog.*field.text_box).text = value.value;
  }
}

void FillSetupDataFromReg(forms::FrmWin9xInfo& dialog) {
  for (const RegistryValue& value : kRegistryValues) {
    (dialog.*value.text_box).text = util::TrimNull(host::LocalMachineText(value.key, value.name).value_or(""));
  }
}

host::Status FillSetupDataToKeyFile(const forms::FrmWin9xInfo& dialog) {
  const INIFile ini(util::PathOf(util::Item::kWorkingKeyFile));
  host::Status first_failure;
  for (const Field& field : kFields) {
    host::Status status = ini.SetINIKey(kWin9xSection, field.key, (dialog.*field.text_box).text.get());
    if (first_failure.ok()) first_failure = std::move(status);
  }
  return first_failure;
}

bool FillSetupDataFromKeyFileToMSBatch(util::Notes& notes, const std::string& KeyFile, const std::string& MSBatch) {
  // The CD can be made without an answer file, so a missing key file is not a failure.
  if (!CheckKeyFile(notes, KeyFile)) return true;
  if (!util::RemoveIfExists(notes, MSBatch)) return false;
  const INIFile key_file(KeyFile);
  // FillKeyFile does not copy this key. With a new build copy the template is therefore that of Windows Me, whatever
  // the dialog says. Kept as it has always been; a value that was written to "keyfile.txt" by hand is used.
  const host::Result<std::string> system = key_file.ReadINIKey(notes, kWin9xSection, kOSTypeKey);
  if (!system.ok()) return false;
  const bool is_98 = system.value.find("98") != std::string::npos;
  const std::string template_file = util::PathOf(is_98 ? util::Item::kWin98Template : util::Item::kWinMeTemplate);
  return WriteAnswerFile(notes, {MSBatch, template_file, key_file, kWin9xSection, kAnswers});
}

void BindWin9xInfo(forms::FrmWin9xInfo& dialog, util::Notes& notes) {
  dialog.CmdOK.click = [&dialog, &notes] { CmdOK_Click(dialog, notes); };
  dialog.CmdCancel.click = [&dialog] { CmdCancel_Click(dialog); };
}

void CmdOK_Click(forms::FrmWin9xInfo& dialog, util::Notes& notes) {
  notes.Check(FillSetupDataToKeyFile(dialog), util::PathOf(util::Item::kWorkingKeyFile), "could not be written");
  dialog.visible = false;
}

void CmdCancel_Click(forms::FrmWin9xInfo& dialog) { dialog.visible = false; }

}  // namespace discwright::settings
