// Tests of the command line.
#include "tools/createdsk/arguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace discwright::tools {
namespace {

using ::testing::HasSubstr;
using Words = std::vector<std::string>;

class ArgumentOrder : public ::testing::TestWithParam<Words> {};

TEST_P(ArgumentOrder, AnyOrder_GivesTheSameDisk) {
  Arguments arguments;
  ASSERT_TRUE(ParseArguments(GetParam(), arguments).ok());
  EXPECT_EQ(arguments.format, &kDiskFormats[1]);
  EXPECT_EQ(arguments.profile, "netaccess");
  EXPECT_TRUE(arguments.selection);
}

INSTANTIATE_TEST_SUITE_P(All, ArgumentOrder,
                         ::testing::Values(Words{"-t", "288", "netaccess", "-sel"},
                                           Words{"netaccess", "-t", "288", "-sel"},
                                           Words{"-sel", "-t", "288", "netaccess"},
                                           Words{"netaccess", "-sel", "-t", "288"},
                                           Words{"-sel", "netaccess", "-t", "288"}));

TEST(Arguments, WithoutSel_SelectNothing) {
  Arguments arguments;
  ASSERT_TRUE(ParseArguments(Words{"-t", "144", "winsetup"}, arguments).ok());
  EXPECT_EQ(arguments.format, &kDiskFormats[0]);
  EXPECT_FALSE(arguments.selection);
}

struct WrongUsage {
  Words words;
  std::string named;
};

class WrongArguments : public ::testing::TestWithParam<WrongUsage> {};

TEST_P(WrongArguments, WrongUsage_NamesWhatIsWrong) {
  Arguments arguments;
  EXPECT_THAT(ParseArguments(GetParam().words, arguments).failure, HasSubstr(GetParam().named));
}

INSTANTIATE_TEST_SUITE_P(All, WrongArguments,
                         ::testing::Values(WrongUsage{{}, "-t 144 or -t 288"},
                                           WrongUsage{{"winsetup"}, "-t 144 or -t 288"},
                                           WrongUsage{{"-t", "144"}, "name of the profile"},
                                           WrongUsage{{"winsetup", "-t"}, "-t must be followed by"},
                                           WrongUsage{{"-t", "720", "winsetup"}, "-t must be followed by"},
                                           WrongUsage{{"-t", "", "winsetup"}, "-t must be followed by"},
                                           WrongUsage{{"-t", "144", "-t", "288", "winsetup"}, "twice"},
                                           WrongUsage{{"-t", "144", "one", "two"}, "\"one\" and \"two\""},
                                           WrongUsage{{"-t", "144", "winsetup", "-x"}, "\"-x\""},
                                           WrongUsage{{"-t", "144", ""}, "\"\" is not an option"}));

}  // namespace
}  // namespace discwright::tools
