// Folder trees: made for a test, remembered, and taken out of an image by other people's readers.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace discwright::testing {

namespace fs = std::filesystem;

// Makes the folders on the way too.
void WriteFile(const fs::path& file, std::string_view content);
std::string ReadFile(const fs::path& file);  // "<missing>" when there is none

// What the program takes for a disc image that a build may replace: the mark of ISO 9660 in sector 16, and `label` in
// front, by which a test knows it again.
std::string OlderImage(std::string_view label = "an older image");

// A folder of its own for one test, removed at the end with all that still runs in it. Only the part of its name after
// the last blank differs between tests.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(std::string_view name_begin = "discwright");
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  fs::path operator/(const fs::path& below) const { return path_ / below; }
  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

// What must be the same wherever an entry stands.
struct Content {
  bool is_folder = false;
  std::uint64_t size = 0;
  std::size_t hash = 0;      // of the bytes
  std::int64_t seconds = 0;  // of the last change; 0 for folders

  auto operator<=>(const Content&) const = default;
};

// By path below the root of the tree.
using Contents = std::map<std::string, Content>;

// Links, devices and pipes are left out.
Contents ContentsOf(const fs::path& folder);
Contents WithoutTimes(Contents contents);
Contents Below(const Contents& contents, const std::string& folder);  // the entries of one folder
Contents WithAsciiNames(Contents contents);                           // only these

// What differs between two trees, a line each, at most ten; empty when nothing does.
std::string Difference(const Contents& expected, const Contents& actual);

// Everything the system knows about the entries of a tree, except when they were last read: to show that nothing was
// touched.
std::map<std::string, std::string> Fingerprint(const fs::path& folder);

// The files of an image. The second reader changes the names that are not ASCII.
Contents ReadWithBsdtar(const fs::path& image);
Contents ReadWithXorriso(const fs::path& image);

}  // namespace discwright::testing
