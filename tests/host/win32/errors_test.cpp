// Tests of the error class of each system error.
#include "host/win32/errors.h"

#include <gtest/gtest.h>

namespace discwright::host {
namespace {

struct Folding {
  DWORD error;
  ErrorClass expected;
};

class StatusOfError : public ::testing::TestWithParam<Folding> {};

TEST_P(StatusOfError, EachCode_HasItsClassAndTheSystemsOwnSentence) {
  const Status status = StatusOf(GetParam().error);
  EXPECT_EQ(status.error, GetParam().expected);
  EXPECT_FALSE(status.cause.empty());
  EXPECT_EQ(status.cause.find_first_of("\r\n"), status.cause.npos);
}

INSTANTIATE_TEST_SUITE_P(
    Errors, StatusOfError,
    ::testing::Values(
        Folding{ERROR_FILE_NOT_FOUND, ErrorClass::kNotFound}, Folding{ERROR_PATH_NOT_FOUND, ErrorClass::kNotFound},
        Folding{ERROR_DIRECTORY, ErrorClass::kNotFound}, Folding{ERROR_ACCESS_DENIED, ErrorClass::kAccessDenied},
        Folding{ERROR_SHARING_VIOLATION, ErrorClass::kAccessDenied},
        Folding{ERROR_WRITE_PROTECT, ErrorClass::kAccessDenied}, Folding{ERROR_DISK_FULL, ErrorClass::kDiskFull},
        Folding{ERROR_NOT_READY, ErrorClass::kNotReady}, Folding{ERROR_CRC, ErrorClass::kNotReady},
        Folding{ERROR_FILE_EXISTS, ErrorClass::kExists}, Folding{ERROR_ALREADY_EXISTS, ErrorClass::kExists},
        Folding{ERROR_CANT_RESOLVE_FILENAME, ErrorClass::kLoop}, Folding{ERROR_DIR_NOT_EMPTY, ErrorClass::kOther}));

TEST(StatusOf, CodeWithoutASentence_IsShownAsItsNumber) { EXPECT_EQ(StatusOf(0x1FFFFFFF).cause, "error 536870911"); }

TEST(StatusOf, FileThatMayNotGrow_IsNoFullDisk) {
  EXPECT_EQ(StatusOf(ERROR_FILE_TOO_LARGE).error, ErrorClass::kTooLarge);
}

TEST(StatusOfResult, NotZero_IsSuccess) { EXPECT_TRUE(StatusOfResult(1).ok()); }

TEST(StatusOfResult, Zero_IsTheLastFailure) {
  SetLastError(ERROR_DISK_FULL);
  EXPECT_EQ(StatusOfResult(0).error, ErrorClass::kDiskFull);
}

}  // namespace
}  // namespace discwright::host
