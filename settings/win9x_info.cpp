// The Windows 98/Me installation info dialog and its section of the key files.
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

constexpr int kWindows9x = 1;  // the platform's number

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

void LoadWin9xInfo(forms::FrmWin9xInfo& dialog) {
  if (std::exchange(dialog.loaded, true)) return;
  // The program folder is asked whether the file exists, but what is read is a file of that bare name: meant. Where a
  // bare name leads is the system's affair: to the folder of its profile functions on Windows, to the current folder
  // elsewhere.
  if (util::FileExists(util::PathOf(util::Item::kWorkingKeyFile))) {
    FillSetupDataFromKeyFile(dialog, "KeyFile2.txt");
  } else if (util::FileExists(util::PathOf(util::Item::kBuildKeyFile))) {
    FillSetupDataFromKeyFile(dialog, "KeyFile.txt");
  } else if (util::GetPlatformId() == kWindows9x) {
    FillSetupDataFromReg(dialog);
  }
}

void FillSetupDataFromKeyFile(forms::FrmWin9xInfo& dialog, const std::string& key_file) {
  if (!util::FileExists(key_file)) return;
  const INIFile ini(key_file);
  for (const Field& field : kFields) (dialog.*field.text_box).text = ini.GetINIKey(kWin9xSection, field.key);
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
  if (!HasAnswers(notes, KeyFile)) return true;  // a success: meant
  if (!DeleteAnswerFile(notes, MSBatch)) return false;
  const INIFile key_file(KeyFile);
  // FillKeyFile does not copy this key: a build copy that nobody has edited makes the file of Windows Me. That is
  // meant.
  const bool is_98 = key_file.GetINIKey(notes, kWin9xSection, kOSTypeKey).find("98") != std::string::npos;
  const std::string template_file = util::PathOf(is_98 ? util::Item::kWin98Template : util::Item::kWinMeTemplate);
  return WriteAnswerFile(notes, {MSBatch, template_file, key_file, kWin9xSection, kAnswers});
}

void BindWin9xInfo(forms::FrmWin9xInfo& dialog) {
  dialog.CmdOK.click = [&dialog] { CmdOK_Click(dialog); };
  dialog.CmdCancel.click = [&dialog] { CmdCancel_Click(dialog); };
}

void CmdOK_Click(forms::FrmWin9xInfo& dialog) {
  FillSetupDataToKeyFile(dialog);
  dialog.visible = false;
}

void CmdCancel_Click(forms::FrmWin9xInfo& dialog) { dialog.visible = false; }

}  // namespace discwright::settings
