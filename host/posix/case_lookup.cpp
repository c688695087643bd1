// Looks names up ignoring letter case, with the names of the last few folders kept in memory.
#include "host/posix/case_lookup.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "host/names.h"
#include "host/posix/errors.h"
#include "host/posix/folder_reader.h"
#include "host/posix/native_path.h"

namespace discwright::host {
namespace {

// Whether a folder that may be searched but not listed is a failure, or counts as a folder without the name.
enum class Unlisted { kFailure, kEmpty };

// The failure is kNotFound when there is nothing.
Status LookAt(const std::string& native) {
  struct stat facts {};
  return StatusOfResult(lstat(native.c_str(), &facts));
}

bool IsMissing(const Status& status) { return status.error == ErrorClass::kNotFound; }

std::string FoldedName(std::string_view native_name) { return FoldCase(CoreName(native_name)); }

// The identity of a folder, and the times of its last changes.
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

// The names in one folder, as they were at the time of the stamp.
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

Result<std::unique_ptr<Snapshot>> TakeSnapshot(const std::string& folder) {
  FolderReader reader(folder);
  struct stat facts {};
  if (!reader.status().ok()) return reader.status();
  // The stamp is taken before the names. A change in between makes the snapshot too old, but never wrong and fresh.
  if (fstat(reader.fd(), &facts) != 0) return LastFailure();
  auto snapshot = std::make_unique<Snapshot>(Snapshot{Stamp(facts), {}, {}});
  while (const dirent* entry = reader.Next()) snapshot->Add(entry->d_name);
  // With some of the names missing, a file that is there would be taken for a new one.
  if (!reader.status().ok()) return reader.status();
  return snapshot;
}

class FolderCache {
 public:
  // The real spelling of `name` in a folder, or `name` itself when it is new there. The failure is kNotFound when the
  // folder is missing.
  Result<std::string> Find(const std::string& folder, std::string_view name, Unlisted unlisted) {
    const std::lock_guard lock(mutex_);
    struct stat facts {};
    if (stat(folder.c_str(), &facts) != 0) return LastFailure();
    const std::string folded = FoldedName(name);
    for (const bool reload : {false, true}) {
      const Result<Snapshot*> snapshot = Fresh(folder, Stamp(facts), reload);
      if (snapshot.status.error == ErrorClass::kAccessDenied && unlisted == Unlisted::kEmpty) break;
      // A folder that has just been removed is missing; one that is no folder has no names.
      if (!snapshot.ok()) return snapshot.status;
      const auto found = snapshot.value->names.find(folded);
      if (found == snapshot.value->names.end()) {
        snapshot.value->announced = name;
        break;
      }
      // The stamp does not show a deletion that follows within one tick of the clock. So the name is looked at.
      const Status there = LookAt(NativeJoin(folder, found->second));
      if (there.ok()) return found->second;
      if (!IsMissing(there)) return there;
    }
    return std::string(name);
  }

  void NoteCreated(const std::string& native) {
    const std::lock_guard lock(mutex_);
    struct stat facts {};
    if (stat(NativeFolder(native).c_str(), &facts) != 0) return;
    const Stamp stamp(facts);
    const auto place = Place(stamp);
    // The names are only known to be up to date right after a lookup. Otherwise the folder must be read again.
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
    // The clock may be too coarse to show the change in the times of the folder.
    if (place != folders_.end()) place->reset();
  }

 private:
  using Folders = std::array<std::unique_ptr<Snapshot>, 8>;

  Folders::iterator Place(const Stamp& stamp) {
    return std::find_if(folders_.begin(), folders_.end(),
                        [&](const auto& folder) { return folder != nullptr && folder->stamp.SameFolder(stamp); });
  }

  // The names of the folder with this stamp. They are read again when they are not known or out of date.
  Result<Snapshot*> Fresh(const std::string& folder, const Stamp& stamp, bool reload) {
    auto place = Place(stamp);
    const bool known = place != folders_.end();
    if (!known || reload || !(*place)->stamp.SameTimes(stamp)) {
      Result<std::unique_ptr<Snapshot>> names = TakeSnapshot(folder);
      if (!names.ok()) return names.status;
      if (!known) place = LeastUsed();
      *place = std::move(names.value);
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

// The real spelling of a native path that does not exist as written: first that of its folder, then that of the name.
Result<std::string> LookUp(const std::string& native, Unlisted unlisted) {
  const std::string_view name = NativeName(native);
  if (name.empty()) return native;
  std::string folder = NativeFolder(native);
  Result<std::string> real = Cache().Find(folder, name, unlisted);
  if (IsMissing(real.status)) {
    const Result<std::string> real_folder = LookUp(folder, unlisted);
    if (!real_folder.ok()) return real_folder.status;
    folder = real_folder.value;
    real = Cache().Find(folder, name, unlisted);
  }
  if (!real.ok() && !IsMissing(real.status)) return real.status;
  return NativeJoin(folder, real.ok() ? real.value : std::string(name));
}

Result<std::string> FindRealPath(std::string_view path, Unlisted unlisted) {
  std::string native = NativePath(path);
  if (native.empty()) return native;
  const Status there = LookAt(native);
  if (!IsMissing(there)) return there.ok() ? Result<std::string>(std::move(native)) : there;
  return LookUp(native, unlisted);
}

}  // namespace

Result<std::string> RealPath(std::string_view path) { return FindRealPath(path, Unlisted::kFailure); }

Result<std::string> RealPathOfNew(std::string_view path) {
  std::string native = NativePath(path);
  const std::string_view name = NativeName(native);
  if (name.empty()) return native;
  const Result<std::string> real = Cache().Find(NativeFolder(native), name, Unlisted::kEmpty);
  // Otherwise the name is not new, or its folder is missing. Then an exact match of the whole path goes first.
  return real.ok() && real.value == name ? Result<std::string>(std::move(native))
                                         : FindRealPath(path, Unlisted::kEmpty);
}

void NoteCreated(const std::string& native) { Cache().NoteCreated(native); }

void NoteChanged(const std::string& folder) { Cache().NoteChanged(folder); }

}  // namespace discwright::host
