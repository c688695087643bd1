// Folder trees for tests: make one, compare two, or read the tree of an image with bsdtar and xorriso.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace discwright::testing {

namespace fs = std::filesystem;

// Also makes the folders of the path.
void WriteFile(const fs::path& file, std::string_view content);
std::string ReadFile(const fs::path& file);  // "<missing>" when there is no such file

// The smallest file that a build takes for a disc image and replaces: it has the mark of ISO 9660 in sector 16. It
// begins with `label`, so that a test can recognise it.
std::string OlderImage(std::string_view label = "an older image");

// A temporary folder for one test. The destructor ends all programs that run in it and removes it. Its names differ
// between tests only after the last blank.
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

// The facts about an entry that do not depend on its place.
struct Content {
  bool is_folder = false;
  std::uint64_t size = 0;
  std::size_t hash = 0;      // of its content
  std::int64_t seconds = 0;  // time of the last change; 0 for folders

  auto operator<=>(const Content&) const = default;
};

// By the path below the root of the tree.
using Contents = std::map<std::string, Content>;

// Reads a tree without its links, devices and pipes.
Contents ContentsOf(const fs::path& folder);
Contents WithoutTimes(Contents contents);
Contents Below(const Contents& contents, const std::string& folder);  // the entries of one folder, with paths below it
Contents WithAsciiNames(Contents contents);                           // the entries whose names are ASCII

// The differences between two trees, at most ten lines; empty when they are equal.
std::string Difference(const Contents& expected, const Contents& actual);

// All attributes of the entries of a tree except the time of the last access. Equal fingerprints show that nothing was
// changed.
std::map<std::string, std::string> Fingerprint(const fs::path& folder);

// The files of an image, read with bsdtar or xorriso. xorriso changes names that are not ASCII.
Contents ReadWithBsdtar(const fs::path& image);
Contents ReadWithXorriso(const fs::path& image);

}  // namespace discwright::testing
