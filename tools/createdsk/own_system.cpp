// Reads the folder with the user's own system, and puts its files into the order that boot sectors need.
#include "tools/createdsk/own_system.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "base/wildcard.h"
#include "host/files.h"
#include "host/folder_entries.h"
#include "host/names.h"
#include "tools/createdsk/profile_folder.h"

namespace discwright::tools {
namespace {

// The parts of a DOS that its boot sector loads, in the order in which they must stand on the disk.
constexpr std::string_view kSystemFiles[] = {"IO.SYS", "MSDOS.SYS", "IBMBIO.COM", "IBMDOS.COM", "KERNEL.SYS"};

// Whether an entry is a file with such a name, in any letter case.
bool HasName(const host::Entry& entry, std::string_view pattern) {
  return entry.kind == host::EntryKind::kFile &&
         base::MatchesWildcard(host::FoldCase(entry.name), host::FoldCase(pattern));
}

class OwnFolder {
 public:
  OwnFolder(const std::string& profile_folder, const Profile& profile)
      : profile_folder_(profile_folder), own_(profile.own), path_(profile_folder + "/" + profile.own) {}

  // Lists the folder. `is_empty` tells whether it holds nothing, or is missing.
  Result Read(bool& is_empty);

  Result TakeInto(Profile& profile) { return images_.empty() ? TakeFiles(profile) : TakeImage(profile); }

 private:
  Result ReadFolder(const std::string& below, const std::vector<ShortName>& parents);
  Result CheckEntry(const host::Entry& entry, const std::string& below) const;
  Result AddEntry(const host::Entry& entry, const std::string& below, const std::vector<ShortName>& parents);
  Result AddFile(ProfileFile file);
  Result TakeImage(Profile& profile) const;
  Result TakeFiles(Profile& profile);

  std::string Path(const std::string& below) const { return profile_folder_ + "/" + below; }

