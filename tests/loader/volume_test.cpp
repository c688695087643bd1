// Tests of what the readers of all kinds of volumes share.
#include "boot/loader/volume.h"

#include <gmock/gmock.h>

#include <set>
#include <vector>

namespace discwright::loader {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr int kErrors = static_cast<int>(VolumeError::kNotEnoughRoom) + 1;

TEST(VolumeWords, EveryError_HasSentencesOfItsOwn) {
  for (const Medium medium : {Medium::kCd, Medium::kFloppy}) {
    std::set<std::string_view> all;
    for (int error = 0; error < kErrors; ++error) all.insert(Words(static_cast<VolumeError>(error), medium));
    EXPECT_EQ(all.size(), std::size_t{kErrors});
    EXPECT_EQ(all.count(Words(VolumeError{kErrors}, medium)), 0u);
    for (const std::string_view words : all) EXPECT_EQ(words.back(), '.') << words;
  }
}

TEST(VolumeWords, OfAFloppy_NameNoCd) {
  for (int error = 0; error < kErrors; ++error) {
    EXPECT_THAT(Words(static_cast<VolumeError>(error), Medium::kFloppy), Not(HasSubstr("CD")));
  }
}

TEST(VolumePaths, Names_StandBetweenSeparators) {
  std::vector<std::string_view> names;
  std::string_view path = "//boot\\scripts/main.cds\\";
  for (std::string_view name = TakeName(path); !name.empty(); name = TakeName(path)) names.push_back(name);
  EXPECT_THAT(names, ElementsAre("boot", "scripts", "main.cds"));
}

}  // namespace
}  // namespace discwright::loader
