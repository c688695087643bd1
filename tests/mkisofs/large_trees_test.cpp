// Trees with many folders.
#include "tests/mkisofs/mastering.h"

namespace discwright::testing {
namespace {

class LargeTrees : public Mastering {};

#ifdef _WIN32  // Wine looks through a whole folder for each new name
constexpr int kSiblings = 300;
#else
constexpr int kSiblings = 3000;
#endif

TEST_F(LargeTrees, ManySiblingFolders_AreAllStored) {
  for (int i = 0; i < kSiblings; ++i) folder.MakeFolder("tree/folder" + std::to_string(i) + "/below");
  const std::string last = "folder" + std::to_string(kSiblings - 1) + "/below/file";
  folder.Write("tree/" + last, "x");
  const IsoImage iso = MasteredImage();
  EXPECT_EQ(iso.entries.size(), 1u + 2u * kSiblings + 1u);
  EXPECT_EQ(Content(iso.Find(last)), "x");
}

}  // namespace
}  // namespace discwright::testing
