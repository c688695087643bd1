// Names, texts, settings and scripts of the host in memory.
#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <string>
#include <string_view>

#include "base/windows_1252.h"
#include "host/names.h"
#include "host/native_text.h"
#include "host/profile.h"
#include "host/script.h"
#include "tests/support/fake_host.h"

namespace discwright::host {

namespace {

testing::FakeHost& Host() { return testing::FakeHost::Current(); }

}  // namespace

std::string PathFromNative(std::string_view native) { return std::string(native); }
std::string PathToNative(std::string_view path) {
  std::string native(path);
  std::replace(native.begin(), native.end(), '/', '\\');
  const std::size_t root = native.find(':') == 1 ? 3 : 1;  // length of "C:\", or of the root of a system without drives
  while (native.size() > root && native.ends_with('\\')) native.pop_back();
  if (Host().shows_slashes) std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

std::string ShortPath(std::string_view path) {
  const auto found = Host().short_paths.find(std::string(path));
  return found == Host().short_paths.end() ? "" : found->second;
}

std::string FoldCase(std::string_view text) {
  std::string folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(),
                 [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
  if (folded.empty()) return folded;
  // Folds the letters of Western Europe with umlauts and accents, which have two bytes in UTF-8.
  for (std::size_t place = folded.find('\xC3'); place < folded.size() - 1; place = folded.find('\xC3', place + 1)) {
    const auto letter = static_cast<unsigned char>(folded[place + 1]);
    if (letter >= 0x80 && letter <= 0x9E && letter != 0x97) folded[place + 1] = static_cast<char>(letter + 0x20);
  }
  return folded;
}

std::string NameOnDisc(std::string_view name) {
  std::string raised(name);
  const bool is_lower = Host().shows_disc_names_in_lower_case && FoldCase(name) == name;
  if (is_lower) std::transform(raised.begin(), raised.end(), raised.begin(), ::toupper);
  return raised;
}

std::string TextFromNative(std::string_view native) { return std::string(native); }
std::string TextToNative(std::string_view text) { return std::string(text); }
std::optional<std::string> CodePageBytes(std::string_view text) { return base::ToWindows1252(text); }
std::string TextOfCodePage(std::string_view bytes) { return base::FromWindows1252(bytes); }

ProfileValue ReadProfileValue(std::string_view file, std::string_view section, std::string_view key) {
  return ReadTextProfile(file, section, key);
}

Status WriteProfileValue(std::string_view file, std::string_view section, std::string_view key,
                         std::string_view value) {
  return WriteTextProfile(file, section, key, value);
}

std::optional<std::string> LocalMachineText(std::string_view sub_key, std::string_view value_name) {
  const auto found = Host().registry.find(std::string(sub_key).append("\\").append(value_name));
  return found == Host().registry.end() ? std::nullopt : std::optional(found->second);
}

// The script of a host with Windows: a batch file with short paths in lower case.
std::array<std::string, 3> ScriptPrologue(std::string_view folder) {
  return {"@echo off", std::string(folder.substr(0, 2)), "cd " + ScriptPath(folder)};
}

std::string ScriptProgram(std::string_view name) { return std::string(name); }

std::string ScriptPath(std::string_view path) {
  const std::string short_path = ShortPath(path);
  return FoldCase(short_path.empty() ? path : std::string_view(short_path));
}

std::string_view ScriptLineEnd() { return "\r\n"; }
Result<std::string> ScriptBytes(std::string_view text) {
  if (Status status = Host().Enter("ScriptBytes", text); !status.ok()) return status;
  return std::string(text);
}

}  // namespace discwright::host
