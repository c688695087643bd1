// Implements the functions of the host in memory.
#include "tests/support/fake_host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <stdexcept>

#include "base/sha256.h"
#include "base/temporary_names.h"
#include "host/folder_facts.h"
#include "host/left_files.h"
#include "host/names.h"

namespace discwright::testing {

namespace {

FakeHost* current_host = nullptr;

constexpr int kMaximalLinks = 32;

bool IsSeparator(char character) { return character == '\\' || character == '/'; }

std::string ParentKey(const std::string& key) {
  const std::size_t separator = key.rfind('\\');
  return separator == std::string::npos ? "" : key.substr(0, separator);
}

std::string LastComponent(std::string_view path) {
  while (!path.empty() && IsSeparator(path.back())) path.remove_suffix(1);
  const std::size_t separator = path.find_last_of("\\/");
  return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  if (pattern.empty()) return name.empty();
  if (pattern.front() == '*') {
    return MatchesPattern(name, pattern.substr(1)) || (!name.empty() && MatchesPattern(name.substr(1), pattern));
  }
  return !name.empty() && (pattern.front() == '?' || pattern.front() == name.front()) &&
         MatchesPattern(name.substr(1), pattern.substr(1));
}

bool Matches(std::string_view name, std::string_view pattern) {
  const std::string folded_name = host::FoldCase(name);
  std::string folded_pattern = host::FoldCase(pattern);
  if (MatchesPattern(folded_name, folded_pattern)) return true;
  // "WIN51*.*" also matches a name without a dot.
  return folded_pattern.ends_with(".*") && folded_name.find('.') == std::string::npos &&
         MatchesPattern(folded_name, folded_pattern.substr(0, folded_pattern.size() - 2));
}

host::Status Missing() { return host::Status::Failure(host::ErrorClass::kNotFound, "No such file or directory"); }

}  // namespace

FakeHost::FakeHost() {
  if (current_host != nullptr) throw std::logic_error("one FakeHost at a time");
  current_host = this;
  AddFolder(program_folder);
  AddFolder(current_folder);
}

FakeHost::~FakeHost() { current_host = nullptr; }

FakeHost& FakeHost::Current() {
  if (current_host == nullptr) throw std::logic_error("this test has no FakeHost");
  return *current_host;
}

// The canonical path in lower case: single "\" as separators, none at the end, "." and ".." resolved. A path without a
// drive is below the current folder. Resolve() follows links.
std::string FakeHost::Key(std::string_view path) {
  std::string text(path);
  const bool absolute = (text.size() >= 2 && text[1] == ':') || (!text.empty() && IsSeparator(text[0]));
  if (!absolute) text = Current().current_folder + "\\" + text;
  std::string key;
  std::string component;
  const auto take = [&] {
    if (component == "..") {
      key = ParentKey(key);
    } else if (!component.empty() && component != ".") {
      key += (key.empty() ? "" : "\\") + component;
    }
    component.clear();
  };
  for (const char character : text) {
    if (IsSeparator(character)) {
      take();
    } else {
      component += character;
    }
  }
  take();
  return host::FoldCase(key);
}

namespace {

// The key of a path after following the links in it; with `follow` also a link at its end.
std::string Resolve(FakeHost& fake, const std::string& key, bool follow, int depth = 0) {
  if (depth > kMaximalLinks) return key;
  std::string resolved;
  std::size_t start = 0;
  while (start <= key.size()) {
    const std::size_t end = std::min(key.find('\\', start), key.size());
    resolved += (resolved.empty() ? "" : "\\") + key.substr(start, end - start);
    const auto node = fake.nodes.find(resolved);
    const bool last = end == key.size();
    if (node != fake.nodes.end() && !node->second.link_target.empty() && (!last || follow)) {
      resolved = Resolve(fake, FakeHost::Key(node->second.link_target), true, depth + 1);
    }
    start = end + 1;
  }
  return resolved;
}

FakeHost::Node* FindFollowing(std::string_view path) {
  FakeHost& fake = FakeHost::Current();
  const auto node = fake.nodes.find(Resolve(fake, FakeHost::Key(path), true));
  return node == fake.nodes.end() ? nullptr : &node->second;
}

host::Entry EntryOf(const FakeHost::Node& node) {
  host::Entry entry;
  entry.name = node.name;
  entry.problem = node.problem;
  if (!entry.problem.ok()) return entry;
  const FakeHost::Node* real = &node;
  if (!node.link_target.empty()) {
    entry.is_link = true;
    entry.loops = node.loops;
    real = FindFollowing(node.link_target);
    entry.broken = real == nullptr;
    if (entry.broken) return entry;
  }
  entry.kind = real->kind;
  if (real->kind == host::EntryKind::kFile) {
    entry.size = real->size_override >= 0 ? real->size_override : static_cast<std::int64_t>(real->content.size());
  }
  return entry;
}

}  // namespace

FakeHost::Node* FakeHost::Find(std::string_view path) {
  const auto node = nodes.find(Resolve(*this, Key(path), false));
  return node == nodes.end() ? nullptr : &node->second;
}

void FakeHost::AddFolder(std::string_view path) {
  const std::string key = Resolve(*this, Key(path), true);
  if (nodes.contains(key)) return;
  if (const std::string parent = ParentKey(key); !parent.empty()) {
    std::string_view spelled = path;
    while (!spelled.empty() && IsSeparator(spelled.back())) spelled.remove_suffix(1);
    const std::size_t separator = spelled.find_last_of("\\/");
    AddFolder(separator == std::string_view::npos ? std::string_view(current_folder) : spelled.substr(0, separator));
  }
  Node node;
  node.name = LastComponent(path);
  node.kind = host::EntryKind::kFolder;
  node.number = ++last_number_;
  nodes[key] = node;
}

void FakeHost::AddFile(std::string_view path, std::string_view content, bool read_only) {
  if (const std::size_t separator = path.find_last_of("\\/"); separator != std::string_view::npos) {
    AddFolder(path.substr(0, separator));
  }
  const std::string key = Resolve(*this, Key(path), true);
  Node& node = nodes[key];
  if (node.name.empty()) node.name = LastComponent(path);
  node.kind = host::EntryKind::kFile;
  node.content = content;
  node.read_only = read_only;
}

void FakeHost::AddFileOfSize(std::string_view path, std::int64_t size) {
  AddFile(path, "");
  Find(path)->size_override = size;
}

void FakeHost::AddSpecial(std::string_view path) {
  AddFile(path, "");
  Find(path)->kind = host::EntryKind::kSpecial;
}

void FakeHost::AddLink(std::string_view path, std::string_view target, bool loops) {
  AddFile(path, "");
  Find(path)->loops = loops;
  Find(path)->link_target = target;
}

void FakeHost::AddLeftFile(std::string_view path, std::string_view content, bool read_only) {
  AddFile(path, content, read_only);
  for (const std::string name : {"\\vexacd", "\\advtemp"}) {
    const host::Result<host::FolderFacts> facts = host::FactsOfFolder(program_folder + name);
    if (facts.ok()) AddFile(program_folder + name + ".own", facts.value.identity);
  }
}

void FakeHost::SetProblem(std::string_view path, host::ErrorClass error, std::string_view cause) {
  Find(path)->problem = host::Status::Failure(error, std::string(cause));
}

bool FakeHost::Exists(std::string_view path) const { return const_cast<FakeHost*>(this)->Find(path) != nullptr; }

std::string FakeHost::Content(std::string_view path) const {
  const Node* node = FindFollowing(path);
  return node == nullptr || node->kind != host::EntryKind::kFile ? "<missing>" : node->content;
}

std::string FakeHost::RealName(std::string_view path) const {
  const Node* node = const_cast<FakeHost*>(this)->Find(path);
  return node == nullptr ? "<missing>" : node->name;
}

std::vector<std::string> FakeHost::Files() const {
  std::vector<std::string> files;
  for (const auto& [key, node] : nodes) {
    if (node.kind != host::EntryKind::kFile) continue;
    std::string path = node.name;
    for (std::string parent = ParentKey(key); !parent.empty(); parent = ParentKey(parent)) {
      path = nodes.at(parent).name + "\\" + path;
    }
    files.push_back(path);
  }
  std::sort(files.begin(), files.end());
  return files;
}

void FakeHost::FailOn(std::string_view function, std::string_view path_part, host::ErrorClass error,
                      std::string_view cause, int times) {
  injected_.push_back(
      {std::string(function), host::FoldCase(path_part), host::Status::Failure(error, std::string(cause)), times});
}

void FakeHost::FailCall(int number) {
  calls_until_failure_ = number;
  failed_call_.clear();
}

host::Status FakeHost::Enter(std::string_view function, std::string_view path, std::string_view record) {
  if (!record.empty()) calls.push_back(std::string(function) + " " + std::string(record));
  if (calls_until_failure_-- == 0) {
    failed_call_ = std::string(function).append(" ").append(path);
    return host::Status::Failure(host::ErrorClass::kNotReady, "Input/output error");
  }
  for (Injected& injected : injected_) {
    if (injected.function != function || injected.times == 0) continue;
    if (host::FoldCase(path).find(injected.path_part) == std::string::npos) continue;
    --injected.times;
    return injected.status;
  }
  return host::Status::Success();
}

}  // namespace discwright::testing

