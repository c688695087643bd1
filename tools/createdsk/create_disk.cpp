// Reads the files that a profile names, makes the image in memory and writes it.
#include "tools/createdsk/create_disk.h"

#include <algorithm>
#include <memory>
#include <optional>

#include "base/ini_text.h"
#include "host/files.h"
#include "host/folder_entries.h"
#include "host/native_text.h"
#include "host/part_file.h"
#include "tools/createdsk/disk_image.h"
#include "tools/createdsk/own_system.h"
#include "tools/createdsk/profile_folder.h"

namespace discwright::tools {
namespace {

Result FindProfileFolder(std::string_view disks, const std::string& profile, std::string& folder) {
  if (!IsBareName(profile)) return Result::Failure("\"" + profile + "\" is not the name of a disk profile.");
  folder = std::string(disks) + "/" + profile;
  const host::Result<host::Entry> found = host::Look(folder);
  if (found.ok() && found.value.kind == host::EntryKind::kFolder) return Result::Success();
  if (CouldNotLook(found.status)) return CannotRead(folder, found.status);

  std::string names;
  const host::Listing listing = host::ListFolder(disks, "*.*");
  if (CouldNotLook(listing.status)) return CannotRead(disks, listing.status);
  for (const host::Entry& entry : listing.value) {
    if (entry.kind == host::EntryKind::kFolder) names += (names.empty() ? "" : ", ") + entry.name;
  }
  if (names.empty()) return Result::Failure("There are no disk profiles in " + Shown(disks) + "; put them there.");
  return Result::Failure("There is no disk profile \"" + profile + "\" in " + Shown(disks) + "; take one of " + names +
                         ".");
}

Result ReadProfile(const std::string& folder, bool selection, Profile& profile) {
  const std::string path = folder + "/disk.ini";
  if (host::Look(path).ok()) {
    if (Result result = StaysInProfile(folder, path); !result.ok()) return result;
  }
  const host::Result<std::string> text = host::ReadWholeFile(path);
  if (!text.ok()) return CannotRead(path, text.status);
  const Result result = ParseProfile(host::DecodeText(text.value), selection, profile);
  return result.ok() ? result : Result::Failure(Shown(path) + ": " + result.failure);
}

// A file that disk.ini names, or that lies in the folder for the user's own system.
struct Source {
  const std::string& folder;  // the profile folder
  const std::string& name;    // the path of the file below the profile folder
  std::string key;            // the key of disk.ini that names the file
  bool is_own = false;        // it is a file of the user's own system, which disk.ini does not name

