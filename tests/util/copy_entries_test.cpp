// Tests of the notes on entries that cannot be copied.
#include "util/copy_entries.h"

#include "tests/support/util_fixture.h"

namespace discwright::util {
namespace {

class CheckOrStopTest : public testing::UtilFixture {
 protected:
  std::string Noted(host::ErrorClass error, const std::string& cause, Wording wording) {
    Notes fresh;
    EXPECT_FALSE(CheckOrStop(fresh, host::Status::Failure(error, cause), "C:\\a", "could not be copied", wording));
    if (fresh.all().size() != 1) return "no single note";
    const std::string text = fresh.all()[0].place + ": " + fresh.all()[0].cause;
    return text.substr(0, text.find(';'));
  }
};

TEST_F(CheckOrStopTest, Success_IsNotNoted) {
  EXPECT_TRUE(CheckOrStop(notes, host::Status::Success(), "C:\\a", "could not be copied"));
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(CheckOrStopTest, ShortTexts_StandBeforeTheSystemsReason) {
  const struct {
    host::ErrorClass error;
    std::string text;
  } cases[] = {{host::ErrorClass::kDiskFull, "Disk Full"},
               {host::ErrorClass::kAccessDenied, "Permission denied"},
               {host::ErrorClass::kNotReady, "Disk Not Ready"},
               {host::ErrorClass::kNotFound, "Path Not found"}};
  for (const auto& [error, text] : cases) {
    EXPECT_EQ(Noted(error, "why", Wording::kWithShortText), "C:\\a: could not be copied: " + text + " (why)");
    EXPECT_EQ(Noted(error, "", Wording::kWithShortText), "C:\\a: could not be copied: " + text);
    EXPECT_EQ(Noted(error, "why", Wording::kSystemReason), "C:\\a: could not be copied: why");
  }
}

TEST_F(CheckOrStopTest, OtherFailures_HaveTheSystemsReasonOnly) {
  for (const host::ErrorClass error : {host::ErrorClass::kOther, host::ErrorClass::kExists}) {
    EXPECT_EQ(Noted(error, "why", Wording::kWithShortText), "C:\\a: could not be copied: why");
    EXPECT_EQ(Noted(error, "", Wording::kWithShortText), "C:\\a: could not be copied");
  }
}

}  // namespace
}  // namespace discwright::util