namespace discwright::host {

using testing::FakeHost;

namespace {

FakeHost& Fake() { return FakeHost::Current(); }

FakeHost::Node* Following(std::string_view path) { return testing::FindFollowing(path); }

// Finds the key for a new file with this path, or the failure of making it.
Status Place(std::string_view path, std::string& key) {
  key = testing::Resolve(Fake(), FakeHost::Key(path), true);
  const auto parent = Fake().nodes.find(testing::ParentKey(key));
  if (parent == Fake().nodes.end() || parent->second.kind != EntryKind::kFolder) return testing::Missing();
  const auto node = Fake().nodes.find(key);
  if (node == Fake().nodes.end()) return Status::Success();
  if (node->second.kind != EntryKind::kFile) return Status::Failure(ErrorClass::kWrongKind, "Is a directory");
  if (node->second.read_only) return Status::Failure(ErrorClass::kAccessDenied, "Permission denied");
  return Status::Success();
}

Status Store(std::string_view path, std::string_view content, std::int64_t size_override = -1) {
  std::string key;
  if (const Status status = Place(path, key); !status.ok()) return status;
  FakeHost::Node& node = Fake().nodes[key];
  if (node.name.empty()) node.name = testing::LastComponent(path);
  node.content = content;
  node.size_override = size_override;
  return Status::Success();
}

Status NotAFile() { return Status::Failure(ErrorClass::kWrongKind, "not a regular file"); }

void RemoveLink(std::string_view path) {
  const std::string key = testing::Resolve(Fake(), FakeHost::Key(path), false);
  const auto node = Fake().nodes.find(key);
  if (node != Fake().nodes.end() && !node->second.link_target.empty()) Fake().nodes.erase(node);
}

bool HasChildren(const std::string& key) {
  const auto child = Fake().nodes.lower_bound(key + "\\");
  return child != Fake().nodes.end() && child->first.starts_with(key + "\\");
}

class FakeFile : public BinaryFile {
 public:
  FakeFile(std::string path, FakeHost::Node& node) : path_(std::move(path)), node_(node) {}

