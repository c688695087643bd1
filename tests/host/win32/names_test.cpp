// Tests of short names, and of the names of discs, which Windows does not change.
#include "host/names.h"

#include <gtest/gtest.h>

#include "host/files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using testing::TempFolder;

TEST(ShortPath, LongName_HasAFormOfEightAndThreeThatLeadsToTheSameFile) {
  const TempFolder folder;
  folder.Write("A long file name.text", "content");
  const std::string shortened = ShortPath(folder.Core("A long file name.text"));
  EXPECT_EQ(shortened.find(' '), shortened.npos);
  const std::string content = ReadWholeFile(shortened).value;
  EXPECT_EQ(content, "content");
}

TEST(ShortPath, MissingPathOrNameThatTheCodePageLacks_HasNone) {
  const TempFolder folder;
  EXPECT_EQ(ShortPath(folder.Core("a missing file")), "");
  EXPECT_EQ(ShortPath(folder.Core("漢字")), "");
  EXPECT_EQ(ShortPath(""), "");
}

TEST(NameOnDisc, EveryName_StaysAsItIs) {
  for (const char* name : {"win51ip.sp1", "I386", "Readme.txt", "übung", ""}) EXPECT_EQ(NameOnDisc(name), name);
}

}  // namespace
}  // namespace discwright::host
