// The fixture for tests of util/: a fake host, user, programs and progress; no windows.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>

#include "tests/support/fake_host.h"
#include "tests/support/fake_programs.h"
#include "tests/support/fake_progress.h"
#include "tests/support/fake_user.h"
#include "util/notes.h"

namespace discwright::testing {

class UtilFixture : public ::testing::Test {
 protected:
  FakeHost host;
  FakeUser user;
  FakePrograms programs;
  FakeProgress progress;
  util::Notes notes;

  void ExpectOneNote(std::string_view place, std::string_view cause_part) {
    ASSERT_EQ(notes.all().size(), 1U);
    EXPECT_EQ(notes.all()[0].place, place);
    EXPECT_THAT(notes.all()[0].cause, ::testing::HasSubstr(cause_part));
  }
  void ExpectStoppedAt(std::string_view place, std::string_view cause_part) {
    ExpectOneNote(place, cause_part);
    EXPECT_THAT(notes.all()[0].cause, ::testing::HasSubstr("the rest of this folder and of the folders above it"));
  }
};

}  // namespace discwright::testing