  Result<std::int64_t> Length() override { return static_cast<std::int64_t>(node_.content.size()); }

  Status ReadAt(std::int64_t position, std::span<std::byte> bytes) override {
    if (Status status = Fake().Enter("ReadAt", path_); !status.ok()) return status;
    const auto start = static_cast<std::size_t>(position);
    if (start + bytes.size() > node_.content.size())
      return Status::Failure(ErrorClass::kOther, "unexpected end of file");
    if (!bytes.empty()) std::memcpy(bytes.data(), node_.content.data() + start, bytes.size());
    return Status::Success();
  }

  Status WriteAt(std::int64_t position, std::span<const std::byte> bytes) override {
    if (Status status = Fake().Enter("WriteAt", path_); !status.ok()) return status;
    const auto start = static_cast<std::size_t>(position);
    if (node_.content.size() < start + bytes.size()) node_.content.resize(start + bytes.size());
    if (!bytes.empty()) std::memcpy(node_.content.data() + start, bytes.data(), bytes.size());
    return Status::Success();
  }

 private:
  std::string path_;
  FakeHost::Node& node_;
};

}  // namespace

Listing ListFolder(std::string_view folder, std::string_view pattern) {
  if (Status status = Fake().Enter("ListFolder", folder); !status.ok()) return status;
  const FakeHost::Node* node = Following(folder);
  if (node == nullptr || node->kind != EntryKind::kFolder) return testing::Missing();
  std::vector<Entry> entries;
  std::string prefix = testing::Resolve(Fake(), FakeHost::Key(folder), true);
  if (!prefix.empty()) prefix += "\\";  // the root of a system without drives has no prefix
  for (auto child = Fake().nodes.lower_bound(prefix); child != Fake().nodes.end() && child->first.starts_with(prefix);
       ++child) {
    if (child->first == prefix || child->first.find('\\', prefix.size()) != std::string::npos) continue;
    if (testing::Matches(child->second.name, pattern)) entries.push_back(testing::EntryOf(child->second));
  }
  std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) { return a.name < b.name; });
  return entries;
}

