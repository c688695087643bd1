// The behaviour of the Windows 2000/XP/2003 installation info dialog.
#include "settings/win2k_info.h"

#include <array>
#include <utility>
#include <vector>

#include "host/names.h"
#include "host/system.h"
#include "settings/answer_file.h"
#include "settings/ini_file.h"
#include "settings/key_files.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::settings {

namespace {

constexpr const char* kJoinDomainKey = "JoinDomain";

struct Field {
  const char* key;
  forms::TextBox forms::FrmWin2KInfo::*text_box;
};

// In the order in which they are written and read. JoinDomain follows them.
constexpr std::array<Field, 5> kFields = {{{kTemplateKey, &forms::FrmWin2KInfo::TxtTemplate},
                                           {"OwnerName", &forms::FrmWin2KInfo::TxtOwner},
                                           {"Organization", &forms::FrmWin2KInfo::TxtOrg},
                                           {"ComputerName", &forms::FrmWin2KInfo::TxtPCName},
                                           {"Workgroup", &forms::FrmWin2KInfo::TxtWorkgroup}}};

constexpr std::array<Answer, 5> kAnswers = {{{"Data", "MsDosInitiated", nullptr, "0"},
                                             {"Data", "UnattendedInstall", nullptr, "Yes"},
                                             {"UserData", "FullName", "OwnerName"},
                                             {"UserData", "OrgName", "Organization"},
                                             {"UserData", "ComputerName", "ComputerName"}}};
// One of these pairs follows kAnswers. The empty value removes the other choice from the template.
constexpr std::array<Answer, 2> kWorkgroupAnswers = {
    {{"Identification", "JoinWorkgroup", "Workgroup"}, {"Identification", "JoinDomain", nullptr, ""}}};
constexpr std::array<Answer, 2> kDomainAnswers = {
    {{"Identification", "JoinDomain", "Workgroup"}, {"Identification", "JoinWorkgroup", nullptr, ""}}};

void ChooseDomain(forms::FrmWin2KInfo& dialog, bool domain) {
  (domain ? dialog.OptJoinDomain : dialog.OptJoinWorkgroup).value = true;
}

host::Result<std::string> TemplateFor(util::Notes& notes, const INIFile& key_file) {
  util::Notes not_shown;  // that the path was cut: a cut path that cannot be used is noted below
  const host::Result<std::string> read = key_file.ReadINIKey(not_shown, kWin2KSection, kTemplateKey);
  if (!notes.Check(read.status, key_file.FileName, "could not be read")) return read.status;
  std::string own = util::PathOf(util::Item::kWin2KTemplate);
  std::string script = util::StripQuotes(read.value);
  if (util::FileExists(script)) return script;
  // If the path of the program folder is long, the key file contains only the start of the path of the program's own
  // template. That is not a failure.
  if (!own.starts_with(script) && !util::AsTyped(own).starts_with(script)) {
    notes.Add(script,
              "could not be opened (paths are cut at 99 characters); the answer file is made from the program's own "
              "template");
  }
  return own;
}

void TakeScript(forms::FrmWin2KInfo& dialog, util::Notes& notes, const std::string& script) {
  dialog.DlgOpen.file_name = script;  // what the next chooser opens with
  dialog.TxtTemplate.text = util::AsTyped(script);
  FillSetupDataFromUnattend(dialog, notes, script);
}

}  // namespace

void LoadWin2KInfo(forms::FrmWin2KInfo& dialog, util::Notes& notes) {
  if (std::exchange(dialog.loaded, true)) return;
  if (!util::FileExists(notes, dialog.TxtTemplate.text.get()))
    dialog.TxtTemplate.text = util::AsTyped(util::PathOf(util::Item::kWin2KTemplate));
  FillSetupDataFromUnattend(dialog, notes, dialog.TxtTemplate.text);
}

void FillSetupDataFromUnattend(forms::FrmWin2KInfo& dialog, util::Notes& notes, const std::string& script) {
  if (!util::FileExists(notes, script)) return;
  const INIFile ini(script);
  const auto read = [&](const char* section, const char* key) { return ini.ReadINIKey(notes, section, key); };
  const host::Result<std::string> owner = read("UserData", "FullName");
  const host::Result<std::string> organization = read("UserData", "OrgName");
  const host::Result<std::string> computer = read("UserData", "ComputerName");
  const host::Result<std::string> join_workgroup = read("Identification", "JoinWorkgroup");
  const host::Result<std::string> join_domain = read("Identification", "JoinDomain");
  if (!owner.ok() || !organization.ok() || !computer.ok() || !join_workgroup.ok() || !join_domain.ok()) return;
  dialog.TxtOwner.text = owner.value;
  dialog.TxtOrg.text = organization.value;
  dialog.TxtPCName.text = computer.value;
  const std::string workgroup = util::TrimNull(join_workgroup.value);
  const std::string domain = util::TrimNull(join_domain.value);
  // Both conditions are tested. A script without either name therefore ends with the domain chosen and an empty name; a
  // script with both names changes nothing. Kept as it has always been.
  if (domain.empty()) {
    ChooseDomain(dialog, false);
    dialog.TxtWorkgroup.text = workgroup;
  }
  if (workgroup.empty()) {
    ChooseDomain(dialog, true);
    dialog.TxtWorkgroup.text = domain;
  }
}

