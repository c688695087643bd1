// Tests of the example session and the table of its keys that ship with the program.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <sstream>

#include "base/ini_text.h"
#include "settings/session.h"
#include "settings/session_check.h"
#include "settings/session_table.h"
#include "tests/support/build_fixture.h"
#include "util/paths.h"

namespace discwright::settings {
namespace {

using ::testing::IsEmpty;

constexpr const char* kTableHead =
    "The keys of a session file for discwright-build, in the order in which the program saves them; an example is\n"
    "\"example_session.ini\" beside this file. Letter case does not matter in the names of sections and keys. Every "
    "value\n"
    "may stand in double quotes, and a text can have 99 characters. A key that is missing means 0 or an empty text, "
    "but\n"
    "BootDisks is always read as 1. With JoinDomain, True and False both mean 0, the workgroup; another number is "
    "needed\n"
    "to choose the domain.\n"
    "\n"
    "Each key sets a control of the program. The option --set takes the name of that control instead, for example\n"
    "--set ChkGet_Win2k=1; the caption is what stands beside the control in the program's window.\n"
    "\n";

std::string ReadShipped(const std::string& name) {
  const std::string path = std::string(SHIPPED_SESSIONS "/").append(name);
  // This also works if the folder of the sources has a name with characters beyond ASCII.
  std::ifstream file(std::filesystem::path(std::u8string(path.begin(), path.end())), std::ios::binary);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string WithoutCarriageReturns(std::string text) {
  std::erase(text, '\r');
  return text;
}

// The caption or label that names the control in the window, without blanks and the colon.
std::string CaptionOf(const forms::Control& control) {
  std::string caption = util::Trim(forms::NamingText(control));
  if (caption.ends_with(':')) caption.pop_back();
  return util::Trim(caption);
}

const forms::Control& ControlOf(forms::Windows& windows, const SessionLine& line) {
  if (line.check_box != nullptr) return line.check_box(windows);
  if (line.text_box != nullptr) return line.text_box(windows);
  return windows.win2k_info.OptJoinDomain;
}

std::string NameOf(const forms::Control& control, const forms::Windows& windows) {
  const bool is_of_main = &control.form() == &windows.main;
  return is_of_main ? control.name() : control.form().name() + "." + control.name();
}

std::string TableLine(std::string_view section, std::string_view key, std::string_view takes, std::string_view control,
                      std::string_view caption) {
  std::ostringstream line;
  line << std::left << std::setw(14) << section << std::setw(18) << key << std::setw(25) << takes << std::setw(28)
       << control << caption << "\n";
  return line.str();
}

class ShippedSession : public testing::BuildFixture {
 protected:
  const std::string kFile = "C:\\Discwright\\files\\sessions\\example_session.ini";
  const std::string example = ReadShipped("example_session.ini");
};

TEST_F(ShippedSession, TableOfKeys_IsThatOfTheProgram) {
  std::string expected = kTableHead + TableLine("Section", "Key", "Takes", "Control", "Caption");
  for (const SessionKey& key : SessionKeys()) {
    const forms::Control& control = ControlOf(windows, *key.line);
    expected += TableLine(key.section, key.key, AcceptedValues(key.line->encoding), NameOf(control, windows),
                          CaptionOf(control));
  }
  EXPECT_EQ(WithoutCarriageReturns(ReadShipped("session_keys.txt")), expected)
      << "files/sessions/session_keys.txt must be:\n"
      << expected;
}

TEST_F(ShippedSession, Example_HasEveryKeyAndPassesTheStrictCheck) {
  host.AddFile(kFile, example);
  for (const SessionProblem& problem : CheckSession(kFile)) ADD_FAILURE() << problem.Sentence();
  for (const SessionKey& key : SessionKeys()) {
    EXPECT_TRUE(base::FindIniValue(example, key.section, key.key))
        << "the example lacks " << key.key << " in [" << key.section << "], which takes "
        << AcceptedValues(key.line->encoding);
  }
}

TEST_F(ShippedSession, EverySectionOfTheExample_HasACommentAboveIt) {
  const std::vector<base::IniLine> lines = base::IniLines(example);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].kind != base::IniLineKind::kSection) continue;
    ASSERT_GT(i, 0u);
    EXPECT_EQ(lines[i - 1].kind, base::IniLineKind::kComment) << lines[i].name;
  }
}

TEST_F(ShippedSession, Example_ReadsBackAsItStandsThere) {
  host.AddFile(kFile, example);
  ReadVexaCDINI(context.windows, context.notes, kFile);
  EXPECT_THAT(notes.all(), IsEmpty());
  EXPECT_TRUE(WriteSession(windows, notes, "C:\\Discwright\\kept.ini").ok());
  const std::string kept = host.Content("C:\\Discwright\\kept.ini");
  for (const SessionKey& key : SessionKeys()) {
    EXPECT_EQ(base::FindIniValue(kept, key.section, key.key), base::FindIniValue(example, key.section, key.key))
        << key.key;
  }
}

TEST_F(ShippedSession, Bytes_ArePrintableAsciiInLinesThatEndInCrLf) {
  for (const std::string& text : {example, ReadShipped("session_keys.txt")}) {
    EXPECT_TRUE(text.ends_with("\r\n"));
    EXPECT_EQ(std::ranges::count(text, '\r'), std::ranges::count(text, '\n'));
    EXPECT_TRUE(std::ranges::all_of(text, [](char c) { return (c >= ' ' && c <= '~') || c == '\r' || c == '\n'; }));
  }
}

}  // namespace
}  // namespace discwright::settings
