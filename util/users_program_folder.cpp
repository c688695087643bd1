// Fills and updates the program folder of a user.
#include "util/users_program_folder.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "base/paths.h"
#include "host/desktop.h"
#include "host/files.h"
#include "host/left_files.h"
#include "host/names.h"
#include "host/system.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::util {

namespace {

using Digests = std::map<std::string, std::string, std::less<>>;  // by the path in the program folder

constexpr std::size_t kDigestLength = 64;
constexpr std::string_view kBetween = "  ";  // between the digest and the path of a line

bool IsDigest(std::string_view text) {
  return text.size() == kDigestLength && text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

// Whether a path of the list stays inside the program folder. A damaged list must not make this program write
// elsewhere.
bool LeadsBelow(std::string_view path) {
  if (path.empty() || path.find_first_of("\\:") != std::string_view::npos) return false;
  const std::string framed = "/" + std::string(path) + "/";
  for (const char* part : {"//", "/./", "/../"}) {
    if (framed.find(part) != std::string::npos) return false;
  }
  return true;
}

// Reads the lines of a list as sha256sum writes it. Empty when one of them is damaged.
std::optional<Digests> ParseList(std::string_view text) {
  Digests digests;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    const std::string_view digest = line.substr(0, kDigestLength);
    const std::string_view path = line.substr(std::min(line.size(), kDigestLength + kBetween.size()));
    const bool is_whole = end != std::string_view::npos && line.substr(digest.size()).starts_with(kBetween);
    if (!is_whole || !IsDigest(digest) || !LeadsBelow(path)) return std::nullopt;
    digests.emplace(path, digest);
    text.remove_prefix(end + 1);
  }
  return digests;
}

std::string DigestIn(const Digests& digests, const std::string& path) {
  const auto found = digests.find(path);
  return found == digests.end() ? std::string() : found->second;
}

// Brings the folder of a user up to date. The functions return false after a failure, which why() names.
class UsersFolder {
 public:
  UsersFolder(std::string installed, std::string folder, Notes& notes)
      : installed_(std::move(installed)), folder_(std::move(folder)), notes_(notes) {}

  bool Update(const std::string& list, const Digests& shipped);
  const std::string& why() const { return why_; }

 private:
  std::string InUsers(const std::string& path) const { return base::InFolder(folder_, path); }
  bool ReadFormerList();
  bool UpdateFile(const std::string& path, const std::string& digest);
  bool RemoveFormerFile(const std::string& path, const std::string& digest);
  bool Copy(const std::string& path);
  bool Check(const host::Status& status, const std::string& path, const std::string& what);
  void RemoveLeftFilesOf(const Digests& shipped) const;

