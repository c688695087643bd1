// Tests of a build with another mastering tool, which takes the same arguments.
#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

namespace {

using OtherMastering = BuildTest;

}  // namespace

TEST_F(OtherMastering, GenisoimageInItsPlace_MakesTheSameDisc) {
  WriteFile(place / "tools" / "a file.txt", "content");
  WriteFile(place / "tools" / "large.bin",
            std::string(15'000'000, 'x'));  // large enough for a line with the percentage
  ASSERT_EQ(Build(Utilities(place / "tools")).exit_code, 0);
  const Contents own = WithoutTimes(ReadWithBsdtar(image));
  fs::remove(image);
  program.ReplaceProgram("mkisofs", "exec genisoimage \"$@\"\n");
  const Outcome outcome = Build(Utilities(place / "tools"));
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_EQ(Difference(own, WithoutTimes(ReadWithBsdtar(image))), "");
  const std::string log = ReadFile(program / "mkisofs.log");
  EXPECT_THAT(log, HasSubstr("% done, estimate finish"));
  EXPECT_THAT(log, HasSubstr(" MB)"));
}

}  // namespace discwright::testing
