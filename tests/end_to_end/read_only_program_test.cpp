// Tests of a read-only program folder.
#include <sys/mount.h>

#include <cerrno>
#include <cstring>

#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

namespace {

// Mounts a folder read-only until it is destroyed. This stops the superuser, too.
class ReadOnly {
 public:
  explicit ReadOnly(fs::path folder) : folder_(std::move(folder)) {
    if (mount(folder_.c_str(), folder_.c_str(), nullptr, MS_BIND, nullptr) != 0) {
      error_ = errno;
    } else if (mount(nullptr, folder_.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) != 0) {
      error_ = errno;
      umount2(folder_.c_str(), MNT_DETACH);
    }
  }
  ~ReadOnly() {
    if (error_ == 0) umount2(folder_.c_str(), MNT_DETACH);
  }
  ReadOnly(const ReadOnly&) = delete;
  ReadOnly& operator=(const ReadOnly&) = delete;
  int error() const { return error_; }

 private:
  fs::path folder_;
  int error_ = 0;
};

class ReadOnlyProgram : public BuildTest {};

}  // namespace

TEST_F(ReadOnlyProgram, NothingIsBuiltAndTheMessageNamesASolution) {
  const ReadOnly read_only(program.folder());
  if (read_only.error() != 0) GTEST_SKIP() << "this machine mounts nothing: " << std::strerror(read_only.error());
  const auto before = Fingerprint(program.folder());
  const Outcome outcome = Build();
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "The program folder " + program.folder().string() +
                             " cannot be written to: Read-only file system.\n"
                             "Copy the program to a folder of your own and start it there.\n");
  EXPECT_EQ(Fingerprint(program.folder()), before);
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(ReadOnlyProgram, ControlsAreStillListed) {
  WriteFile(program / "vexacd.ini", "[Main]\r\nOptimizeISO = 1\r\n");
  const ReadOnly read_only(program.folder());
  if (read_only.error() != 0) GTEST_SKIP() << "this machine mounts nothing: " << std::strerror(read_only.error());
  const Outcome outcome = program.Build({"--controls"});
  EXPECT_EQ(outcome.exit_code, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, ::testing::StartsWith("Page 0: "));
}

}  // namespace discwright::testing
