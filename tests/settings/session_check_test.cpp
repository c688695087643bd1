// Tests of the check of session files.
#include "settings/session_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "settings/session.h"
#include "settings/session_table.h"
#include "tests/support/build_fixture.h"
#include "util/program_folder.h"

namespace discwright::settings {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string kFile = "D:\\my session.ini";

class SessionCheck : public testing::BuildFixture {
 protected:
  std::vector<std::string> Problems(const std::string& content) {
    host.AddFile(kFile, content);
    return ProblemsOf(kFile);
  }
  static std::vector<std::string> ProblemsOf(const std::string& file) {
    std::vector<std::string> sentences;
    for (const SessionProblem& problem : CheckSession(file)) sentences.push_back(problem.Sentence());
    return sentences;
  }
};

TEST_F(SessionCheck, SessionThatTheProgramSaved_HasNoProblem) {
  WriteVexaCDINI(context.windows, context.notes);
  EXPECT_THAT(ProblemsOf(util::PathOf(util::Item::kSession)), IsEmpty());
}

TEST_F(SessionCheck, EveryKeyOfTheTable_IsKnownInItsSectionOnly) {
  for (const SessionKey& key : SessionKeys()) {
    const bool is_text = key.line->text_box != nullptr;
    const std::string line = std::string(key.key) + "=" + (is_text ? "any text" : "1") + "\n";
    EXPECT_THAT(Problems("[" + std::string(key.section) + "]\n" + line), IsEmpty());
    const bool is_its_own = key.section == "Main";
    EXPECT_EQ(Problems("[Main]\n" + line).empty(), is_its_own) << line;
  }
}

TEST_F(SessionCheck, EmptyFileCommentsAndMissingKeys_AreNoProblem) {
  EXPECT_THAT(Problems(""), IsEmpty());
  EXPECT_THAT(Problems("; a comment = 1\n\n  ;[Mine]\n[Main]\n"), IsEmpty());
}

TEST_F(SessionCheck, UnknownKey_IsNamedWithTheLikelyOne) {
  EXPECT_THAT(Problems("; mine\r\n\r\n[Main]\r\nWindowsXP=1\r\n"),
              ElementsAre("line 4: there is no key WindowsXP in section [Main]; did you mean Windows2K?"));
  EXPECT_THAT(Problems("[Main]\nCake=1\n"), ElementsAre("line 2: there is no key Cake in section [Main]"));
}

TEST_F(SessionCheck, KeyOfAnotherSection_IsReportedWithItsSection) {
  EXPECT_THAT(Problems("[BootDisks]\nwindows2k=1\n"),
              ElementsAre("line 2: there is no key windows2k in section [BootDisks]; it belongs in section [Main]"));
}

TEST_F(SessionCheck, UnknownSection_IsNamedOnceWithoutItsKeys) {
  EXPECT_THAT(Problems("[Win2K-Info]\nSourceDir=x\nRubbish=2\n[Other things]\nx=1\n"),
              ElementsAre("line 1: there is no section [Win2K-Info]; did you mean [Win2K_Info]?",
                          "line 4: there is no section [Other things]"));
}

TEST_F(SessionCheck, KeyBeforeAnySection_IsAProblem) {
  EXPECT_THAT(Problems("Windows2K=1\n[Main]\n"),
              ElementsAre("line 1: the key Windows2K comes before the first section"));
}

TEST_F(SessionCheck, LineWithoutSectionOrKey_IsAProblem) {
  EXPECT_THAT(Problems("[Main]\nWindows2K\n=1\n[Main\n# note\n"),
              ElementsAre("line 2: 'Windows2K' is neither a section nor a key with a value; a comment begins with ';'",
                          HasSubstr("line 3: '=1' is neither"), HasSubstr("line 4: '[Main' is neither"),
                          HasSubstr("line 5: '# note' is neither")));
}

TEST_F(SessionCheck, RepeatedKeyOrSection_IsAProblem) {
  EXPECT_THAT(Problems("[Main]\nWindows2K=1\nwindows2k=yes\n[Locations]\n[MAIN]\nWindows9x=1\n"),
              ElementsAre("line 3: the key Windows2K appears again; only the first one is read",
                          "line 5: section [Main] appears again; only the first one is read"));
}

TEST_F(SessionCheck, CheckBox_TakesZeroToTwoInQuotesAndBlanks) {
  for (const char* value : {"0", "1", "2", "\"1\"", "' 1 '", "\" 2 \"", "   0  "}) {
    EXPECT_THAT(Problems("[Main]\nWindows2K=" + std::string(value) + "\n[Locations]\nVexaUtils=" + value), IsEmpty());
  }
  for (const char* value : {"yes", "3", "-1", "+1", "01", "1abc", "true"}) {
    EXPECT_THAT(Problems("[Main]\n\nWindows2K = \"" + std::string(value) + "\"\n[Locations]\nVexaUtils=" + value),
                ElementsAre("line 3: Windows2K takes 0 or 1, not '" + std::string(value) + "'",
                            "line 5: VexaUtils takes 0 or 1, not '" + std::string(value) + "'"));
  }
  EXPECT_THAT(Problems("[Main]\nWindows2K=\n"), ElementsAre("line 2: Windows2K takes 0 or 1, not ''"));
}

TEST_F(SessionCheck, JoinDomain_TakesItsWordsAndNumbers) {
  for (const char* value : {"True", "FALSE", "\"false\"", "0", "1", "-1", "+12"}) {
    EXPECT_THAT(Problems("[Win2K_Info]\nJoinDomain = " + std::string(value)), IsEmpty()) << value;
  }
  for (const char* value : {"maybe", "", "-", "1 or so", "Truely"}) {
    EXPECT_THAT(Problems("[Win2K_Info]\nJoinDomain=" + std::string(value)),
                ElementsAre("line 2: JoinDomain takes True, False or a number, not '" + std::string(value) + "'"));
  }
}

TEST_F(SessionCheck, TextInAnyForm_IsTaken) {
  EXPECT_THAT(Problems("[Main]\nISOLocation=\n[Win2k_Info]\nSourceDir= [x] = ; 'y\nOwnerName=\"\"\n"), IsEmpty());
}

TEST_F(SessionCheck, LetterCase_DoesNotMatter) {
  EXPECT_THAT(Problems("[WIN2k_info]\nSOURCEDIR=x\n[main]\nwindows2k=1\n"), IsEmpty());
}

TEST_F(SessionCheck, MarkedUtf8AndTheCodePage_AreReadAsTheReaderDoes) {
  EXPECT_THAT(Problems("\xEF\xBB\xBF[Main]\r\nWindows2K=Ω\r\n"),
              ElementsAre("line 2: Windows2K takes 0 or 1, not 'Ω'"));
  EXPECT_THAT(Problems("[Main]\nWindows2K=\xFC\n"), ElementsAre("line 2: Windows2K takes 0 or 1, not 'ü'"));
}

TEST_F(SessionCheck, Utf16_IsOneProblem) {
  EXPECT_THAT(Problems(std::string("\xFF\xFE[\0M\0", 6)), ElementsAre(HasSubstr("two bytes per character")));
}

TEST_F(SessionCheck, FileThatCannotBeRead_IsOneProblem) {
  EXPECT_THAT(ProblemsOf("D:\\none.ini"), ElementsAre(HasSubstr("could not be read: ")));
}

}  // namespace
}  // namespace discwright::settings
