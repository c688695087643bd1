// Reads folder trees for a disc image.
#include "host/source_tree.h"

#include <windows.h>

#include "base/paths.h"
#include "host/win32/errors.h"
#include "host/win32/file_facts.h"
#include "host/win32/find_entries.h"
#include "host/win32/native_path.h"
#include "host/win32/regular_file.h"

namespace discwright::host {
namespace {

void TakeFacts(const NativeFacts& facts, TreeEntry& entry) {
  entry.kind = facts.IsFolder() ? EntryKind::kFolder : EntryKind::kFile;
  entry.size = entry.kind == EntryKind::kFile ? facts.size : 0;
  entry.modified = facts.ModifiedSeconds();
  entry.volume = facts.volume;
  entry.id = facts.number;
  entry.has_other_names = entry.kind == EntryKind::kFile && facts.links > 1;
}

class WindowsSourceFile : public SourceFile {
 public:
  explicit WindowsSourceFile(OwnedHandle file) : file_(std::move(file)) {}
  Result<std::size_t> Read(std::span<std::uint8_t> bytes) override {
    return ReadSome(file_.get(), std::as_writable_bytes(bytes));
  }

 private:
  OwnedHandle file_;
};

class WindowsSourceTree : public SourceTree {
 public:
  explicit WindowsSourceTree(std::string root) : root_(std::move(root)) {}

  Status List(const std::string& path, const std::function<void(const TreeEntry&)>& visit) override {
    const std::string folder = base::InFolder(root_, path);
    const Result<std::vector<FoundEntry>> found = FindEntries(folder);
    for (const FoundEntry& entry : found.value) visit(LookAt(folder, entry));
    return found.status;
  }

  TreeEntry Look(const std::string& path) override {
    TreeEntry entry;
    SetFacts(AnsiPath(base::InFolder(root_, path)), entry);
    return entry;
  }

  Result<std::unique_ptr<SourceFile>> Open(const std::string& path) override {
    RegularFile file = OpenRegular(AnsiPath(base::InFolder(root_, path)), GENERIC_READ, OPEN_EXISTING,
                                   ShareEverything(), FILE_FLAG_SEQUENTIAL_SCAN);
    if (!file.status.ok()) return file.status;
    return std::make_unique<WindowsSourceFile>(std::move(file.handle));
  }

 private:
  static TreeEntry LookAt(const std::string& folder, const FoundEntry& found) {
    TreeEntry entry;
    entry.name = found.name;
    entry.is_link = IsLink(found.data);
    if (base::IsDevicePath(found.name)) {
      entry.kind = EntryKind::kSpecial;
    } else {
      SetFacts(AnsiPath(base::InFolder(folder, found.name)), entry);
    }
    return entry;
  }

  static void SetFacts(const AnsiPath& path, TreeEntry& entry) {
    const Result<NativeFacts> facts = FactsOfPath(path, Links::kFollow);
    entry.status = facts.status;
    if (facts.ok()) TakeFacts(facts.value, entry);
  }

  std::string root_;
};

}  // namespace

Result<std::unique_ptr<SourceTree>> OpenSourceTree(std::string_view folder) {
  const AnsiPath root(AbsolutePath(folder));
  const Result<NativeFacts> facts = FactsOfPath(root, Links::kFollow);
  if (!facts.ok()) return facts.status;
  if (!facts.value.IsFolder()) return StatusOf(ERROR_DIRECTORY);
  return std::make_unique<WindowsSourceTree>(root.core);
}

}  // namespace discwright::host
