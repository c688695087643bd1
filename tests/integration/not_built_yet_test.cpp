// Tests of the steps that are not available: each says so once and cancels the build.
#include "integration/not_built_yet.h"

#include <string>

#include "tests/support/build_fixture.h"

namespace discwright::integration {
namespace {

class NotBuiltYetTest : public testing::BuildFixture {
 protected:
  void ExpectHalt(const std::string& text) {
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.messages[0].text, text);
    EXPECT_EQ(user.messages[0].title, "Fatal Error");
    EXPECT_EQ(user.messages[0].icon, host::MessageIcon::kCritical);
    EXPECT_EQ(cancelled, 1);
  }
};

TEST_F(NotBuiltYetTest, AddWin2K_SaysWhatToClearAndCancels) {
  AddWin2K(context, "D:\\I386", "I386", false, "", "", false, false);
  ExpectHalt(
      "Integrating Windows 2000/XP/2003 setup files is not available in this version, operation halted. Clear "
      "\"Microsoft Windows 2000/XP/2003 Setup Files\" on the contents page to build the CD without them.");
}

TEST_F(NotBuiltYetTest, AddWin9x_SaysWhatToClearAndCancels) {
  AddWin9x(context, "D:\\WIN98", false);
  ExpectHalt(
      "Integrating Windows 98/98SE/Me setup files is not available in this version, operation halted. Clear "
      "\"Microsoft Windows 98/98SE/Me Setup Files\" on the contents page to build the CD without them.");
}

TEST_F(NotBuiltYetTest, AddAdvTools_SaysWhatToClearAndCancels) {
  AddAdvTools(context, true, true, "D:\\", "E:\\");
  ExpectHalt(
      "Integrating the advanced tools is not available in this version, operation halted. Clear \"Advanced Tools\" on "
      "the contents page to build the CD without them.");
}

}  // namespace
}  // namespace discwright::integration
