// Trees with many files and many folders.
#include <cstdio>

#include "tests/mkisofs/mastering.h"

namespace discwright::testing {
namespace {

class LargeTrees : public Mastering {
 protected:
  // Faster than a stream for each file.
  void Touch(const std::string& name, const std::string& content) const {
    std::FILE* const file = std::fopen(folder.Native(name).c_str(), "wb");
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(std::fwrite(content.data(), 1, content.size(), file), content.size());
    std::fclose(file);
  }
};

TEST_F(LargeTrees, HundredThousandFiles_AreAllStored) {
  for (int part = 0; part < 10; ++part) {
    const std::string path = "tree/part" + std::to_string(part);
    folder.MakeFolder(path);
    for (int i = 0; i < 10000; ++i) Touch(path + "/file" + std::to_string(i), std::to_string(part * 10000 + i));
  }
  const IsoImage iso = MasteredImage();
  ASSERT_EQ(iso.entries.size(), 1u + 10u + 100000u);
  for (std::size_t i = 11; i < iso.entries.size(); ++i) {
    const std::string& path = iso.entries[i].path;
    const int number = (path[9 - 5] - '0') * 10000 + std::stoi(path.substr(path.find("file") + 4));
    ASSERT_EQ(Content(&iso.entries[i]), std::to_string(number)) << path;
  }
}

TEST_F(LargeTrees, ThreeThousandSiblingFolders_AreStored) {
  for (int i = 0; i < 3000; ++i) folder.MakeFolder("tree/folder" + std::to_string(i) + "/below");
  folder.Write("tree/folder2999/below/file", "x");
  const IsoImage iso = MasteredImage();
  EXPECT_EQ(iso.entries.size(), 1u + 2 * 3000u + 1u);
  EXPECT_EQ(Content(iso.Find("folder2999/below/file")), "x");
}

}  // namespace
}  // namespace discwright::testing