  std::string Path() const { return folder + "/" + name; }
  std::string Remedy() const {
    return is_own ? "Put another one into that folder." : "Give " + key + " in disk.ini another file.";
  }
};

// Finds the size of a file that disk.ini names.
Result FindSource(const Source& source, std::int64_t& size) {
  const std::string path = source.Path();
  const host::Result<host::Entry> found = host::Look(path);
  if (CouldNotLook(found.status)) return CannotRead(path, found.status);
  if (!found.ok()) {
    return Result::Failure(Shown(path) + " is missing; put it there, or take " + source.key + " out of disk.ini.");
  }
  if (Result result = StaysInProfile(source.folder, path); !result.ok()) return result;
  if (found.value.kind != host::EntryKind::kFile) {
    return Result::Failure(Shown(path) + " is not a file; correct " + source.key + " in disk.ini.");
  }
  size = found.value.size;
  return Result::Success();
}

// Reads a file that must have exactly `size` bytes. `wrong_size` ends the sentence for a file of another size.
Result ReadOfSize(const Source& source, std::size_t size, const std::string& wrong_size, std::string& content) {
  const std::string path = source.Path();
  std::int64_t found_size = 0;
  if (Result result = FindSource(source, found_size); !result.ok()) return result;
  if (found_size == static_cast<std::int64_t>(size)) {
    host::Result<std::string> read = host::ReadWholeFile(path);
    if (!read.ok()) return CannotRead(path, read.status);
    content = std::move(read.value);
    found_size = static_cast<std::int64_t>(content.size());
  }
  if (found_size == static_cast<std::int64_t>(size)) return Result::Success();
  return Result::Failure(Shown(path) + " has " + std::to_string(found_size) + " bytes; " + wrong_size);
}

Result ReadBootSector(const Source& source, std::optional<BootSector>& sector) {
  const std::string wrong_size = "a boot sector has exactly 512. " + source.Remedy();
  std::string content;
  if (Result result = ReadOfSize(source, kSectorBytes, wrong_size, content); !result.ok()) return result;
  std::ranges::copy(content, sector.emplace().begin());
  return HasBootSignature(*sector)
             ? Result::Success()
             : Result::Failure(Shown(source.Path()) + " does not end with 55 AA, so no machine would " +
                               "start from it. " + source.Remedy());
}

Result ReadBase(const Source& source, const DiskFormat& format, Image& image) {
  const std::string wrong_size = "-t " + std::string(format.type) + " needs an image of " +
                                 std::to_string(format.ImageBytes()) + ". " + source.Remedy();
  std::string content;
  if (Result result = ReadOfSize(source, format.ImageBytes(), wrong_size, content); !result.ok()) return result;
  image.assign(content.begin(), content.end());
  return Result::Success();
}

Result MakeImage(Profile& profile, const std::string& folder, const DiskFormat& format, Image& image) {
  bool is_own = false;
  if (Result result = TakeOwnSystem(folder, profile, is_own); !result.ok()) return result;
  DiskRequest request{profile, {}, {}};
  for (const ProfileFile& file : profile.files) {
    Result result = FindSource({folder, file.source, file.DiskPath()}, request.sizes.emplace_back());
    if (!result.ok()) return result;
  }
  if (!profile.boot_sector.empty()) {
    Result result = ReadBootSector({folder, profile.boot_sector, "BootSector", is_own}, request.boot_sector);
    if (!result.ok()) return result;
  }
  if (profile.base.empty()) {
    image = FormatDisk(format);
  } else if (Result result = ReadBase({folder, profile.base, "Base", is_own}, format, image); !result.ok()) {
    return result;
  }

  const auto read_content = [&](const ProfileFile& file, std::string& content) {
    const std::string path = folder + "/" + file.source;
    host::Result<std::string> read = host::ReadWholeFile(path);
    content = std::move(read.value);
    return read.ok() ? Result::Success() : CannotRead(path, read.status);
  };
  const Result result = FillDisk(request, read_content, image);
  return result.ok() ? result : Result::Failure(Shown(folder + "/disk.ini") + ": " + result.failure);
}

bool IsFloppyImage(const host::Entry& entry) {
  const bool has_size = std::ranges::any_of(kDiskFormats, [&](const DiskFormat& format) {
    return entry.size == static_cast<std::int64_t>(format.ImageBytes());
  });
  return !entry.is_link && entry.kind == host::EntryKind::kFile && has_size;
}

// Writes the image to a new file, which then takes the place of the older one. So the new image inherits nothing from
// the older file, for example no permission to be executed.
Result WriteImage(const std::string& path, const Image& image) {
  const host::Result<host::Entry> older = host::ReadEntry(path);
  if (CouldNotLook(older.status)) return CannotRead(path, older.status);
  if (older.ok() && !IsFloppyImage(older.value)) {
    return Result::Failure(Shown(path) + " is no floppy image, and is not replaced. Move it away, or give Image in " +
                           "disk.ini another name.");
  }
  host::Result<std::unique_ptr<host::PartFile>> file = host::CreatePartFile(path, image.size());
  host::Status status = file.status;
  if (status.ok()) status = file.value->WriteAt(0, image);
  if (status.ok()) status = file.value->Commit();
  if (status.ok()) return Result::Success();
  const bool may_not_grow = status.error == host::ErrorClass::kTooLarge;  // the cause already says what forbids it
  return Result::Failure(Shown(path) + " cannot be written: " + status.cause +
                         (may_not_grow ? "." : ". Make the folder writable and make room there, then try again."));
}

}  // namespace

Result CreateDisk(const Arguments& arguments, std::string_view program_folder, std::string& image_path) {
  std::string folder;
  Result result = FindProfileFolder(std::string(program_folder) + "/files/disks", arguments.profile, folder);
  Profile profile;
  if (result.ok()) result = ReadProfile(folder, arguments.selection, profile);
  Image image;
  if (result.ok()) result = MakeImage(profile, folder, *arguments.format, image);
  if (!result.ok()) return result;

  image_path = std::string(program_folder) + "/" + profile.image;
  return WriteImage(image_path, image);
}

}  // namespace discwright::tools