  const std::string& profile_folder_;
  std::string own_;   // the folder, as disk.ini names it
  std::string path_;  // its whole path
  std::vector<std::string> images_;
  std::string boot_sector_;
  std::vector<ProfileFile> files_;
};

Result OwnFolder::Read(bool& is_empty) {
  is_empty = true;
  const host::Result<host::Entry> found = host::Look(path_);
  if (CouldNotLook(found.status)) return CannotRead(path_, found.status);
  if (!found.ok()) {
    const host::Result<host::Entry> link = host::ReadEntry(path_);
    if (link.ok() && !link.value.problem.ok()) return CannotRead(path_, link.value.problem);
    if (CouldNotLook(link.status)) return CannotRead(path_, link.status);
    if (!link.ok()) return Result::Success();
    return Result::Failure(Shown(path_) + " is a link whose target is missing. Put the folder itself there.");
  }
  if (found.value.kind != host::EntryKind::kFolder) {
    return Result::Failure(Shown(path_) + " is not a folder. Move it away, and put your system into a folder of " +
                           "this name.");
  }
  if (Result result = StaysInProfile(profile_folder_, path_); !result.ok()) return result;
  Result result = ReadFolder(own_, {});
  is_empty = images_.empty() && boot_sector_.empty() && files_.empty();
  return result;
}

// `below` is the path of the folder below the profile folder, and `parents` its path on the disk.
Result OwnFolder::ReadFolder(const std::string& below, const std::vector<ShortName>& parents) {
  const host::Listing listing = host::ListFolder(Path(below), "*.*");
  if (!listing.status.ok()) return CannotRead(Path(below), listing.status);
  for (const host::Entry& entry : listing.value) {
    if (Result result = AddEntry(entry, below + "/" + entry.name, parents); !result.ok()) return result;
  }
  return Result::Success();
}

Result OwnFolder::CheckEntry(const host::Entry& entry, const std::string& below) const {
  if (!entry.problem.ok()) return CannotRead(Path(below), entry.problem);
  if (entry.kind == host::EntryKind::kSpecial || entry.broken ||
      (entry.is_link && entry.kind == host::EntryKind::kFolder)) {
    return Result::Failure(Shown(Path(below)) + " is neither a file nor a folder. Remove it, or put the file or " +
                           "folder itself there.");
  }
  return Result::Success();
}

Result OwnFolder::AddEntry(const host::Entry& entry, const std::string& below, const std::vector<ShortName>& parents) {
  if (Result result = CheckEntry(entry, below); !result.ok()) return result;
  const bool is_top = parents.empty();
  if (is_top && HasName(entry, "*.img")) {
    images_.push_back(below);
    return Result::Success();
  }
  if (is_top && HasName(entry, "bootsect.bin")) {
    if (!boot_sector_.empty()) {
      return Result::Failure(Shown(Path(below)) + " is there twice, in two letter cases. Remove one of the files.");
    }
    boot_sector_ = below;
    return Result::Success();
  }
  const std::optional<ShortName> name = ToShortName(entry.name);
  if (!name) {
    return Result::Failure(Shown(Path(below)) + " has no DOS name. Remove it, or give it a name of at most 8 " +
                           "characters, a dot and 3 characters, without blanks and accents.");
  }
  ProfileFile file{parents, below};
  file.path.push_back(*name);
  return entry.kind == host::EntryKind::kFolder ? ReadFolder(below, file.path) : AddFile(std::move(file));
}

Result OwnFolder::AddFile(ProfileFile file) {
  if (std::ranges::find(files_, file.path, &ProfileFile::path) != files_.end()) {
    return Result::Failure(Shown(Path(file.source)) + " has the same name on the disk as another file of that " +
                           "folder. Remove one of the files.");
  }
  files_.push_back(std::move(file));
  return Result::Success();
}

Result OwnFolder::TakeImage(Profile& profile) const {
  if (images_.size() > 1) {
    return Result::Failure(Shown(path_) + " holds more than one floppy image: " + images_[0] + " and " + images_[1] +
                           ". Leave only one of them there.");
  }
  if (!boot_sector_.empty() || !files_.empty()) {
    const std::string& other = boot_sector_.empty() ? files_.front().source : boot_sector_;
    return Result::Failure(Shown(path_) + " holds a floppy image, " + images_[0] + ", and other files: " + other +
                           ". Leave only the image there, or only the other files.");
  }
  profile.base = images_[0];
  profile.boot_sector.clear();
  return Result::Success();
}

Result OwnFolder::TakeFiles(Profile& profile) {
  if (boot_sector_.empty()) {
    return Result::Failure(Shown(path_) + " has no bootsect.bin. Put the boot sector of your system's floppy there, " +
                           "which are its first 512 bytes. Or put one image of the floppy there and nothing else.");
  }
  auto next = files_.begin();
  for (const std::string_view name : kSystemFiles) {
    const std::vector<ShortName> path = {*ToShortName(name)};
    const auto file = std::ranges::find(files_, path, &ProfileFile::path);
    if (file == files_.end()) continue;
    file->is_system = true;
    std::rotate(next, file, file + 1);
    ++next;
  }
  if (next == files_.begin()) {
    return Result::Failure(Shown(path_) + " has a boot sector, but no system: none of IO.SYS, MSDOS.SYS, IBMBIO.COM, " +
                           "IBMDOS.COM and KERNEL.SYS. Put the files of your system's floppy there, the hidden " +
                           "ones, too.");
  }
  profile.boot_sector = boot_sector_;
  std::vector<ProfileFile> of_profile = std::exchange(profile.files, std::move(files_));
  AddFiles(std::move(of_profile), profile.files);
  return Result::Success();
}

}  // namespace

Result TakeOwnSystem(const std::string& folder, Profile& profile, bool& is_own) {
  is_own = false;
  if (profile.own.empty()) return Result::Success();
  OwnFolder own(folder, profile);
  bool is_empty = false;
  if (Result result = own.Read(is_empty); !result.ok()) return result;
  is_own = !is_empty;
  if (is_own) return own.TakeInto(profile);
  AddFiles(profile.files_without_own, profile.files);
  return Result::Success();
}

}  // namespace discwright::tools
