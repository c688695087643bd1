// Reads and writes session files.
#include "settings/session.h"

#include <algorithm>
#include <utility>

#include "base/ini_text.h"
#include "host/files.h"
#include "host/folder_facts.h"
#include "host/left_files.h"
#include "host/native_text.h"
#include "host/profile.h"
#include "host/system.h"
#include "settings/ini_file.h"
#include "settings/session_table.h"
#include "settings/win2k_info.h"
#include "settings/win9x_info.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::settings {

namespace {

// A dialog fills its fields when it is loaded. Loading it later would replace the values of the session.
void LoadDialogs(forms::Windows& windows, util::Notes& notes) {
  LoadWin2KInfo(windows.win2k_info, notes);
  LoadWin9xInfo(windows.win9x_info, notes);
}

// The keys in the order of the file, except that JoinDomain is read before Workgroup.
std::vector<SessionKey> KeysInReadingOrder() {
  std::vector<SessionKey> keys = SessionKeys();
  const auto join_domain = std::find_if(
      keys.begin(), keys.end(), [](const SessionKey& key) { return key.line->encoding == ValueEncoding::kJoinDomain; });
  std::iter_swap(join_domain - 1, join_domain);
  return keys;
}

// The writer stores "True" or "False", but the reader expects a number and takes both words for 0. So every saved
// session reopens with the workgroup chosen; only a number that was entered by hand chooses the domain. The program has
// always done this, and existing session files rely on it.
void ReadJoinDomain(forms::FrmWin2KInfo& dialog, std::string_view value) {
  const int number = WholeNumber(value);
  (number == 0 ? dialog.OptJoinWorkgroup : dialog.OptJoinDomain).value = true;
}

void ReadValue(forms::Windows& windows, const SessionLine& line, const std::string& value) {
  if (line.check_box != nullptr) line.check_box(windows).value = WholeNumber(value);
  if (line.text_box != nullptr) line.text_box(windows).text = value;
  if (line.encoding == ValueEncoding::kJoinDomain) ReadJoinDomain(windows.win2k_info, value);
}

// The path of the service pack is not part of the session while its check box is clear.
std::string TextAsWritten(forms::Windows& windows, const SessionLine& line) {
  const forms::TextBox& box = line.text_box(windows);
  if (&box == &windows.main.TxtSP_exe && !windows.main.ChkSlipstream.checked()) return "";
  return base::OneLine(box.text.get());
}

std::string ValueAsWritten(forms::Windows& windows, const SessionLine& line) {
  switch (line.encoding) {
    case ValueEncoding::kCheckBox:
      return std::to_string(line.check_box(windows).value);
    case ValueEncoding::kQuotedCheckBox:
      return util::Quoted(std::to_string(line.check_box(windows).value));
    case ValueEncoding::kText:
      return util::Trim(TextAsWritten(windows, line));
    case ValueEncoding::kQuotedText:
      return util::Quoted(TextAsWritten(windows, line));
    case ValueEncoding::kJoinDomain:
      return util::Quoted(windows.win2k_info.OptJoinDomain.value ? "True" : "False");
    case ValueEncoding::kNone:
      break;
  }
  return "";
}

std::string SessionText(forms::Windows& windows) {
  std::string text;
  for (const SessionLine& line : kSessionLines) {
    text.append(line.literal).append(ValueAsWritten(windows, line)).append("\r\n");
  }
  return text;
}

void NoteLongValues(util::Notes& notes, const std::string& file_name, std::string_view text) {
  for (const SessionKey& key : SessionKeys()) {
    if (!IsCutWhenRead(base::FindIniValue(text, key.section, key.key).value_or(""))) continue;
    notes.Add(file_name, "The value of " + std::string(key.key) + " in section " + std::string(key.section) +
                             " is longer than 99 characters; the rest will be ignored when the file is read.");
  }
}

// A session is the user's own file. Who keeps it elsewhere, and a link in its place, finds the new choices there.
host::Status WriteFollowingLinks(const std::string& file_name, const std::string& text) {
  const std::string file = host::FollowedPath(file_name);
  host::RemoveLeftFiles(util::ParentOf(file));
  return host::WriteWholeFile(file, host::EncodeText(text));
}

}  // namespace

host::Status ReadSession(forms::Windows& windows, util::Notes& notes, const std::string& file_name) {
  LoadDialogs(windows, notes);
  const INIFile ini(file_name);
  for (const SessionKey& key : KeysInReadingOrder()) {
    const host::Result<std::string> value = ini.ReadINIKey(notes, key.section, key.key);
    if (!value.ok()) return value.status;
    ReadValue(windows, *key.line, value.value);
  }
  if (windows.main.TxtSP_exe.text.get().empty()) windows.main.ChkSlipstream.value = 0;
  windows.main.ChkGet_Vexadisks.value = 1;  // every CD has the boot disks, even if the file says 0
  return host::Status::Success();
}

host::Status ReadVexaCDINI(forms::Windows& windows, util::Notes& notes, const std::string& file_name) {
  host::Status read = ReadSession(windows, notes, file_name);
  if (!read.ok()) return read;
  const std::string key_file = util::PathOf(util::Item::kWorkingKeyFile);
  notes.Check(FillSetupDataToKeyFile(windows.win9x_info), key_file, "could not be written");
  return read;
}

bool HoldsChoices(const std::string& file_name) {
  const std::vector<SessionKey> keys = SessionKeys();
  return std::any_of(keys.begin(), keys.end(), [&](const SessionKey& key) {
    return host::ReadProfileValue(file_name, key.section, key.key).value.has_value();
  });
}

void WriteVexaCDINI(forms::Windows& windows, util::Notes& notes) {
  forms::FrmDiscwright& main = windows.main;
  LoadDialogs(windows, notes);
  if (!main.ChkSlipstream.checked()) main.TxtSP_exe.text = "";  // the next session must not offer an unused path
  const std::string file_name = util::PathOf(util::Item::kSession);
  notes.Check(WriteFollowingLinks(file_name, SessionText(windows)), file_name, "The settings could not be saved");
}

host::Status WriteSession(forms::Windows& windows, util::Notes& notes, const std::string& file_name) {
  const std::string text = SessionText(windows);
  host::Status written = WriteFollowingLinks(file_name, text);
  if (written.ok()) NoteLongValues(notes, file_name, text);
  return written;
}

}  // namespace discwright::settings
