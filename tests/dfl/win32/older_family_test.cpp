// Tests of dfl on Windows 95, 98 and Me, which have no hard links.
#include "tests/dfl/dfl_fixture.h"

namespace discwright::tools::dfl {
namespace {

class OlderFamily : public testing::DflTest {
 protected:
  void SetUp() override {
    if (host::PlatformId() != 1) GTEST_SKIP() << "this family has hard links";
  }
};

TEST_F(OlderFamily, EqualFiles_StayAsTheyAreAndAMessageSaysSo) {
  Write("a", "content");
  Write("b", "content");
  Write("folder/c", "other content");
  Write("folder/d", "other content");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_EQ(errors_, "");
  EXPECT_THAT(output_.str(), ::testing::HasSubstr("The file system of " + folder_.native() + " has no hard links"));
  EXPECT_EQ(LastLine(), "0 files linked, 0 bytes saved\n");
  EXPECT_FALSE(AreLinked("a", "b"));
  EXPECT_EQ(folder_.Read("folder/d"), "other content");
  EXPECT_THAT(folder_.Names(), ::testing::ElementsAre("a", "b", "folder"));
}

}  // namespace
}  // namespace discwright::tools::dfl
