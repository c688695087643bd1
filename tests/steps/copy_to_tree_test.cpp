// Tests of the label and the bar of the running step during a copy.
#include "steps/copy_to_tree.h"

#include <limits>

#include "tests/support/build_fixture.h"

namespace discwright::steps {
namespace {

class CopyToTreeTest : public testing::BuildFixture {
 protected:
  std::vector<std::string> painted;

  void SetUp() override {
    Listen(main.LblSub_Step, [this](forms::Control&, forms::Facet facet, forms::By) {
      if (facet == forms::Facet::kRepaint) painted.push_back(main.LblSub_Step.caption);
    });
  }
  bool Copy() { return CopyToTree(context, "C:\\src", "C:\\dst"); }
};

TEST_F(CopyToTreeTest, Captions_ArePaintedAtOnce) {
  host.AddFile("C:\\src\\a", "1");
  host.AddFile("C:\\src\\b", "2");
  EXPECT_TRUE(Copy());
  EXPECT_EQ(painted, (std::vector<std::string>{"Preparing for Copy", "Copying : a", "Copying : b"}));
}

TEST_F(CopyToTreeTest, Bar_IsVisibleDuringTheCopyAndAsBeforeAfterIt) {
  host.AddFile("C:\\src\\a", "1");
  for (const bool visible : {false, true}) {
    main.BarSub_Step.visible = visible;
    bool was_seen = true;
    user.on_do_events = [&] { was_seen = was_seen && main.BarSub_Step.visible; };
    EXPECT_TRUE(Copy());
    EXPECT_TRUE(was_seen);
    EXPECT_EQ(main.BarSub_Step.visible, visible);
  }
}

TEST_F(CopyToTreeTest, Bar_EndsAtTheBytesOfTheTree) {
  host.AddFileOfSize("C:\\src\\a", 5);
  host.AddFileOfSize("C:\\src\\b", 7);
  EXPECT_TRUE(Copy());
  EXPECT_EQ(main.BarSub_Step.max, 12);
  EXPECT_EQ(main.BarSub_Step.value, 12);
}

// The bar is not reset between two copies of one step.
TEST_F(CopyToTreeTest, BarsValueAtTheStart_IsCountedOn) {
  host.AddFileOfSize("C:\\src\\a", 90);
  host.AddFileOfSize("C:\\src\\b", 10);
  main.BarSub_Step.value = 5;
  std::int64_t smallest = 100;
  Listen(main.BarSub_Step, [&](forms::Control&, forms::Facet, forms::By) {
    smallest = std::min(smallest, main.BarSub_Step.value.get());
  });
  EXPECT_TRUE(Copy());
  EXPECT_EQ(smallest, 5);
  EXPECT_EQ(main.BarSub_Step.value, 100);
}

TEST_F(CopyToTreeTest, CancelDisabledBefore_IsEnabledAfterwards) {
  host.AddFile("C:\\src\\a", "1");
  main.CmdCancel.enabled = false;
  EXPECT_TRUE(Copy());
  EXPECT_TRUE(main.CmdCancel.enabled);
}

TEST_F(CopyToTreeTest, OrdinaryFailure_DoesNotEndTheStep) {
  EXPECT_TRUE(Copy());
  EXPECT_EQ(notes.all().size(), 1U);
}

TEST_F(CopyToTreeTest, TreeOfTwoGigabytes_EndsTheStep) {
  host.AddFileOfSize("C:\\src\\a", std::numeric_limits<std::int32_t>::max());
  host.AddFileOfSize("C:\\src\\b", 1);
  EXPECT_FALSE(Copy());
}

TEST_F(CopyToTreeTest, BuildCancelledByTheUser_CopiesToTheEnd) {
  host.AddFile("C:\\src\\a", "x");
  host.AddFile("C:\\src\\b", "y");
  user.on_do_events = [this] {
    if (main.LblSub_Step.caption.get() == "Copying : a") Cancel();
  };
  EXPECT_TRUE(Copy());
  EXPECT_GT(cancelled, 0);
  EXPECT_EQ(host.Content("C:\\dst\\b"), "y");
}

TEST_F(CopyToTreeTest, BuildCancelledWhileTheFilesAreCounted_CopiesNothingAndEndsTheStep) {
  host.AddFile("C:\\src\\a", "x");
  user.on_do_events = [this] { Cancel(); };
  EXPECT_FALSE(Copy());
  EXPECT_FALSE(host.Exists("C:\\dst"));
}

TEST_F(CopyToTreeTest, NamesAsOnDisc_AreAskedForByTheCaller) {
  host.shows_disc_names_in_lower_case = true;
  host.AddFile("C:\\src\\win51.ip", "1");
  EXPECT_TRUE(CopyToTree(context, "C:\\src", "C:\\dst", util::CopiedNames::kAsOnDisc));
  EXPECT_EQ(host.RealName("C:\\dst\\win51.ip"), "WIN51.IP");
}

}  // namespace
}  // namespace discwright::steps
