// Tests that the help topics exist, that their links lead somewhere, and that they agree with the pages and the
// messages of the program.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "forms/all_windows.h"
#include "wizard/help.h"
#include "wizard/layout.h"

namespace discwright::wizard {
namespace {

namespace fs = std::filesystem;
using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::HasSubstr;

constexpr int kMostWords = 500;

const fs::path kHelp = u8"" SHIPPED_HELP;  // UTF-8 on Windows, too

std::string Read(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The text with every run of blanks and line ends as one blank, and without blanks at both ends.
std::string OnOneLine(const std::string& text) {
  std::string line;
  for (const char c : text) {
    const bool is_blank = std::isspace(static_cast<unsigned char>(c)) != 0;
    if (!is_blank) line += c;
    if (is_blank && !line.empty() && line.back() != ' ') line += ' ';
  }
  if (line.ends_with(' ')) line.pop_back();
  return line;
}

// The text of a piece of HTML as a browser shows it.
std::string Shown(const std::string& html) {
  std::string text = std::regex_replace(html, std::regex("<[^>]*>"), "");
  for (const auto& [entity, character] : {std::pair{"&lt;", "<"}, std::pair{"&gt;", ">"}, std::pair{"&amp;", "&"}}) {
    text = std::regex_replace(text, std::regex(entity), character);
  }
  return OnOneLine(text);
}

// What the first group of `pattern` matches at each place of the text.
std::vector<std::string> All(const std::string& text, const std::string& pattern) {
  const std::regex expression(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) {
    found.push_back((*match)[1]);
  }
  return found;
}

std::string FileOfPage(int page) { return std::to_string(HelpTopic(page)) + ".html"; }
std::string Topic(int page) { return Read(kHelp / FileOfPage(page)); }
std::string Title(const std::string& html) { return Shown(All(html, "<title>([^<]*)</title>").at(0)); }

std::vector<std::string> Files() {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(kHelp))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> HtmlFiles() {
  std::vector<std::string> names = Files();
  std::erase_if(names, [](const std::string& name) { return !name.ends_with(".html"); });
  return names;
}

// The captions that a topic shows in bold, without the blanks around them.
std::set<std::string> Captions(int page) {
  std::set<std::string> captions;
  for (const std::string& bold : All(Topic(page), "<b>([^]*?)</b>")) captions.insert(Shown(bold));
  return captions;
}

// The texts by which the user knows the controls of a page, of the buttons below it, and of a dialog that it opens.
std::set<std::string> TextsOnPage(forms::Windows& windows, int page) {
  std::set<std::string> texts;
  const auto add = [&](const forms::Control& control) { texts.insert(OnOneLine(forms::NamingText(control))); };
  for (const Layout& layout : {LayoutOfPage(windows, page), LayoutOfButtons(windows)}) {
    if (layout.heading != nullptr) add(*layout.heading);
    for (const forms::Control* control : ControlsOf(layout)) add(*control);
  }
  if (page == 3) {
    for (const forms::Control* control : windows.win2k_info.controls()) add(*control);
  }
  if (page == 4) {
    for (const forms::Control* control : windows.win9x_info.controls()) add(*control);
  }
  return texts;
}

// The literals of a source file, joined where the compiler joins them, with a blank for each line end in them.
std::string Literals(const std::string& source) {
  std::string text = std::regex_replace(source, std::regex("\"\\s*\\n\\s*\""), "");
  text = std::regex_replace(text, std::regex(R"(\\r\\n|\\n)"), " ");
  return std::regex_replace(text, std::regex(R"(\\")"), "\"");
}

// The sources of everything that shows a message while the program is used.
std::string ProgramText() {
  std::string text;
  const fs::path root = u8"" PROGRAM_SOURCES;
  for (const char* room : {"forms", "util", "steps", "integration", "pipeline", "wizard", "boot"}) {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root / room)) {
      if (entry.is_regular_file()) text += Literals(Read(entry.path()));
    }
  }
  return text;
}

TEST(HelpTopics, Folder_HoldsOneTopicForEachPageTheThreeListsAndTheScript) {
  std::vector<std::string> expected = {"contents.html", "help.css", "index.html", "script.html", "start.html"};
  for (int page = 0; page < static_cast<int>(forms::kPageCount); ++page) expected.push_back(FileOfPage(page));
  EXPECT_THAT(Files(), ::testing::UnorderedElementsAreArray(expected));
}

TEST(HelpTopics, EveryFile_HasATitleAndIsAscii) {
  for (const std::string& name : HtmlFiles()) {
    const std::string html = Read(kHelp / name);
    EXPECT_NE(Title(html), "") << name;
    EXPECT_TRUE(std::all_of(html.begin(), html.end(), [](char c) { return static_cast<unsigned char>(c) < 128; }))
        << name;
  }
}

TEST(HelpTopics, EveryTopic_IsShortAndBeginsWithItsTitle) {
  for (int page = 0; page < static_cast<int>(forms::kPageCount); ++page) {
    const std::string html = Topic(page);
    EXPECT_THAT(All(html, "<h1>([^<]*)</h1>"), ::testing::ElementsAre(Title(html))) << FileOfPage(page);
    const std::string text = Shown(html.substr(html.find("<body>")));
    EXPECT_LT(std::count(text.begin(), text.end(), ' '), kMostWords) << FileOfPage(page);
  }
}

TEST(HelpTopics, EveryLink_LeadsToAFileAndItsAnchor) {
  for (const std::string& name : HtmlFiles()) {
    for (const std::string& link : All(Read(kHelp / name), "href=\"([^\"]*)\"")) {
      const std::string file = link.substr(0, link.find('#'));
      ASSERT_TRUE(fs::is_regular_file(kHelp / file)) << name << " has a link to " << link;
      if (file == link) continue;
      EXPECT_THAT(All(Read(kHelp / file), "<a name=\"([^\"]*)\">"), Contains(link.substr(file.size() + 1)))
          << name << " has a link to " << link;
    }
  }
}

TEST(HelpTopics, NoFile_NamesAWebAddressOtherThanThoseOfTheFinishPage) {
  for (const std::string& name : HtmlFiles()) {
    for (const std::string& address : All(Read(kHelp / name), "([a-z]+://[^\"<\\s]*|www[.][^\"<\\s]*)")) {
      EXPECT_THAT(address, AnyOf(forms::kHomePage, forms::kCdShellPage, forms::kBootableCdsPage)) << name;
    }
  }
}

TEST(HelpTopics, Contents_ListsEveryTopicByItsTitleInTheOrderOfThePages) {
  const std::string contents = Read(kHelp / "contents.html");
  std::vector<std::string> expected;
  for (int page = 0; page < static_cast<int>(forms::kPageCount); ++page) {
    expected.push_back(FileOfPage(page));
    EXPECT_THAT(contents, HasSubstr("<a href=\"" + FileOfPage(page) + "\">" + Title(Topic(page)) + "</a>"));
  }
  EXPECT_EQ(All(contents, "href=\"([0-9]+[.]html)\""), expected);
}

TEST(HelpTopics, Index_IsSortedWithoutRegardToLetterCaseAndHasNoTermTwice) {
  std::vector<std::string> terms = All(Read(kHelp / "index.html"), "<li><a href=\"[^\"]*\">([^<]*)</a></li>");
  EXPECT_GE(terms.size(), 40U);
  for (std::string& term : terms) {
    std::transform(term.begin(), term.end(), term.begin(), [](unsigned char c) { return std::tolower(c); });
  }
  const auto out_of_order = std::adjacent_find(terms.begin(), terms.end(), std::greater_equal<>());
  EXPECT_EQ(out_of_order, terms.end()) << *out_of_order;
}

TEST(HelpTopics, TextsInBold_AreOnThePage) {
  forms::Windows windows;
  for (int page = 0; page < static_cast<int>(forms::kPageCount); ++page) {
    const std::set<std::string> texts = TextsOnPage(windows, page);
    for (const std::string& caption : Captions(page)) EXPECT_THAT(texts, Contains(caption)) << FileOfPage(page);
  }
}

TEST(HelpTopics, EveryControlThatTakesInput_IsInTheTopicOfItsPage) {
  forms::Windows windows;
  for (int page = 0; page < static_cast<int>(forms::kPageCount); ++page) {
    const std::set<std::string> captions = Captions(page);
    for (const forms::Control* control : ControlsOf(LayoutOfPage(windows, page))) {
      if (dynamic_cast<const forms::CheckBox*>(control) == nullptr &&
          dynamic_cast<const forms::CommandButton*>(control) == nullptr &&
          dynamic_cast<const forms::TextBox*>(control) == nullptr) {
        continue;
      }
      EXPECT_THAT(captions, Contains(OnOneLine(forms::NamingText(*control)))) << FileOfPage(page);
    }
  }
}

TEST(HelpTopics, Messages_AreThoseOfTheProgram) {
  const std::string program = ProgramText();
  int count = 0;
  for (const std::string& name : HtmlFiles()) {
    for (const std::string& message : All(Read(kHelp / name), "<i class=\"message\">([^]*?)</i>")) {
      EXPECT_NE(program.find(Shown(message)), std::string::npos) << name << ": " << Shown(message);
      ++count;
    }
  }
  EXPECT_GT(count, 20);
}

}  // namespace
}  // namespace discwright::wizard
