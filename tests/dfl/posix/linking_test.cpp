// Tests of linking across mounts and symbolic links, with odd names, and of a run that is killed.
#include <sys/mount.h>

#include "tests/dfl/dfl_fixture.h"
#include "tools/temporary_link.h"

namespace discwright::tools::dfl {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// A mount on a folder of the test. The destructor unmounts it.
class Mounted {
 public:
  Mounted(const std::string& what, const std::string& place, const char* type, unsigned long flags) : place_(place) {
    mounted_ = mount(what.c_str(), place.c_str(), type, flags, nullptr) == 0;
  }
  Mounted(const Mounted&) = delete;
  Mounted& operator=(const Mounted&) = delete;
  ~Mounted() {
    if (mounted_) umount2(place_.c_str(), MNT_DETACH);
  }
  bool mounted() const { return mounted_; }

 private:
  std::string place_;
  bool mounted_;
};

class MountsAndLinks : public testing::DflTest {
 protected:
  MountsAndLinks() { machine_.processors = 1; }
};

TEST_F(MountsAndLinks, OtherVolume_IsNeverLinkedTo) {
  Write("a", "content");
  Write("c", "content");
  folder_.MakeFolder("b");
  const Mounted disk("discwright-test", folder_.Native("b"), "tmpfs", 0);
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  Write("b/1", "content");
  Write("b/2", "content");
  EXPECT_EQ(Run(), kExitDone);
  EXPECT_TRUE(AreLinked("a", "c"));
  EXPECT_TRUE(AreLinked("b/1", "b/2"));
  EXPECT_EQ(LastLine(), "2 files linked, 14 bytes saved\n");
}

TEST_F(MountsAndLinks, OneVolumeMountedTwice_IsLinkedWithinEachMount) {
  const host::testing::TempFolder elsewhere;
  elsewhere.Write("1", "content");
  elsewhere.Write("2", "content");
  folder_.MakeFolder("b");
  const Mounted bound(elsewhere.native(), folder_.Native("b"), nullptr, MS_BIND);
  if (!bound.mounted()) GTEST_SKIP() << "mounting is not permitted";
  Write("a", "content");
  Write("c", "content");
  EXPECT_EQ(Run(), kExitDone) << errors_;
  EXPECT_TRUE(AreLinked("a", "c"));
  EXPECT_TRUE(AreLinked("b/1", "b/2"));
  EXPECT_FALSE(AreLinked("a", "b/1"));
}

TEST_F(MountsAndLinks, FileReplacedByALinkAfterTheScan_IsNotFollowed) {
  const host::testing::TempFolder outside;
  outside.Write("file", "content");
  Write("a", "content");
  Write("b", "content");
  AtLine("Finding", [&] {
    std::filesystem::remove(folder_.Native("b"));
    folder_.Link(outside.Native("file"), "b");
  });
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_THAT(errors_, HasSubstr("b cannot be read: "));
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Native("b")));
}

TEST_F(MountsAndLinks, UnreadableNameWithANewLine_IsShownOnOneLine) {
  Write("a", "content");
  Write("new\nline", "content");
  AtLine("Calculating", [&] { std::filesystem::remove(folder_.Native("new\nline")); });
  EXPECT_EQ(Run(), kExitProblems);
  EXPECT_EQ(errors_, "dfl: " + folder_.Native("new\\x0Aline") + " cannot be read: No such file or directory\n");
}

TEST_F(MountsAndLinks, KillBetweenLinkAndReplacement_LosesNothingAndTheNextRunCleansUp) {
  Write("a", "content");
  Write("b", "content");
  Machine killed;
  killed.calls.replace = [](std::string_view, std::string_view) -> host::Status { std::_Exit(9); };
  killed.processors = 1;
  std::swap(killed, machine_);
  EXPECT_EXIT(Run(), ::testing::ExitedWithCode(9), "");
  std::swap(killed, machine_);
  EXPECT_THAT(folder_.Names(), ElementsAre(TemporaryLinkName(0), "a", "b"));
  EXPECT_EQ(folder_.Read("a") + folder_.Read("b"), "contentcontent");
  EXPECT_EQ(Run(), kExitDone) << errors_;
  EXPECT_THAT(folder_.Names(), ElementsAre("a", "b"));
  EXPECT_TRUE(AreLinked("a", "b"));
}

}  // namespace
}  // namespace discwright::tools::dfl
