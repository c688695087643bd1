// Opens folders and reads their names.
#include "host/posix/folder_reader.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <string_view>

#include "host/posix/errors.h"

namespace discwright::host {

FolderReader::FolderReader(const std::string& native)
    : FolderReader(UniqueFd(open(native.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))) {}

FolderReader::FolderReader(UniqueFd folder) : stream_(folder.valid() ? fdopendir(folder.get()) : nullptr, closedir) {
  if (stream_ == nullptr) {
    status_ = LastFailure();
  } else {
    folder.Release();
  }
}

const dirent* FolderReader::Next() {
  while (status_.ok()) {
    errno = 0;
    const dirent* const entry = readdir(stream_.get());
    if (entry == nullptr) {
      if (errno != 0) status_ = LastFailure();
      return nullptr;
    }
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") return entry;
  }
  return nullptr;
}

Result<std::vector<std::string>> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  FolderReader reader(folder);
  while (const dirent* entry = reader.Next()) names.emplace_back(entry->d_name);
  if (!reader.status().ok()) return reader.status();
  std::sort(names.begin(), names.end());
  return names;
}

bool IsFolder(const std::string& native) {
  struct stat facts {};
  return stat(native.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

}  // namespace discwright::host
