// Trees with many folders.
#include "tests/mkisofs/mastering.h"

namespace discwright::testing {
namespace {

class LargeTrees : public Mastering {};

TEST_F(LargeTrees, ThreeThousandSiblingFolders_AreStored) {
  for (int i = 0; i < 3000; ++i) folder.MakeFolder("tree/folder" + std::to_string(i) + "/below");
  folder.Write("tree/folder2999/below/file", "x");
  const IsoImage iso = MasteredImage();
  EXPECT_EQ(iso.entries.size(), 1u + 2 * 3000u + 1u);
  EXPECT_EQ(Content(iso.Find("folder2999/below/file")), "x");
}

}  // namespace
}  // namespace discwright::testing
