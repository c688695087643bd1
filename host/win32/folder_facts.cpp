// Asks the system about folders, and where links lead.
#include "host/folder_facts.h"

#include <windows.h>

#include <array>

#include "base/paths.h"
#include "host/win32/errors.h"
#include "host/win32/file_facts.h"
#include "host/win32/native_path.h"
#include "host/win32/native_text.h"
#include "host/win32/owned_handle.h"
#include "host/win32/windows_version.h"

namespace discwright::host {
namespace {

// The path to which an existing path leads; empty when the system cannot tell.
std::string TargetOf(const AnsiPath& path) {
  using Call = DWORD WINAPI(HANDLE, LPSTR, DWORD, DWORD);
  static Call* const ask = IsNtFamily() ? NewerCall<Call>("kernel32.dll", "GetFinalPathNameByHandleA") : nullptr;
  if (ask == nullptr || !path.status.ok()) return "";
  const OwnedHandle handle(CreateFileA(path.c_str(), FILE_READ_ATTRIBUTES, ShareEverything(), nullptr, OPEN_EXISTING,
                                       FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!handle.valid()) return "";
  std::array<char, MAX_PATH + 8> name{};
  std::string target = TextOfBuffer(name, ask(handle.get(), name.data(), static_cast<DWORD>(name.size()), 0));
  constexpr std::string_view kShare = "\\\\?\\UNC\\";
  constexpr std::string_view kLocal = "\\\\?\\";
  if (target.starts_with(kShare)) return "\\\\" + target.substr(kShare.size());
  if (target.starts_with(kLocal)) target.erase(0, kLocal.size());
  return target;
}

}  // namespace

Result<FolderFacts> FactsOfFolder(std::string_view path) {
  const AnsiPath ansi(path);
  if (IsLink(ansi)) return NotARegularFile();
  const Result<NativeFacts> facts = FactsOfPath(ansi, Links::kTake);
  if (!facts.ok()) return facts.status;
  if (!facts.value.IsFolder()) return NotARegularFile();
  return FolderFacts{"number " + std::to_string(facts.value.number)};
}

std::string FollowedPath(std::string_view path) {
  std::string absolute = AbsolutePath(path);
  std::string rest;
  for (std::string existing = absolute;;) {
    if (std::string target = TargetOf(AnsiPath(existing)); !target.empty()) {
      return rest.empty() ? target : base::InFolder(target, rest);
    }
    const std::string parent = base::ParentFolder(existing);
    if (parent == existing) return absolute;
    rest = rest.empty() ? std::string(base::NameOf(existing)) : base::InFolder(base::NameOf(existing), rest);
    existing = parent;
  }
}

}  // namespace discwright::host