Result<Entry> Look(std::string_view path) {
  if (Status status = Fake().Enter("Look", path); !status.ok()) return status;
  const FakeHost::Node* node = path.empty() ? nullptr : Following(path);
  if (node == nullptr) return testing::Missing();
  Entry entry = testing::EntryOf(*node);
  if (!entry.problem.ok()) return entry.problem;
  const FakeHost::Node* named = Fake().Find(path);
  entry.is_link = named != nullptr && !named->link_target.empty();
  return entry;
}

bool SameFolder(std::string_view a, std::string_view b) {
  const FakeHost::Node* node = Following(a);
  return node != nullptr && node->kind == EntryKind::kFolder && node == Following(b);
}

bool SameFile(std::string_view a, std::string_view b) {
  const FakeHost::Node* node = Following(a);
  return node != nullptr && node->kind != EntryKind::kFolder && node == Following(b);
}

Result<FolderFacts> FactsOfFolder(std::string_view path) {
  if (Status status = Fake().Enter("FactsOfFolder", path); !status.ok()) return status;
  const FakeHost::Node* node = Fake().Find(path);
  if (node == nullptr) return testing::Missing();
  if (node->kind != EntryKind::kFolder) return Status::Failure(ErrorClass::kWrongKind, "Not a directory");
  return FolderFacts{std::to_string(node->number), Fake().mount_points.contains(FakeHost::Key(path))};
}

// A path that goes through a link or a parent is in lower case then, because the fake finds names by their keys.
std::string FollowedPath(std::string_view path) {
  const std::string key = FakeHost::Key(path);
  std::string followed = testing::Resolve(Fake(), key, true);
  const bool is_plain = followed == key && path.size() > 1 && path[1] == ':' && path.find("..") == path.npos;
  return is_plain ? std::string(path) : followed;
}

void RemoveLeftFiles(std::string_view folder) {
  for (const Entry& entry : ListFolder(folder, "*.*").value) {
    if (base::IsTemporaryName(entry.name)) Fake().nodes.erase(FakeHost::Key(std::string(folder) + "\\" + entry.name));
  }
}

