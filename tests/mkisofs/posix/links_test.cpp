// Tests of trees with symbolic links, pipes and sockets.
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "tests/mkisofs/mastering.h"

namespace discwright::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class MasterLinks : public Mastering {};

TEST_F(MasterLinks, Links_AreStoredAsWhatTheyLeadTo) {
  folder.Write("outside/in.txt", "linked");
  folder.Link("../outside", "tree/folder");
  folder.Link("../outside/in.txt", "tree/file");
  folder.Link("folder/in.txt", "tree/through");
  const IsoImage iso = MasteredImage();
  EXPECT_THAT(Paths(iso), ElementsAre("", "file", "folder", "through", "folder/in.txt"));
  EXPECT_EQ(Content(iso.Find("folder/in.txt")), "linked");
  EXPECT_EQ(iso.Find("file")->extent, iso.Find("folder/in.txt")->extent);
  EXPECT_EQ(iso.Find("through")->extent, iso.Find("folder/in.txt")->extent);
}

TEST_F(MasterLinks, TreeGivenAsALink_IsFollowed) {
  folder.Write("real/file", "x");
  std::filesystem::remove(folder.Native("tree"));
  folder.Link("real", "tree");
  EXPECT_THAT(Paths(MasteredImage()), ElementsAre("", "file"));
}

TEST_F(MasterLinks, LinksIntoALoop_AreAnErrorThatNamesThem) {
  folder.Write("tree/a/file", "x");
  folder.Link("..", "tree/a/loop");
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr("tree/a/loop: a link that leads back"));
  std::filesystem::remove(folder.Native("tree/a/loop"));
  folder.Link("self", "tree/self");
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr("tree/self: Too many levels of symbolic links"));
  ExpectNoImage();
}

TEST_F(MasterLinks, LinkToAFolderAboveTheTree_IsALoop) {
  folder.Link("..", "tree/above");
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr("a link that leads back"));
}

TEST_F(MasterLinks, BrokenLinks_AreAnErrorThatNamesThem) {
  folder.Write("tree/file", "x");
  folder.Link("nowhere", "tree/broken");
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr("tree/broken: a symbolic link that leads nowhere"));
  ExpectNoImage();
}

TEST_F(MasterLinks, FilesAndLinksThatCannotBeLookedAt_AreAnErrorThatNamesThem) {
  folder.Write("tree/sub/file", "x");
  folder.Write("locked/file", "x");
  folder.Link("../locked/file", "tree/link");
  for (const char* open : {"", "tree"}) folder.SetMode(open, 0755);
  folder.SetMode("locked", 0);
  folder.SetMode("tree/sub", 0644);
  const host::testing::WithoutRights without;
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr("tree/sub/file: Permission denied"));
  EXPECT_THAT(messages, HasSubstr("tree/link: Permission denied"));
}

TEST_F(MasterLinks, LinksWithoutFollowLinks_AreAnErrorThatNamesThem) {
  folder.Write("tree/file", "x");
  folder.Link("file", "tree/link");
  EXPECT_EQ(Master({"-cache-inodes"}), 1);
  EXPECT_THAT(messages, HasSubstr("tree/link: a symbolic link, and -follow-links is not given"));
}

TEST_F(MasterLinks, PipesAndSockets_AreAnErrorThatNamesThem) {
  folder.Pipe("tree/pipe");
  const int fd = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{AF_UNIX, {}};
  folder.Native("tree/socket").copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  EXPECT_EQ(Master(), 1);
  close(fd);
  EXPECT_THAT(messages, HasSubstr("tree/pipe: a device, pipe or socket"));
  EXPECT_THAT(messages, HasSubstr("tree/socket: a device, pipe or socket"));
  ExpectNoImage();
}

TEST_F(MasterLinks, FileThatBecomesAPipeMeanwhile_IsAnErrorThatNamesIt) {
  folder.Write("tree/a", "first");
  folder.Write("tree/b", "second");
  stopped = [this] { return std::filesystem::remove(folder.Native("tree/b")), folder.Pipe("tree/b"), false; };
  EXPECT_EQ(Master(), 1);
  EXPECT_THAT(messages, HasSubstr("tree/b: "));
  ExpectNoImage();
}

}  // namespace
}  // namespace discwright::testing
