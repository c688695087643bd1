// Tests of the help viewer's requests and the topics of the pages.
#include "wizard/help.h"

#include "tests/support/build_fixture.h"

namespace discwright::wizard {
namespace {

using ::testing::IsEmpty;

class HelpViewer : public testing::BuildFixture {
 protected:
  HelpViewer() {
    host.program_folder = "D:\\Tools\\Discwright";
    help.FileName = "some.chm";
    help.HelpWindow = "Type";
  }
  const host::HelpRequest& Request() const { return user.help_requests.at(0); }

  clsHTMLHelp help{user};
};

TEST(HelpTopic, EveryPage_HasItsOwnIdFrom1110To1210) {
  constexpr int kTopics[] = {1110, 1120, 1130, 1140, 1150, 1160, 1170, 1180, 1190, 1200, 1210};
  for (int page = 0; page < 11; ++page) EXPECT_EQ(HelpTopic(page), kTopics[page]);
}

TEST_F(HelpViewer, Contents_IsCommand1OnTheFileInTheProgramFolder) {
  help.ShowHelpContents();
  EXPECT_EQ(Request().path, "D:\\Tools\\Discwright\\some.chm>Type");
  EXPECT_EQ(static_cast<int>(Request().command), 1);
  EXPECT_EQ(Request().owner, nullptr);
}

TEST_F(HelpViewer, Index_IsCommand2) {
  help.ShowHelpIndex();
  EXPECT_EQ(static_cast<int>(Request().command), 2);
}

TEST_F(HelpViewer, TopicFile_IsCommand0WithTheFile) {
  help.ShowTopicFileName("pages/contents.html");
  EXPECT_EQ(static_cast<int>(Request().command), 0);
  EXPECT_EQ(Request().topic_file, "pages/contents.html");
}

TEST_F(HelpViewer, TopicId_IsCommand15WithTheIdAndTheOwner) {
  int window = 0;
  help.hWnd = &window;
  help.ShowTopicID(1120);
  EXPECT_EQ(static_cast<int>(Request().command), 15);
  EXPECT_EQ(Request().topic_id, 1120);
  EXPECT_EQ(Request().owner, &window);
}

TEST_F(HelpViewer, ContentsPage_OpensItsTopicInTheProgramsHelpFile) {
  ShowHelp(context, 1, true);
  EXPECT_EQ(Request().path, "D:\\Tools\\Discwright\\vexacd_builder.chm>Down");
  EXPECT_EQ(Request().topic_id, 1120);
  EXPECT_THAT(user.help_asked, IsEmpty());
}

TEST_F(HelpViewer, NotForced_LooksForTheViewersWindowFirst) {
  ShowHelp(context, 1, false);
  EXPECT_THAT(user.help_requests, IsEmpty());
  user.help_is_open = true;
  ShowHelp(context, 1, false);
  EXPECT_EQ(Request().topic_id, 1120);
  EXPECT_THAT(user.help_asked, ::testing::Each("HH Parent <The Vexa Rescue CD Help>"));
}

TEST_F(HelpViewer, PageInView_IsTheOneShownAndNotTheStep) {
  main.FraMain[0].visible = false;
  main.FraMain[9].visible = true;
  main.Step = 3;
  ShowHelp(context, kPageInView, true);
  EXPECT_EQ(Request().topic_id, 1200);
}

}  // namespace
}  // namespace discwright::wizard
