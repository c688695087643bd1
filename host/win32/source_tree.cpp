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
  Status Read(std::span<std::uint8_t> bytes, std::size_t& count) override {
    return ReadSome(file_.get(), std::as_writable_bytes(bytes), count);
  }

 private:
  OwnedHandle file_;
};

class WindowsSourceTree : public SourceTree {
 public:
  explicit WindowsSourceTree(std::string root) : root_(std::move(root)) {}

  Status List(const std::string& path, const std::function<void(const TreeEntry&)>& visit) override {
    const std::string folder = base::InFolder(root_, path);
    std::vector<FoundEntry> found;
    Status status = FindEntries(folder, found);
    for (const FoundEntry& entry : found) visit(LookAt(folder, entry));
    return status;
  }

  TreeEntry Look(const std::string& path) override {
    TreeEntry entry;
    SetFacts(AnsiPath(base::InFolder(root_, path)), entry);
    return entry;
  }

  std::unique_ptr<SourceFile> Open(const std::string& path, Status& status) override {
    RegularFile file = OpenRegular(AnsiPath(base::InFolder(root_, path)), GENERIC_READ, OPEN_EXISTING,
                                   ShareEverything(), FILE_FLAG_SEQUENTIAL_SCAN);
    status = file.status;
    return status.ok() ? std::make_unique<WindowsSourceFile>(std::move(file.handle)) : nullptr;
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
    NativeFacts facts;
    entry.status = FactsOfPath(path, Links::kFollow, facts);
    if (entry.status.ok()) TakeFacts(facts, entry);
  }

  std::string root_;
};

}  // namespace

std::unique_ptr<SourceTree> OpenSourceTree(std::string_view folder, Status& status) {
  const AnsiPath root(AbsolutePath(folder));
  NativeFacts facts;
  status = FactsOfPath(root, Links::kFollow, facts);
  if (status.ok() && !facts.IsFolder()) status = StatusOf(ERROR_DIRECTORY);
  return status.ok() ? std::make_unique<WindowsSourceTree>(root.core) : nullptr;
}

}  // namespace discwright::host
