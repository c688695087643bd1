// Tests of the help topics and the help file's place.
#include "wizard/help_topics.h"

#include <gtest/gtest.h>

#include "tests/support/fake_host.h"

namespace discwright::wizard {
namespace {

TEST(HelpTopic, EveryPage_HasItsOwnIdFrom1110To1210) {
  constexpr int kTopics[] = {1110, 1120, 1130, 1140, 1150, 1160, 1170, 1180, 1190, 1200, 1210};
  for (int page = 0; page < 11; ++page) EXPECT_EQ(HelpTopic(page), kTopics[page]);
}

TEST(HelpPath, ProgramFolder_HoldsTheFileAndTheWindowFollows) {
  testing::FakeHost host;
  host.program_folder = "D:\\Tools\\Discwright";
  EXPECT_EQ(HelpPath(), "D:\\Tools\\Discwright\\vexacd_builder.chm>Down");
}

}  // namespace
}  // namespace discwright::wizard
