// Tests of the sizing pass.
#include "tools/mkisofs/layout.h"

#include <gmock/gmock.h>

#include "tests/mkisofs/records.h"

namespace discwright::tools::mkisofs {
namespace {

using ::testing::HasSubstr;
using testing::TreeBuilder;

Layout Placed(Tree& tree, std::optional<NodeIndex> boot_image = std::nullopt) {
  Layout layout;
  layout.boot_image = boot_image;
  EXPECT_EQ(PlaceEverything(tree, layout).failure, "");
  return layout;
}

TEST(Layout, WithoutBoot_HasThreeDescriptors) {
  TreeBuilder builder;
  builder.Open(0);
  builder.AddFile("file", 2049);
  const Layout layout = Placed(builder.tree);
  EXPECT_EQ(layout.path_table_l, 19u);
  EXPECT_EQ(layout.path_table_m, 20u);
  EXPECT_EQ(layout.directories, 21u);
  EXPECT_EQ(builder.tree.nodes[0].extent, 21u);
  EXPECT_EQ(builder.tree.nodes[0].size, 2048u);
  EXPECT_EQ(builder.tree.nodes[1].extent, 22u);
  EXPECT_EQ(layout.padding, 24u);
  EXPECT_EQ(layout.sectors, 24u + 150u);
}

TEST(Layout, CatalogueAndBootImage_StandRightBehindTheDescriptors) {
  TreeBuilder builder;
  builder.Open(0);
  builder.AddFile("first", 10);
  Node& catalogue = builder.AddFile("boot.catalog", 2048);
  catalogue.is_catalogue = true;
  builder.AddFile("loader.bin", 5000);
  const Layout layout = Placed(builder.tree, 3);
  EXPECT_EQ(layout.boot_catalogue, 20u);
  EXPECT_EQ(builder.tree.nodes[2].extent, 20u);
  EXPECT_EQ(builder.tree.nodes[3].extent, 21u);
  EXPECT_EQ(layout.path_table_l, 24u);
  EXPECT_EQ(builder.tree.nodes[0].extent, 26u);
  EXPECT_EQ(builder.tree.nodes[1].extent, 27u);
  EXPECT_EQ(layout.padding, 28u);
}

TEST(Layout, BootImageWithFurtherNames_IsPlacedOnceAndFirst) {
  TreeBuilder builder;
  builder.Open(0);
  builder.AddFile("copy", 100);
  Node& loader = builder.AddFile("loader.bin", 100);
  loader.data_of_other = true;
  loader.extent = 1;
  const Layout layout = Placed(builder.tree, 2);
  EXPECT_EQ(layout.boot_image, 1u);
  EXPECT_EQ(builder.tree.nodes[1].extent, 21u);
  EXPECT_EQ(builder.tree.nodes[2].extent, 21u);
  EXPECT_EQ(layout.padding, 25u);
}

TEST(Layout, EmptyFiles_StandAtThePaddingAndTakeNoRoom) {
  TreeBuilder builder;
  builder.Open(0);
  builder.AddFile("a", 0);
  builder.AddFile("b", 1);
  builder.AddFile("c", 0);
  const Layout layout = Placed(builder.tree);
  EXPECT_EQ(builder.tree.nodes[2].extent, 22u);
  EXPECT_EQ(layout.padding, 23u);
  EXPECT_EQ(builder.tree.nodes[1].extent, 23u);
  EXPECT_EQ(builder.tree.nodes[3].extent, 23u);
}

TEST(Layout, HiddenFolders_TakeNoRoomButTheirFilesDo) {
  TreeBuilder builder;
  builder.Open(0);
  const FolderIndex folder = builder.AddFolder("hidden");
  builder.Open(folder);
  builder.AddFile("file", 4096).is_hidden = true;
  builder.tree.nodes[1].is_hidden = true;
  builder.tree.folders[folder].number = 0;
  const Layout layout = Placed(builder.tree);
  EXPECT_EQ(layout.padding, 22u + 2u);
}

TEST(Layout, MoreSectorsThanAVolumeHas_AreRefused) {
  TreeBuilder builder;
  builder.Open(0);
  // 2048 files of 4 GiB are 2^32 sectors.
  for (int i = 0; i < 2048; ++i) builder.AddFile("f" + std::to_string(i), 0xFFFFFFFF);
  Layout layout;
  EXPECT_THAT(PlaceEverything(builder.tree, layout).failure, HasSubstr("larger than an image can be"));
}

}  // namespace
}  // namespace discwright::tools::mkisofs