Status CheckReadable(std::string_view path) {
  if (Status status = Fake().Enter("CheckReadable", path); !status.ok()) return status;
  const bool names_a_folder = path.ends_with('\\') || path.ends_with('/');
  const FakeHost::Node* node = Following(path);
  if (node == nullptr) return testing::Missing();
  if (names_a_folder || node->kind != EntryKind::kFile) return NotAFile();
  return Status::Success();
}

Status MakeFolders(std::string_view path) {
  if (Status status = Fake().Enter("MakeFolders", path, path); !status.ok()) return status;
  if (const FakeHost::Node* node = Following(path); node != nullptr) {
    return node->kind == EntryKind::kFolder ? Status::Success() : Status::Failure(ErrorClass::kExists, "File exists");
  }
  Fake().AddFolder(path);
  return Status::Success();
}

Status ClearAttributes(std::string_view path) {
  if (Status status = Fake().Enter("ClearAttributes", path); !status.ok()) return status;
  FakeHost::Node* node = Fake().Find(path);
  if (node == nullptr) return testing::Missing();
  node->read_only = false;
  return Status::Success();
}

Status RemoveFile(std::string_view path) {
  if (Status status = Fake().Enter("RemoveFile", path, path); !status.ok()) return status;
  const FakeHost::Node* node = Fake().Find(path);
  if (node == nullptr) return testing::Missing();
  if (node->read_only) return Status::Failure(ErrorClass::kAccessDenied, "Permission denied");
  if (node->kind == EntryKind::kFolder) return Status::Failure(ErrorClass::kWrongKind, "Is a directory");
  Fake().nodes.erase(testing::Resolve(Fake(), FakeHost::Key(path), false));
  return Status::Success();
}

Status RemoveEmptyFolder(std::string_view path) {
  if (Status status = Fake().Enter("RemoveEmptyFolder", path, path); !status.ok()) return status;
  const FakeHost::Node* node = Fake().Find(path);
  if (node == nullptr) return testing::Missing();
  if (node->kind != EntryKind::kFolder) return Status::Failure(ErrorClass::kWrongKind, "Not a directory");
  const std::string key = testing::Resolve(Fake(), FakeHost::Key(path), false);
  if (HasChildren(key)) return Status::Failure(ErrorClass::kOther, "Directory not empty");
  Fake().nodes.erase(key);
  return Status::Success();
}

Status RenameFile(std::string_view from, std::string_view to) {
  const std::string record = std::string(from) + " -> " + std::string(to);
  if (Status status = Fake().Enter("RenameFile", record, record); !status.ok()) return status;
  FakeHost::Node* node = Following(from);
  if (node == nullptr) return testing::Missing();
  if (Fake().Find(to) != nullptr) return Status::Failure(ErrorClass::kExists, "File exists");
  if (Status status = Store(to, node->content, node->size_override); !status.ok()) return status;
  Fake().nodes.erase(testing::Resolve(Fake(), FakeHost::Key(from), true));
  return Status::Success();
}

Result<std::string> ReadWholeFile(std::string_view path, std::int64_t most) {
  if (Status status = Fake().Enter("ReadWholeFile", path); !status.ok()) return status;
  const FakeHost::Node* node = Following(path);
  if (node == nullptr) return testing::Missing();
  if (node->kind != EntryKind::kFile) return Status::Failure(ErrorClass::kWrongKind, "Is a directory");
  const auto size = static_cast<std::int64_t>(node->content.size());
  if (size > most) return TooLarge(size, most);
  return node->content;
}

Status WriteWholeFile(std::string_view path, std::string_view content, FileTimes times) {
  const std::string record = std::string(path) + (times == FileTimes::kKept ? " (keeping its times)" : "");
  if (Status status = Fake().Enter("WriteWholeFile", path, record); !status.ok()) return status;
  RemoveLink(path);
  return Store(path, content);
}

