// Tests of the list of notes.
#include "util/notes.h"

#include <gtest/gtest.h>

namespace discwright::util {
namespace {

TEST(Notes, TwoNotesAdded_AreKeptInTheirOrder) {
  Notes notes;
  notes.Add("C:\\b", "first");
  notes.Add("C:\\a", "second");
  ASSERT_EQ(notes.all().size(), 2U);
  EXPECT_EQ(notes.all()[0].place, "C:\\b");
  EXPECT_EQ(notes.all()[0].cause, "first");
  EXPECT_EQ(notes.all()[1].place, "C:\\a");
}

TEST(Notes, SameNoteAgain_IsKeptOnce) {
  Notes notes;
  int heard = 0;
  notes.added = [&](const Note&) { ++heard; };
  notes.Add("C:\\a", "cause");
  notes.Add("C:\\a", "another");
  notes.Add("C:\\b", "cause");
  notes.Add("C:\\a", "cause");
  EXPECT_EQ(notes.all().size(), 3U);
  EXPECT_EQ(heard, 3);
}

TEST(Notes, WithAListener_CallsItForEveryNewNote) {
  Notes notes;
  std::string heard;
  notes.added = [&](const Note& note) { heard += note.place + "=" + note.cause; };
  notes.Add("C:\\a", "cause");
  EXPECT_EQ(heard, "C:\\a=cause");
}

TEST(Notes, Remark_IsKeptAndHeardButIsNoFailure) {
  Notes notes;
  std::string heard;
  notes.added = [&](const Note&) { heard += "failure "; };
  notes.remarked = [&](const Note& remark) { heard += remark.place + "=" + remark.cause; };
  notes.Remark("C:\\a", "replaces another file");
  EXPECT_EQ(heard, "C:\\a=replaces another file");
  EXPECT_TRUE(notes.all().empty());
  ASSERT_EQ(notes.remarks().size(), 1U);
  EXPECT_EQ(notes.remarks()[0].place, "C:\\a");
}

TEST(Notes, CheckOfASuccess_IsTrueAndAddsNothing) {
  Notes notes;
  EXPECT_TRUE(notes.Check(host::Status::Success(), "C:\\a", "could not be moved"));
  EXPECT_TRUE(notes.all().empty());
}

TEST(Notes, CheckOfAFailure_IsFalseAndAddsWhatAndWhy) {
  Notes notes;
  EXPECT_FALSE(notes.Check(host::Status::Failure(host::ErrorClass::kDiskFull, "No space left on device"), "C:\\a",
                           "could not be moved"));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\a");
  EXPECT_EQ(notes.all()[0].cause, "could not be moved: No space left on device");
}

TEST(Notes, CheckOfAFailureWithoutReason_NotesTheFailureOnly) {
  Notes notes;
  EXPECT_FALSE(notes.Check(host::Status::Failure(host::ErrorClass::kOther, ""), "C:\\a", "could not be moved"));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].cause, "could not be moved");
}

}  // namespace
}  // namespace discwright::util
