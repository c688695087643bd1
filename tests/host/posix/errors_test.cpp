// Tests of the error class of each system error.
#include "host/posix/errors.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

namespace discwright::host {
namespace {

struct Folding {
  int error;
  ErrorClass expected;
};

class StatusOfError : public ::testing::TestWithParam<Folding> {};

TEST_P(StatusOfError, EachErrno_HasItsClassAndTheSystemsOwnSentence) {
  const Status status = StatusOf(GetParam().error);
  EXPECT_EQ(status.error, GetParam().expected);
  EXPECT_EQ(status.cause, std::strerror(GetParam().error));
  EXPECT_FALSE(status.ok());
}

INSTANTIATE_TEST_SUITE_P(
    Errors, StatusOfError,
    ::testing::Values(Folding{ENOENT, ErrorClass::kNotFound}, Folding{ENOTDIR, ErrorClass::kNotFound},
                      Folding{EACCES, ErrorClass::kAccessDenied}, Folding{EPERM, ErrorClass::kAccessDenied},
                      Folding{EROFS, ErrorClass::kAccessDenied}, Folding{ETXTBSY, ErrorClass::kAccessDenied},
                      Folding{EBUSY, ErrorClass::kAccessDenied}, Folding{ENOSPC, ErrorClass::kDiskFull},
                      Folding{EDQUOT, ErrorClass::kDiskFull}, Folding{EIO, ErrorClass::kNotReady},
                      Folding{ENXIO, ErrorClass::kNotReady}, Folding{ENODEV, ErrorClass::kNotReady},
                      Folding{ENOMEDIUM, ErrorClass::kNotReady}, Folding{EEXIST, ErrorClass::kExists},
                      Folding{ELOOP, ErrorClass::kLoop}, Folding{EISDIR, ErrorClass::kWrongKind},
                      Folding{ENAMETOOLONG, ErrorClass::kOther}));

TEST(StatusOf, FileThatMayNotGrow_IsNoFullDiskAndSaysWhatForbidsIt) {
  const Status status = StatusOf(EFBIG);
  EXPECT_EQ(status.error, ErrorClass::kTooLarge);
  EXPECT_EQ(status.cause,
            "the file may not grow any more: the file system (FAT: 4 GB) or a limit of this account does not allow it");
}

TEST(StatusOfResult, ResultOfZeroOrAbove_IsSuccess) {
  EXPECT_TRUE(StatusOfResult(0).ok());
  EXPECT_TRUE(StatusOfResult(17).ok());
}

TEST(StatusOfResult, NegativeResult_IsTheFailureInErrno) {
  errno = ENOSPC;
  EXPECT_EQ(StatusOfResult(-1).error, ErrorClass::kDiskFull);
}

}  // namespace
}  // namespace discwright::host
