// Reads disk.ini and checks every value in it.
#include "tools/createdsk/profile.h"

#include <algorithm>

#include "base/ini_text.h"
#include "base/paths.h"

namespace discwright::tools {
namespace {

constexpr std::string_view kDiskKeys[] = {"image", "label", "bootsector", "base", "own"};

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& character : lower) {
    if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
  }
  return lower;
}

std::vector<std::string_view> SplitAtSeparators(std::string_view path) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t separator = path.find_first_of("\\/");
    parts.push_back(path.substr(0, separator));
    if (separator == std::string_view::npos) return parts;
    path.remove_prefix(separator + 1);
  }
}

// Users copy a profile folder to other machines, so a profile may only name files in its own folder.
bool StaysInside(std::string_view source) { return std::ranges::all_of(SplitAtSeparators(source), IsBareName); }

// The image is written into the program folder, and a profile may come from another machine. So the name of an image
// must have an ending that no file of the program has.
bool IsImageName(std::string_view name) {
  constexpr std::string_view kEnding = ".img";
  return IsBareName(name) && name.size() > kEnding.size() && Lower(name).ends_with(kEnding);
}

Result SourceFailure(std::string_view section, std::string_view key, std::string_view source) {
  return Result::Failure("[" + std::string(section) + "] " + std::string(key) + ": \"" + std::string(source) +
                         "\" is not the name of a file in the profile folder; correct it.");
}

Result CheckDiskKeys(std::string_view text) {
  for (const base::IniKey& entry : base::IniSection(text, "Disk")) {
    if (std::ranges::find(kDiskKeys, Lower(entry.key)) == std::end(kDiskKeys)) {
      return Result::Failure("[Disk] " + entry.key + " is not known; use Image, Label, BootSector, Base and Own.");
    }
  }
  return Result::Success();
}

Result ParseSource(std::string_view text, std::string_view key, std::string& source) {
  source = base::FindIniValue(text, "Disk", key).value_or("");
  return source.empty() || StaysInside(source) ? Result::Success() : SourceFailure("Disk", key, source);
}

// Base and Own both name a system of the user, so a profile has at most one of them.
Result ParseSystem(std::string_view text, Profile& profile) {
  if (Result result = ParseSource(text, "BootSector", profile.boot_sector); !result.ok()) return result;
  if (Result result = ParseSource(text, "Base", profile.base); !result.ok()) return result;
  if (Result result = ParseSource(text, "Own", profile.own); !result.ok()) return result;
  if (profile.base.empty() || profile.own.empty()) return Result::Success();
  return Result::Failure("[Disk] has both Base and Own; remove one of the lines.");
}

Result ParseLabel(std::string_view text, Profile& profile) {
  const std::string label = base::FindIniValue(text, "Disk", "Label").value_or("");
  if (label.empty()) {
    return profile.base.empty() ? Result::Failure("[Disk] Label is missing; name the disk.") : Result::Success();
  }
  const Result result = ToLabel(label, profile.label.emplace());
  return result.ok() ? result : Result::Failure("[Disk] Label \"" + label + "\" " + result.failure + ".");
}

Result ParseDisk(std::string_view text, Profile& profile) {
  if (Result result = CheckDiskKeys(text); !result.ok()) return result;
  profile.image = base::FindIniValue(text, "Disk", "Image").value_or("");
  if (profile.image.empty()) return Result::Failure("[Disk] Image is missing; name the image file to make.");
  if (!IsImageName(profile.image)) {
    return Result::Failure("[Disk] Image \"" + profile.image +
                           "\" is not a plain file name that ends in .img; give it such a name, without a folder.");
  }
  if (Result result = ParseSystem(text, profile); !result.ok()) return result;
  return ParseLabel(text, profile);
}

Result ParseFile(std::string_view section, const base::IniKey& entry, ProfileFile& file) {
  for (const std::string_view part : SplitAtSeparators(entry.key)) {
    const std::optional<ShortName> name = ToShortName(part);
    if (!name) {
      return Result::Failure("[" + std::string(section) + "] " + entry.key + " is not a DOS name; give at most 8 " +
                             "characters, a dot and 3 characters, without blanks and accents.");
    }
    file.path.push_back(*name);
  }
  file.source = entry.value;
  return StaysInside(file.source) ? Result::Success() : SourceFailure(section, entry.key, file.source);
}

auto FindPath(std::vector<ProfileFile>& files, const ProfileFile& file) {
  return std::ranges::find(files, file.path, &ProfileFile::path);
}

Result ParseFiles(std::string_view text, std::string_view section, std::vector<ProfileFile>& files) {
  for (const base::IniKey& entry : base::IniSection(text, section)) {
    ProfileFile file;
    if (Result result = ParseFile(section, entry, file); !result.ok()) return result;
    if (FindPath(files, file) != files.end()) {
      return Result::Failure("[" + std::string(section) + "] " + file.DiskPath() +
                             " stands there twice; remove one of the lines.");
    }
    files.push_back(std::move(file));
  }
  return Result::Success();
}

}  // namespace

std::string ProfileFile::DiskPath() const {
  std::string text;
  for (const ShortName& part : path) text += (text.empty() ? "" : "\\") + ToText(part);
  return text;
}

Result ParseProfile(std::string_view text, bool selection, Profile& profile) {
  profile = Profile();
  if (Result result = ParseDisk(text, profile); !result.ok()) return result;
  if (Result result = ParseFiles(text, "Files", profile.files); !result.ok()) return result;
  if (Result result = ParseFiles(text, "WithoutOwn", profile.files_without_own); !result.ok()) return result;
  if (!selection) return Result::Success();

  std::vector<ProfileFile> selected;
  if (Result result = ParseFiles(text, "Selection", selected); !result.ok()) return result;
  AddFiles(std::move(selected), profile.files);
  return Result::Success();
}

void AddFiles(std::vector<ProfileFile> more, std::vector<ProfileFile>& files) {
  for (ProfileFile& file : more) {
    const auto same = FindPath(files, file);
    if (same != files.end()) {
      same->source = std::move(file.source);
    } else {
      files.push_back(std::move(file));
    }
  }
}

bool IsBareName(std::string_view name) {
  const auto forbidden = [](char character) {
    return static_cast<unsigned char>(character) < ' ' ||
           std::string_view("\\/:*?\"<>|").find(character) != std::string_view::npos;
  };
  return !name.empty() && name != "." && name != ".." && std::ranges::none_of(name, forbidden) &&
         !base::IsDevicePath(name);
}

}  // namespace discwright::tools
