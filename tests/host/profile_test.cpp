// Tests of reading and writing profile files, for all systems.
#include "host/profile.h"

#include <gtest/gtest.h>

#include <array>

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
    EXPECT_EQ(ReadProfileValue(folder.Core("test.ini"), "a", "k").value, read) << stored;
  }
}

TEST(ProfileOfAnySystem, MissingFileSectionOrKey_IsNoValueAndNoFailure) {
  const testing::TempFolder folder;
  folder.Write("test.ini", "[a]\r\nk=1\r\n");
  for (const auto& [file, section, key] :
       {std::array{"none.ini", "a", "k"}, std::array{"test.ini", "b", "k"}, std::array{"test.ini", "a", "l"}}) {
    const ProfileValue read = ReadProfileValue(folder.Core(file), section, key);
    EXPECT_TRUE(read.ok()) << file << section << key;
    EXPECT_EQ(read.value, std::nullopt) << file << section << key;
  }
}

TEST(ProfileOfAnySystem, FileThatCannotBeRead_IsAFailure) {
  const testing::TempFolder folder;
  folder.MakeFolder("test.ini");
  EXPECT_EQ(ReadProfileValue(folder.Core("test.ini"), "a", "k").status.error, ErrorClass::kWrongKind);
  EXPECT_EQ(ReadTextProfile(folder.Core("test.ini"), "a", "k").status.error, ErrorClass::kWrongKind);
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
