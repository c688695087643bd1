// Tests of reading and writing profile files, for all systems.
#include "host/profile.h"

#include <gtest/gtest.h>

#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

TEST(ProfileOfAnySystem, PairOfEitherQuotesAroundAValue_IsTaken) {
  const testing::TempFolder folder;
  const std::pair<const char*, const char*> values[] = {
      {"\"x\"", "x"},         {"'x'", "x"},     {" ' x ' ", " x "}, {"\"'x'\"", "'x'"}, {"'\"x\"'", "\"x\""},
      {"\"\"x\"\"", "\"x\""}, {"\"\"", ""},     {"''", ""},         {"\"", "\""},       {"'", "'"},
      {"'x\"", "'x\""},       {"\"x'", "\"x'"}, {"x\"", "x\""},     {"it's", "it's"},   {"\"a\" b \"c\"", "a\" b \"c"}};
  for (const auto& [stored, read] : values) {
    folder.Write("test.ini", std::string("[a]\r\nk=") + stored + "\r\n");
    EXPECT_EQ(ReadProfileValue(folder.Core("test.ini"), "a", "k"), read) << stored;
  }
}

TEST(ProfileOfAnySystem, ValueInQuotes_IsWrittenWithThem) {
  const testing::TempFolder folder;
  for (const std::string value : {"\"x\"", "'x'", "\"'x'\"", "\"\"x\"\"", "\""}) {
    EXPECT_TRUE(WriteProfileValue(folder.Core("test.ini"), "a", "k", value).ok());
    EXPECT_EQ(folder.Read("test.ini"), "[a]\r\nk=" + value + "\r\n");
  }
}

TEST(ProfileOfAnySystem, FailedWrite_IsReportedWithItsCause) {
  const testing::TempFolder folder;
  folder.MakeFolder("a folder.ini");
  for (const char* file : {"none\\test.ini", "a folder.ini"}) {
    const Status status = WriteProfileValue(folder.Core(file), "a", "k", "1");
    EXPECT_FALSE(status.ok()) << file;
    EXPECT_NE(status.cause, "") << file;
  }
}

}  // namespace
}  // namespace discwright::host
