// Tests of writing when a limit of the account keeps files from growing.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <array>
#include <csignal>

#include "host/files.h"
#include "host/part_file.h"
#include "host/system.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

constexpr std::uint64_t kLargest = 4096;

// The destructor lifts the limit again.
class FileSizeLimit : public ::testing::Test {
 protected:
  void SetUp() override {
    SetUpSignals();
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{kLargest, before_.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  void TearDown() override {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, SIG_DFL);
  }

  testing::TempFolder folder_;
  rlimit before_{};
};

TEST_F(FileSizeLimit, WholeFileBeyondIt_IsTooLargeAndLeavesNothing) {
  EXPECT_EQ(WriteWholeFile(folder_.Core("file"), testing::BytesOfSize(kLargest + 1)).error, ErrorClass::kTooLarge);
  EXPECT_TRUE(folder_.Names().empty());
  EXPECT_TRUE(WriteWholeFile(folder_.Core("file"), testing::BytesOfSize(kLargest)).ok());
}

TEST_F(FileSizeLimit, WriteBeyondIt_IsTooLarge) {
  const auto file = OpenBinary(folder_.Core("file"), OpenMode::kCreateEmpty);
  const std::array<std::byte, 1> byte{};
  EXPECT_EQ(file.value->WriteAt(kLargest, byte).error, ErrorClass::kTooLarge);
}

// A file system that cannot set room aside finds out only when it writes.
TEST_F(FileSizeLimit, PartFileBeyondIt_IsTooLargeAtOnceOrWhenItIsWritten) {
  {
    const auto file = CreatePartFile(folder_.Core("file"), kLargest + 1);
    const std::array<std::uint8_t, 1> byte{};
    const Status status = file.ok() ? file.value->WriteAt(kLargest, byte) : file.status;
    EXPECT_EQ(status.error, ErrorClass::kTooLarge);
  }
  EXPECT_TRUE(folder_.Names().empty());
}

}  // namespace
}  // namespace discwright::host
