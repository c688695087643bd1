// Tests of the volume descriptors, byte by byte.
#include "tools/mkisofs/volume_descriptors.h"

#include <gmock/gmock.h>

#include <string>

#include "tests/mkisofs/records.h"

namespace discwright::tools::mkisofs {
namespace {

using testing::Hex;

std::string Padded(std::string text, std::size_t size) {
  text.resize(size, ' ');
  return text;
}

std::string Bytes(std::initializer_list<int> bytes) {
  std::string text;
  for (const int byte : bytes) text += static_cast<char>(byte);
  return text;
}

class VolumeDescriptors : public ::testing::Test {
 protected:
  VolumeDescriptors() {
    options.volume_id = "VEXA_RESCUE";
    options.preparer = "Brennick";
    options.publisher = "KORVANE LTD";
    options.application_id = "Vexa CD Creator";
    tree.nodes.front().is_folder = true;
    tree.nodes.front().extent = 0x2B;
    tree.nodes.front().size = 0x1800;
    tree.nodes.front().modified = 1000000000;
    layout.sectors = 0x01020304;
    layout.path_table_size = 0x0A0B0C;
    layout.path_table_l = 0x29;
    layout.path_table_m = 0x2A;
  }

  std::string Made(DescriptorKind kind) const {
    const auto bytes = BytesOf(MakeVolumeDescriptor(kind, options, tree, layout, 951827696, kNoTimeLimit));
    return {bytes.begin(), bytes.end()};
  }

  Options options;
  Tree tree{.nodes = {Node()}, .folders = {Folder()}, .names = {}, .volumes = {}, .left_out = {}};
  Layout layout;
};

// The 2048 bytes of a descriptor, field by field in the order of the standard.
std::string Expected(int type, int version, int structure_version) {
  const std::string date = "2000022912345600" + Bytes({0});
  return Bytes({type}) + "CD001" + Bytes({version, 0}) + Padded("", 32) + Padded("VEXA_RESCUE", 32) +
         std::string(8, '\0') + Bytes({4, 3, 2, 1, 1, 2, 3, 4}) + std::string(32, '\0') + Bytes({1, 0, 0, 1}) +
         Bytes({1, 0, 0, 1}) + Bytes({0, 8, 8, 0}) + Bytes({0x0C, 0x0B, 0x0A, 0, 0, 0x0A, 0x0B, 0x0C}) +
         Bytes({0x29, 0, 0, 0}) + Bytes({0, 0, 0, 0}) + Bytes({0, 0, 0, 0x2A}) + Bytes({0, 0, 0, 0}) +
         Bytes({34, 0, 0x2B, 0, 0, 0, 0, 0, 0, 0x2B, 0, 0x18, 0, 0, 0, 0, 0x18, 0}) +
         Bytes({101, 9, 9, 1, 46, 40, 0, 2, 0, 0, 1, 0, 0, 1, 1, 0}) + Padded("", 128) + Padded("KORVANE LTD", 128) +
         Padded("Brennick", 128) + Padded("Vexa CD Creator", 128) + Padded("", 3 * 37) + date + date +
         std::string(16, '0') + Bytes({0}) + date + Bytes({structure_version, 0}) + std::string(512 + 653, '\0');
}

TEST_F(VolumeDescriptors, Primary_HasEveryByteOfTheStandard) {
  ASSERT_EQ(Expected(1, 1, 1).size(), 2048u);
  EXPECT_EQ(Made(DescriptorKind::kPrimary), Expected(1, 1, 1));
}

TEST_F(VolumeDescriptors, Enhanced_DiffersInTypeAndVersionsOnly) {
  EXPECT_EQ(Made(DescriptorKind::kEnhanced), Expected(2, 2, 2));
}

TEST_F(VolumeDescriptors, TextsOfFullLength_FillTheirFields) {
  options.volume_id = std::string(32, 'v');
  options.application_id = std::string(128, 'a');
  const std::string made = Made(DescriptorKind::kPrimary);
  EXPECT_EQ(made.substr(40, 32), std::string(32, 'v'));
  EXPECT_EQ(made.substr(72, 8), std::string(8, '\0'));
  EXPECT_EQ(made.substr(574, 128), std::string(128, 'a'));
  EXPECT_EQ(made[702], ' ');
}

TEST(Terminator, IsEmptyBehindItsHead) {
  EXPECT_EQ(Hex(BytesOf(MakeTerminator())), "ff434430303101" + std::string(2 * 2041, '0'));
}

}  // namespace
}  // namespace discwright::tools::mkisofs
