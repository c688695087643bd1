// Tests of the names of temporary files.
#include "base/temporary_names.h"

#include <gtest/gtest.h>

namespace discwright::base {
namespace {

TEST(TemporaryNames, AllForms_AreRecognised) {
  EXPECT_EQ(TemporaryName(1234, 5), ".discwright-1234-5");
  EXPECT_EQ(PartName("rescue.iso"), ".discwright-rescue.iso.part");
  EXPECT_EQ(TestName("rescue.iso"), ".discwright-rescue.iso.test");
  for (const std::string& name : {TemporaryName(1234, 5), PartName("x"), TestName("x")}) {
    EXPECT_TRUE(IsTemporaryName(name)) << name;
  }
}

TEST(TemporaryNames, OtherNames_AreTheUsers) {
  for (const char* name : {"", "rescue.iso.part", ".discwright", ".discwright-", ".discwright-1", ".discwright-1-",
                           ".discwright--1", ".discwright-1-2-3", ".discwright-1-x", ".discwright-.part",
                           ".discwright-.test", "x.discwright-1-2", ".discwright-notes.txt"}) {
    EXPECT_FALSE(IsTemporaryName(name)) << name;
  }
}

TEST(PartName, LongName_IsCutBetweenTwoCharacters) {
  EXPECT_EQ(PartName(std::string(200, 'a')), ".discwright-" + std::string(200, 'a') + ".part");
  EXPECT_EQ(PartName(std::string(250, 'a')), ".discwright-" + std::string(200, 'a') + ".part");
  EXPECT_EQ(PartName(std::string(199, 'a') + "\xC3\xA4" + "bc"), ".discwright-" + std::string(199, 'a') + ".part");
}

}  // namespace
}  // namespace discwright::base
