// Tests of trees that only Linux can make, or make fast enough.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

#include "tests/mkisofs/mastering.h"

namespace discwright::testing {
namespace {

using ::testing::HasSubstr;

class ManyFiles : public Mastering {
 protected:
  // The C functions are faster than a stream for each file.
  void Touch(const std::string& name, const std::string& content) const {
    std::FILE* const file = std::fopen(folder.Native(name).c_str(), "wb");
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(std::fwrite(content.data(), 1, content.size(), file), content.size());
    std::fclose(file);
  }
};

// Under Wine, where making a file takes a millisecond, this test would take minutes.
TEST_F(ManyFiles, HundredThousandFiles_AreAllStored) {
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

class DeepTrees : public Mastering {};

TEST_F(DeepTrees, ThreeHundredNestedFolders_AreStored) {
  std::string path;
  for (int depth = 1; depth <= 300; ++depth) path += "/d" + std::to_string(depth);
  folder.Write("tree" + path + "/file", "deep");
  const IsoImage iso = MasteredImage();
  EXPECT_EQ(iso.entries.size(), 302u);
  EXPECT_EQ(Content(iso.Find(path.substr(1) + "/file")), "deep");
}

// 60 names of 201 bytes each are longer than the longest path that the system takes in one call.
TEST_F(DeepTrees, PathsLongerThanTheSystemsLongest_AreStored) {
  const std::string name(200, 'n');
  int at = open(folder.Native("tree").c_str(), O_RDONLY | O_DIRECTORY);
  std::string path;
  for (int depth = 0; depth < 60; ++depth) {
    ASSERT_EQ(mkdirat(at, name.c_str(), 0755), 0);
    const int below = openat(at, name.c_str(), O_RDONLY | O_DIRECTORY);
    close(at);
    at = below;
    path += name + "/";
  }
  const int file = openat(at, "file", O_WRONLY | O_CREAT, 0644);
  ASSERT_EQ(write(file, "deep", 4), 4);
  close(file);
  close(at);
  EXPECT_EQ(Content(MasteredImage().Find(path + "file")), "deep");
}

// Two links in each of 18 levels double the number of folders each time. A path table can number 65535 parents.
TEST_F(DeepTrees, MoreFoldersThanPathTablesCanNumber_AreAnError) {
  for (int level = 0; level < 18; ++level) {
    const std::string below = level == 17 ? "" : "../" + std::to_string(level + 1);
    folder.MakeFolder("levels/" + std::to_string(level));
    if (below.empty()) continue;
    folder.Link(below, "levels/" + std::to_string(level) + "/a");
    folder.Link(below, "levels/" + std::to_string(level) + "/b");
  }
  folder.Link("../levels/0", "tree/start");
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr("there are more folders than an image can hold"));
}

}  // namespace
}  // namespace discwright::testing
