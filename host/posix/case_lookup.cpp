// Looks names up ignoring letter case, with the names of the last few folders kept in memory.
#include "host/posix/case_lookup.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <unordered_map>

#include "host/names.h"
#include "host/posix/folder_reader.h"
#include "host/posix/native_path.h"

namespace discwright::host {
namespace {

bool IsMissing(int error) { return error == ENOENT || error == ENOTDIR; }

bool Exists(const std::string& native) {
  struct stat facts {};
  return lstat(native.c_str(), &facts) == 0 || !IsMissing(errno);
}

std::string FoldedName(std::string_view native_name) { return FoldCase(CoreName(native_name)); }

// Which folder it is and when it last changed.
struct Stamp {
  dev_t device = 0;
  ino_t inode = 0;
  timespec modified{};
  timespec changed{};

  explicit Stamp(const struct stat& facts)
      : device(facts.st_dev), inode(facts.st_ino), modified(facts.st_mtim), changed(facts.st_ctim) {}
  bool SameFolder(const Stamp& other) const { return device == other.device && inode == other.inode; }
  bool SameTimes(const Stamp& other) const {
    return modified.tv_sec == other.modified.tv_sec && modified.tv_nsec == other.modified.tv_nsec &&
           changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
  }
};

// The names of one folder as they were at the time of its stamp.
struct Snapshot {
  Stamp stamp;
  std::unordered_map<std::string, std::string> names;  // folded name -> real name
  std::string announced;  // the new name that the last lookup reported; it is expected to be created next
  std::uint64_t last_used = 0;

  void Add(std::string_view name) {
    const auto [place, is_new] = names.try_emplace(FoldedName(name), name);
    if (!is_new && name < place->second) place->second = name;
  }
};

std::optional<Snapshot> TakeSnapshot(const std::string& folder) {
  FolderReader reader(folder);
  struct stat facts {};
  // The stamp is taken before the names: a change in between makes the snapshot stale, never wrongly fresh.
  if (!reader.status().ok() || fstat(reader.fd(), &facts) != 0) return std::nullopt;
  Snapshot snapshot{Stamp(facts), {}, {}};
  while (const dirent* entry = reader.Next()) snapshot.Add(entry->d_name);
  // With some of the names missing, a file that is there would be taken for a new one.
  if (!reader.status().ok()) return std::nullopt;
  return snapshot;
}

class FolderCache {
 public:
  // The real spelling of `name` in a folder, or `name` itself when it is new there; nothing when the folder is missing.
  std::optional<std::string> Find(const std::string& folder, std::string_view name) {
    const std::lock_guard lock(mutex_);
    struct stat facts {};
    if (stat(folder.c_str(), &facts) != 0) {
      return IsMissing(errno) ? std::nullopt : std::optional<std::string>(name);
    }
    const std::string folded = FoldedName(name);
    for (const bool reload : {false, true}) {
      Snapshot* snapshot = Fresh(folder, Stamp(facts), reload);
      if (snapshot == nullptr) break;
      const auto found = snapshot->names.find(folded);
      if (found == snapshot->names.end()) {
        snapshot->announced = name;
        break;
      }
      // A name deleted within the clock's granularity leaves the stamp as it was: believe it only when it is there.
      if (Exists(NativeJoin(folder, found->second))) return found->second;
    }
    return std::string(name);
  }

  void NoteCreated(const std::string& native) {
    const std::lock_guard lock(mutex_);
    struct stat facts {};
    if (stat(NativeFolder(native).c_str(), &facts) != 0) return;
    const Stamp stamp(facts);
    const auto place = Place(stamp);
    // Only right after a lookup the names are known to be up to date; otherwise the folder must be read again.
    if (place == folders_.end() || (*place)->announced != NativeName(native)) return;
    (*place)->announced.clear();
    (*place)->Add(NativeName(native));
    (*place)->stamp = stamp;
  }

  void NoteChanged(const std::string& folder) {
    const std::lock_guard lock(mutex_);
    struct stat facts {};
    if (stat(folder.c_str(), &facts) != 0) return;
    const auto place = Place(Stamp(facts));
    // The clock may be too coarse to show it in the folder's times.
    if (place != folders_.end()) place->reset();
  }

 private:
  using Folders = std::array<std::unique_ptr<Snapshot>, 8>;

  Folders::iterator Place(const Stamp& stamp) {
    return std::find_if(folders_.begin(), folders_.end(),
                        [&](const auto& folder) { return folder != nullptr && folder->stamp.SameFolder(stamp); });
  }

  // The names of the folder with this stamp, read again when they are not known or out of date.
  Snapshot* Fresh(const std::string& folder, const Stamp& stamp, bool reload) {
    auto place = Place(stamp);
    const bool known = place != folders_.end();
    if (!known || reload || !(*place)->stamp.SameTimes(stamp)) {
      std::optional<Snapshot> names = TakeSnapshot(folder);
      if (!names) return nullptr;
      if (!known) place = LeastUsed();
      *place = std::make_unique<Snapshot>(std::move(*names));
    }
    (*place)->last_used = ++clock_;
    return place->get();
  }

  Folders::iterator LeastUsed() {
    return std::min_element(folders_.begin(), folders_.end(), [](const auto& a, const auto& b) {
      return (a ? a->last_used : 0) < (b ? b->last_used : 0);
    });
  }

  std::mutex mutex_;
  Folders folders_;
  std::uint64_t clock_ = 0;
};

FolderCache& Cache() {
  static FolderCache cache;
  return cache;
}

// The real spelling of a native path that does not exist as written: first its folder's, then the name in there.
std::string LookUp(const std::string& native) {
  const std::string_view name = NativeName(native);
  if (name.empty()) return native;
  std::string folder = NativeFolder(native);
  std::optional<std::string> real = Cache().Find(folder, name);
  if (!real) {
    folder = LookUp(folder);
    real = Cache().Find(folder, name);
  }
  return NativeJoin(folder, real ? *real : std::string(name));
}

}  // namespace

std::string RealPath(std::string_view path) {
  std::string native = NativePath(path);
  return native.empty() || Exists(native) ? native : LookUp(native);
}

std::string RealPathOfNew(std::string_view path) {
  std::string native = NativePath(path);
  const std::string_view name = NativeName(native);
  if (name.empty()) return native;
  const std::optional<std::string> real = Cache().Find(NativeFolder(native), name);
  // Anything but a new name in an existing folder: an exact match of the whole path goes first.
  return real && *real == name ? native : RealPath(path);
}

void NoteCreated(const std::string& native) { Cache().NoteCreated(native); }

void NoteChanged(const std::string& folder) { Cache().NoteChanged(folder); }

}  // namespace discwright::host
