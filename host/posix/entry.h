// What one name in a folder is.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/files.h"

namespace discwright::host {

// Describes names of one folder. The folder's own parents are only looked at when a link to a folder turns up.
class EntryReader {
 public:
  // `folder_fd`: the open folder, or AT_FDCWD for absolute names; `folder`: its native path, links in it kept.
  EntryReader(int folder_fd, std::string folder) : folder_fd_(folder_fd), folder_(std::move(folder)) {}

  // The entry `name`; nothing when it is not there. `type` is what readdir says of it (DT_UNKNOWN when not asked).
  std::optional<Entry> Read(const char* name, unsigned char type);

 private:
  struct Identity {
    unsigned long long device = 0;
    unsigned long long inode = 0;
    bool operator==(const Identity&) const = default;
  };
  void FollowLink(const char* name, Entry& entry);
  bool IsOwnParent(const Identity& target);
  void FindParents();

  int folder_fd_;
  std::string folder_;
  std::vector<Identity> parents_;
};

}  // namespace discwright::host