Status CopyFileWithProgress(std::string_view from, std::string_view to, const CopyRoutine& routine) {
  const std::string record = std::string(from) + " -> " + std::string(to);
  if (Status status = Fake().Enter("CopyFileWithProgress", record, record); !status.ok()) return status;
  const FakeHost::Node* source = Following(from);
  if (source == nullptr) return testing::Missing();
  if (source->kind != EntryKind::kFile) return NotAFile();
  const auto stopped = [] { return Status::Failure(ErrorClass::kOther, "stopped"); };
  const Entry entry = testing::EntryOf(*source);
  if (routine && !routine(CopyEvent::kStreamSwitch, 0)) return stopped();
  for (int piece = 1; routine && piece <= Fake().pieces_per_file; ++piece) {
    if (!routine(CopyEvent::kChunkFinished, entry.size * piece / Fake().pieces_per_file)) return stopped();
  }
  return Store(to, source->content, source->size_override);
}

Status CopyWholeFile(std::string_view from, std::string_view to) {
  const std::string record = std::string(from) + " -> " + std::string(to);
  if (Status status = Fake().Enter("CopyWholeFile", record, record); !status.ok()) return status;
  const FakeHost::Node* source = Following(from);
  if (source == nullptr) return testing::Missing();
  return source->kind == EntryKind::kFile ? Store(to, source->content, source->size_override) : NotAFile();
}

Result<std::unique_ptr<BinaryFile>> OpenBinary(std::string_view path, OpenMode mode) {
  Status status = Fake().Enter("OpenBinary", path, path);
  if (!status.ok()) return status;
  if (mode == OpenMode::kCreateEmpty) RemoveLink(path);
  FakeHost::Node* node = Following(path);
  if (mode == OpenMode::kRead && node == nullptr) status = testing::Missing();
  if (node != nullptr && node->kind != EntryKind::kFile) {
    status = NotAFile();
  }
  if (mode != OpenMode::kRead && status.ok() && (node == nullptr || mode == OpenMode::kCreateEmpty)) {
    status = Store(path, "");
  } else if (mode == OpenMode::kReadWrite && status.ok() && node->read_only) {
    status = Status::Failure(ErrorClass::kAccessDenied, "Permission denied");
  }
  if (!status.ok()) return status;
  return std::make_unique<FakeFile>(std::string(path), *Following(path));
}

Result<std::string> Sha256OfFile(std::string_view path, const std::function<bool()>& go_on) {
  Status status = Fake().Enter("Sha256OfFile", path);
  if (status.ok() && Following(path) == nullptr) status = testing::Missing();
  if (status.ok() && Following(path)->kind != EntryKind::kFile) status = NotAFile();
  if (status.ok() && go_on && !go_on()) status = StoppedReading();
  if (!status.ok()) return status;
  base::Sha256 digest;
  digest.Add(std::as_bytes(std::span(Following(path)->content)));
  return digest.Finish();
}

std::string ProgramFolder() { return Fake().program_folder; }
void UseProgramFolder(std::string_view folder) { Fake().program_folder = folder; }
std::string CurrentFolder() { return Fake().current_folder; }
std::shared_ptr<void> ClaimFolder(std::string_view folder) {
  return folder == Fake().claimed_folder ? nullptr : std::make_shared<int>();
}
int PlatformId() { return Fake().platform_id; }
std::vector<std::string> OpticalDrives() { return Fake().optical_drives; }
std::vector<std::string> DriveRoots() { return Fake().drive_roots; }
std::string HomeFolder() { return Fake().home_folder; }
std::string DataHome() { return Fake().data_home; }
std::string FileManagerLine(std::string_view folder) {
  return (Fake().windows_folder + "explorer.exe ").append(folder);
}
Date Today() { return Fake().today; }
}  // namespace discwright::host
