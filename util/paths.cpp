// Helper functions for path strings, files, folders and drives.
#include "util/paths.h"

#include "host/desktop.h"
#include "host/files.h"
#include "host/names.h"
#include "host/system.h"

namespace discwright::util {

namespace {

constexpr int kNtFamilyBit = 2;

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool AnyMatch(std::string_view pattern_path) {
  std::string folder;
  std::string pattern;
  SplitPath(pattern_path, folder, pattern);
  // Without the separator, "D:" would mean the current folder of that drive and not its root.
  return !pattern.empty() && !host::ListFolder(folder + "\\", pattern).value.empty();
}

}  // namespace

bool IsPathSeparator(char character) { return character == '\\' || character == '/'; }

std::string Trim(std::string_view text) { return std::string(Trimmed(text)); }

void AddBackslash(std::string& path) {
  const std::string_view trimmed = Trimmed(path);
  if (!trimmed.empty() && IsPathSeparator(trimmed.back())) return;
  path.erase(path.find_last_not_of(' ') + 1);
  path += '\\';
}

std::string StripQuotes(std::string_view text) {
  std::string_view trimmed = Trimmed(text);
  if (trimmed.size() >= 2 && trimmed.front() == '"' && trimmed.back() == '"') {
    trimmed = trimmed.substr(1, trimmed.size() - 2);
  }
  return std::string(trimmed);
}

std::string NamedFile(std::string_view text) {
  std::string file = StripQuotes(text);
  if (file.ends_with('\\')) file.pop_back();
  return file;
}

std::string Quoted(std::string_view text) {
  const std::string trimmed = Trim(text);
  return trimmed.starts_with('"') && trimmed.ends_with('"') ? trimmed : '"' + trimmed + '"';
}

std::string TrimNull(std::string_view text) { return std::string(text.substr(0, text.find('\0'))); }

void SplitPath(std::string_view full_path, std::string& folder, std::string& file) {
  const std::string path(full_path);  // a copy, because a caller may pass the same string as input and output
  const std::size_t separator = path.find_last_of("\\/");
  if (separator == std::string::npos) {
    folder = host::CurrentFolder();
    file = path;
  } else if (separator + 1 < path.size()) {
    folder = path.substr(0, separator);
    file = path.substr(separator + 1);
  }
}

std::string ParentOf(std::string path) {
  if (!path.empty() && IsPathSeparator(path.back())) path.pop_back();
  std::string parent = path;
  std::string name;
  if (path.find_first_of("\\/") != std::string::npos) SplitPath(path, parent, name);
  return parent;
}

bool IsOneFile(const std::string& a, const std::string& b) {
  if (host::SameFile(a, b)) return true;
  std::string folder_a;
  std::string folder_b;
  std::string name_a;
  std::string name_b;
  SplitPath(a, folder_a, name_a);
  SplitPath(b, folder_b, name_b);
  return host::FoldCase(name_a) == host::FoldCase(name_b) && host::SameFolder(folder_a, folder_b);
}

std::string AsTyped(const std::string& path) {
  std::string native = host::PathToNative(path);
  return native.find('\\') == std::string::npos && host::PathToNative(native) == native ? native : path;
}

bool FolderExists(std::string_view path) {
  if (Trimmed(path).empty()) return false;
  std::string folder(path);
  AddBackslash(folder);
  return host::ListFolder(folder, "*.*").status.ok();
}

bool FileExists(std::string_view path) {
  const std::string file = NamedFile(path);
  return file.find('*') == std::string::npos ? host::CheckReadable(file).ok() : AnyMatch(file);
}

bool FileExists(Notes& notes, std::string_view path) {
  const std::string file = NamedFile(path);
  const host::Status status = host::CheckReadable(file);
  const bool is_no_file = status.error == host::ErrorClass::kNotFound || status.error == host::ErrorClass::kWrongKind;
  return !is_no_file && notes.Check(status, file, "could not be opened");
}

bool RemoveIfExists(Notes& notes, const std::string& file) {
  host::ClearAttributes(file);  // if this fails, RemoveFile fails too, and its status gives the reason
  const host::Status removed = host::RemoveFile(file);
  return removed.error == host::ErrorClass::kNotFound || notes.Check(removed, file, "could not be deleted");
}

bool MakePath(std::string_view path) {
  std::string folder(path);
  if (!folder.ends_with('\\')) folder += '\\';
  return host::MakeFolders(folder).ok();
}

std::string GetShortPath(std::string_view path) {
  const std::string short_path = TrimNull(host::ShortPath(path));
  return short_path.empty() ? std::string(path) : short_path;
}

std::string FirstCDROMDrive() {
  const std::vector<std::string> drives = host::OpticalDrives();
  return drives.empty() ? "" : drives.front();
}

int GetPlatformId() { return host::PlatformId(); }

bool IsWinNT() { return (GetPlatformId() & kNtFamilyBit) != 0; }

}  // namespace discwright::util