host::Status FillSetupDataToKeyFile(const forms::FrmWin2KInfo& dialog, const std::string& key_file) {
  const INIFile ini(key_file);
  host::Status first_failure;
  const auto write = [&](const char* key, std::string_view value) {
    host::Status status = ini.SetINIKey(kWin2KSection, key, value);
    if (first_failure.ok()) first_failure = std::move(status);
  };
  for (const Field& field : kFields) write(field.key, (dialog.*field.text_box).text.get());
  write(kJoinDomainKey, dialog.OptJoinDomain.value ? "True" : "False");
  return first_failure;
}

void FillSetupDataFromKeyFile(forms::FrmWin2KInfo& dialog, util::Notes& notes, const std::string& key_file) {
  if (!util::FileExists(notes, key_file)) return;
  const INIFile ini(key_file);
  for (const Field& field : kFields) {
    const host::Result<std::string> value = ini.ReadINIKey(notes, kWin2KSection, field.key);
    if (!value.ok()) return;
    (dialog.*field.text_box).text = value.value;
  }
  const host::Result<std::string> join_domain = ini.ReadINIKey(notes, kWin2KSection, kJoinDomainKey);
  if (join_domain.ok()) ChooseDomain(dialog, host::FoldCase(join_domain.value) == "true");
}

bool FillSetupDataFromKeyFileToUnattend(util::Notes& notes, const std::string& KeyFile, const std::string& Unattend) {
  // The CD can be made without an answer file, so a missing key file is not a failure.
  if (!CheckKeyFile(notes, KeyFile)) return true;
  if (!util::RemoveIfExists(notes, Unattend)) return false;
  const INIFile key_file(KeyFile);
  const host::Result<std::string> template_file = TemplateFor(notes, key_file);
  const host::Result<std::string> join_domain = key_file.ReadINIKey(notes, kWin2KSection, kJoinDomainKey);
  if (!template_file.ok() || !join_domain.ok()) return false;
  // The dialog stores "True" or "False", but a number is expected here and both words count as 0. So Setup joins a
  // workgroup even if the user chose a domain; only a number that was entered by hand chooses the domain. The program
  // has always done this, and existing key files rely on it.
  const bool domain = WholeNumber(join_domain.value) != 0;
  const auto& names = domain ? kDomainAnswers : kWorkgroupAnswers;
  std::vector<Answer> answers(kAnswers.begin(), kAnswers.end());
  answers.insert(answers.end(), names.begin(), names.end());
  return WriteAnswerFile(notes, {Unattend, template_file.value, key_file, kWin2KSection, answers});
}

void BindWin2KInfo(forms::FrmWin2KInfo& dialog, host::UserInterface& user, util::Notes& notes) {
  dialog.CmdBrwUnattend.click = [&dialog, &user, &notes] { CmdBrwUnattend_Click(dialog, user, notes); };
  dialog.CmdOK.click = [&dialog, &notes] { CmdOK_Click(dialog, notes); };
  dialog.CmdCancel.click = [&dialog] { CmdCancel_Click(dialog); };
  dialog.TxtTemplate.drop_kind = forms::DropKind::kFile;
  dialog.TxtTemplate.dropped = [&dialog, &notes](const std::string& script) { TakeScript(dialog, notes, script); };
}

void CmdBrwUnattend_Click(forms::FrmWin2KInfo& dialog, host::UserInterface& user, util::Notes& notes) {
  const forms::FileDialog& open = dialog.DlgOpen;
  const std::string script = user.ChooseFile({open.title, open.filter, open.file_name, true});
  if (!script.empty()) TakeScript(dialog, notes, script);
}

void CmdOK_Click(forms::FrmWin2KInfo& dialog, util::Notes& notes) {
  const std::string key_file = util::PathOf(util::Item::kWorkingKeyFile);
  notes.Check(FillSetupDataToKeyFile(dialog, key_file), key_file, "could not be written");
  dialog.visible = false;
}

void CmdCancel_Click(forms::FrmWin2KInfo& dialog) { dialog.visible = false; }

}  // namespace discwright::settings