  std::string installed_;
  std::string folder_;
  Notes& notes_;
  std::string former_list_;  // empty when the folder has no list yet
  Digests former_;
  bool is_current_ = false;
  std::string why_;
};

bool UsersFolder::Check(const host::Status& status, const std::string& path, const std::string& what) {
  if (status.ok()) return true;
  why_ = "This program is installed for all users, so it works in the folder " + host::PathToNative(folder_) +
         ". But " + host::PathToNative(path) + " " + what + ": " + status.cause +
         ".\nMake sure that there is room and that you may write files there, or set the environment variable "
         "XDG_DATA_HOME to another folder. Then start the program again.";
  return false;
}

bool UsersFolder::ReadFormerList() {
  const std::string file = InUsers(std::string(NameInFolder(Item::kInstalledList)));
  const host::Result<std::string> read = host::ReadWholeFile(file);
  if (read.status.error == host::ErrorClass::kNotFound) return true;
  former_list_ = read.value;
  // With a damaged list every file that differs from the installed one counts as changed by the user.
  former_ = ParseList(read.value).value_or(Digests());
  return Check(read.status, file, "could not be read");
}

bool UsersFolder::Copy(const std::string& path) {
  const std::string target = InUsers(path);
  const host::Status made = host::MakeFolders(ParentOf(target));
  if (!Check(made, ParentOf(target), "could not be made")) return false;
  const std::string source = base::InFolder(installed_, path);
  return Check(host::CopyWholeFile(source, target), target, "could not be copied from " + host::PathToNative(source));
}

bool UsersFolder::UpdateFile(const std::string& path, const std::string& digest) {
  const std::string file = InUsers(path);
  const host::Status looked = host::Look(file).status;
  if (looked.error == host::ErrorClass::kNotFound) return Copy(path);
  if (is_current_) return true;
  const host::Result<std::string> current = host::Sha256OfFile(file);
  if (!Check(current.status, file, "could not be read")) return false;
  if (current.value == digest) return true;
  if (current.value == DigestIn(former_, path)) return Copy(path);
  notes_.Remark(file, "this file was changed here, so it stays as it is; the installed program has another one, " +
                          host::PathToNative(base::InFolder(installed_, path)));
  return true;
}

// Deletes a file that is no longer a part of the program, because what is in the template tree comes to the CD.
bool UsersFolder::RemoveFormerFile(const std::string& path, const std::string& digest) {
  const std::string file = InUsers(path);
  const host::Result<std::string> current = host::Sha256OfFile(file);
  if (current.status.error == host::ErrorClass::kNotFound) return true;
  if (!Check(current.status, file, "could not be read")) return false;
  if (current.value != digest) {
    notes_.Remark(file, "this file was changed here, so it stays, although the installed program no longer has it");
    return true;
  }
  if (!Check(host::RemoveFile(file), file, "could not be deleted")) return false;
  // The folder of the user has its list in it, so this ends there at the latest.
  for (std::string folder = ParentOf(file); host::RemoveEmptyFolder(folder).ok();) folder = ParentOf(folder);
  return true;
}

void UsersFolder::RemoveLeftFilesOf(const Digests& shipped) const {
  std::set<std::string> folders = {folder_};
  for (const auto& [path, digest] : shipped) folders.insert(ParentOf(InUsers(path)));
  for (const std::string& folder : folders) host::RemoveLeftFiles(folder);
}

bool UsersFolder::Update(const std::string& list, const Digests& shipped) {
  if (!Check(host::MakeFolders(folder_), folder_, "could not be made") || !ReadFormerList()) return false;
  is_current_ = former_list_ == list;
  if (!is_current_) RemoveLeftFilesOf(shipped);
  for (const auto& [path, digest] : shipped) {
    if (!UpdateFile(path, digest)) return false;
  }
  if (is_current_) return true;
  for (const auto& [path, digest] : former_) {
    if (!shipped.contains(path) && !RemoveFormerFile(path, digest)) return false;
  }
  const std::string file = InUsers(std::string(NameInFolder(Item::kInstalledList)));
  if (!Check(host::WriteWholeFile(file, list), file, "could not be written")) return false;
  notes_.Remark(folder_, former_list_.empty()
                             ? "the program is installed for all users, so your CDs are put together in this folder"
                             : "this folder now has the files of the program that was installed anew");
  return true;
}

std::string WhyListIsBad(const std::string& file, const std::string& cause) {
  return "The list of the installed files, " + host::PathToNative(file) + ", " + cause + ". Install the program again.";
}

}  // namespace

std::string WhyNoUsersFolder(Notes& notes) {
  const std::string list_file = PathOf(Item::kInstalledList);
  const host::Result<std::string> list = host::ReadWholeFile(list_file);
  if (list.status.error == host::ErrorClass::kNotFound) return "";  // the program is not installed
  if (!list.ok()) return WhyListIsBad(list_file, "could not be read: " + list.status.cause);
  const std::optional<Digests> shipped = ParseList(list.value);
  if (!shipped || shipped->empty()) return WhyListIsBad(list_file, "is damaged");
  const std::string home = host::DataHome();
  if (home.empty()) {
    return "This program is installed for all users and needs a folder of yours to work in, but the system does not "
           "know your home folder. Set the environment variable XDG_DATA_HOME to a folder in which you may write "
           "files, and start the program again.";
  }
  const std::string folder = base::InFolder(home, "discwright");
  UsersFolder users(host::ProgramFolder(), folder, notes);
  if (!users.Update(list.value, *shipped)) return users.why();
  host::UseProgramFolder(folder);
  return "";
}

bool WorksInUsersFolder() { return FileExists(PathOf(Item::kInstalledList)); }

}  // namespace discwright::util
