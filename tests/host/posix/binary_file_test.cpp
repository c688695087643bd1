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
      EXPECT_EQ(OpenBinary(folder.Core(name), mode).status.error, ErrorClass::kWrongKind) << name;
    }
  }
}

TEST(Sha256OfFile, Pipe_IsEmptyWithTheReason) {
  const TempFolder folder;
  folder.Pipe("pipe");
  EXPECT_EQ(Sha256OfFile(folder.Core("pipe")).status.error, ErrorClass::kWrongKind);
}

}  // namespace
}  // namespace discwright::host
