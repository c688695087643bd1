// Pipes and devices in the place of files.
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
      Status status;
      EXPECT_EQ(OpenBinary(folder.Core(name), mode, status), nullptr) << name;
      EXPECT_EQ(status.error, ErrorClass::kWrongKind) << name;
    }
  }
}

TEST(Sha256OfFile, Pipe_IsEmptyWithTheReason) {
  const TempFolder folder;
  folder.Pipe("pipe");
  Status status;
  EXPECT_EQ(Sha256OfFile(folder.Core("pipe"), status), "");
  EXPECT_EQ(status.error, ErrorClass::kWrongKind);
}

}  // namespace
}  // namespace discwright::host
