// Tests of names that only Linux can store.
#include "tools/mkisofs/names.h"
#include "tests/mkisofs/mastering.h"

namespace discwright::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

TEST(FoldedNames, KelvinSignAndSmallK_HaveOneHash) {
  EXPECT_TRUE(tools::mkisofs::DifferOnlyInCase("k", "\xE2\x84\xAA"));
  EXPECT_EQ(tools::mkisofs::FoldedHash("k"), tools::mkisofs::FoldedHash("\xE2\x84\xAA"));
}

class MasterNames : public Mastering {};

TEST_F(MasterNames, NamesThatDifferOnlyInCase_AreAnErrorThatNamesBoth) {
  folder.Write("tree/sub/readme.txt", "1");
  folder.Write("tree/sub/README.TXT", "2");
  folder.Write("tree/\xC3\xA4", "1");
  folder.MakeFolder("tree/\xC3\x84");
  folder.Write("tree/other/readme.txt", "in another folder");
  EXPECT_EQ(Master(), 1);
  const std::string differs = " has a name that differs only in letter case\n";
  EXPECT_THAT(messages, HasSubstr("tree/sub/README.TXT: sub/readme.txt" + differs));
  EXPECT_THAT(messages, HasSubstr("tree/\xC3\x84: \xC3\xA4" + differs));
  EXPECT_THAT(messages, Not(HasSubstr("other")));
  ExpectNoImage();
}

TEST_F(MasterNames, HiddenNameThatDiffersOnlyInCase_IsNoError) {
  folder.Write("tree/loader.bin", "hidden");
  folder.Write("tree/LOADER.BIN", "shown");
  EXPECT_THAT(Paths(MasteredImage({"-hide", "loader.bin"})), ElementsAre("", "LOADER.BIN"));
}

TEST_F(MasterNames, NamesThatOtherSystemsLack_AreStoredByteForByte) {
  const std::vector<std::string> names = {"dots..", "trail.", "trail ", "a:b", "a\\b", "\xE4"};
  for (const std::string& name : names) folder.Write("tree/" + name, name);
  const IsoImage iso = MasteredImage();
  for (const std::string& name : names) EXPECT_EQ(Content(iso.Find(name)), name);
}

}  // namespace
}  // namespace discwright::testing
