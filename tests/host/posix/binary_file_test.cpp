// Tests of pipes and devices in the place of files.
#include <gmock/gmock.h>

#include "host/files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using testing::TempFolder;

TEST(OpenBinary, PipeOrDevice_IsOfTheWrongKindInEveryMode) {
  const TempFolder folder;
  folder.Pipe("pipe");
  folder.Link("/dev/zero", "zero");
  for (const OpenMode mode : {OpenMode::kRead, OpenMode::kReadWrite, OpenMode::kCreateEmpty}) {
    for (const char* name : {"pipe", "zero"}) {
      const bool is_emptied_link = mode == OpenMode::kCreateEmpty && std::string_view(name) == "zero";
      const ErrorClass expected = is_emptied_link ? ErrorClass::kNone : ErrorClass::kWrongKind;
      EXPECT_EQ(OpenBinary(folder.Core(name), mode).status.error, expected) << name;
    }
  }
}

TEST(OpenBinary, CreatingAnEmptyFile_ReplacesALinkAndItsTargetStays) {
  const TempFolder folder;
  folder.Write("precious", "content");
  folder.Link("precious", "link");
  EXPECT_TRUE(OpenBinary(folder.Core("link"), OpenMode::kCreateEmpty).ok());
  EXPECT_EQ(folder.Read("precious"), "content");
  EXPECT_EQ(folder.Read("link"), "");
}

TEST(Sha256OfFile, Pipe_IsEmptyWithTheReason) {
  const TempFolder folder;
  folder.Pipe("pipe");
  EXPECT_EQ(Sha256OfFile(folder.Core("pipe")).status.error, ErrorClass::kWrongKind);
}

}  // namespace
}  // namespace discwright::host
