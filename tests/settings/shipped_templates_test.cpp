// Tests of the setup templates that ship with the program.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

#include "base/ini_text.h"
#include "settings/key_files.h"
#include "settings/win2k_info.h"
#include "settings/win9x_info.h"
#include "tests/support/fake_host.h"

namespace discwright::settings {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Not;

using Section = std::pair<std::string, std::vector<std::string>>;  // a name and keys

struct Template {
  std::string name;
  std::vector<Section> answers;  // what the program writes into it
};

const std::vector<Section> kBatchAnswers = {{"NameAndOrg", {"Name", "Org"}},
                                            {"Network", {"ComputerName", "Workgroup"}}};
const Template kWin2K = {"win2k_template.inf",
                         {{"Data", {"MsDosInitiated", "UnattendedInstall"}},
                          {"UserData", {"FullName", "OrgName", "ComputerName"}},
                          {"Identification", {"JoinWorkgroup", "JoinDomain"}}}};
const Template kWin98 = {"win98_template.inf", kBatchAnswers};
const Template kWinMe = {"winme_template.inf", kBatchAnswers};

std::string ReadShipped(const std::string& name) {
  const std::string path = std::string(SHIPPED_TEMPLATES "/").append(name);
  // This also works if the folder of the sources has a name with characters beyond ASCII.
  std::ifstream file(std::filesystem::path(std::u8string(path.begin(), path.end())), std::ios::binary);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string Folded(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

std::vector<std::string> SectionsOf(const std::string& text) {
  std::vector<std::string> names;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with('[')) names.push_back(line.substr(1, line.find(']') - 1));
  }
  return names;
}

class ShippedTemplate : public ::testing::TestWithParam<Template> {
 protected:
  testing::FakeHost host;
  std::string text = ReadShipped(GetParam().name);

  std::vector<std::string> KeysOf(const std::string& section) const {
    std::vector<std::string> keys;
    for (const base::IniKey& key : base::IniSection(text, section)) keys.push_back(Folded(key.key));
    return keys;
  }
  std::vector<std::string> AllKeys() const {
    std::vector<std::string> all;
    for (const std::string& section : SectionsOf(text)) {
      for (const std::string& key : KeysOf(section)) all.push_back(key);
    }
    return all;
  }
};

TEST_P(ShippedTemplate, Bytes_ArePrintableAsciiInLinesThatEndInCrLf) {
  ASSERT_TRUE(text.ends_with("\r\n"));
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r') {
      EXPECT_EQ(text[i + 1], '\n') << i;
    } else if (text[i] == '\n') {
      EXPECT_EQ(text[i - 1], '\r') << i;
    } else {
      EXPECT_TRUE(text[i] >= ' ' && text[i] <= '~') << i;
    }
  }
}

TEST_P(ShippedTemplate, Line_IsASectionAKeyACommentOrEmpty) {
  const std::regex known(R"((;.*|\[[A-Za-z0-9]+\]|[A-Za-z0-9]+=.*|)\r)");
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) EXPECT_TRUE(std::regex_match(line, known)) << line;
}

TEST_P(ShippedTemplate, SectionsAndTheirKeys_StandThereOnce) {
  std::set<std::string> sections;
  for (const std::string& section : SectionsOf(text)) {
    EXPECT_TRUE(sections.insert(Folded(section)).second) << section;
    const std::vector<std::string> keys = KeysOf(section);
    EXPECT_EQ(std::set<std::string>(keys.begin(), keys.end()).size(), keys.size()) << section;
  }
}

TEST_P(ShippedTemplate, KeysThatTheProgramWrites_AreThere) {
  for (const auto& [section, keys] : GetParam().answers) {
    for (const std::string& key : keys) EXPECT_THAT(KeysOf(section), Contains(Folded(key))) << section;
  }
}

TEST_P(ShippedTemplate, ProductKey_IsNotThereAndACommentNamesItsPlace) {
  EXPECT_THAT(AllKeys(), Not(Contains(::testing::StartsWith("product"))));
  EXPECT_FALSE(std::regex_search(text, std::regex("[A-Za-z0-9]{5}(-[A-Za-z0-9]{5}){4}")));
  EXPECT_THAT(text, ::testing::ContainsRegex("; .*ProductKey"));
}

TEST_P(ShippedTemplate, Choices_AreLeftToTheUser) {
  for (const char* key : {"repartition", "extendoempartition", "oemskipeula", "adminpassword", "autologon", "cleanboot",
                          "targetpath", "installdir"}) {
    EXPECT_THAT(AllKeys(), Not(Contains(key)));
  }
}

INSTANTIATE_TEST_SUITE_P(Templates, ShippedTemplate, ::testing::Values(kWin2K, kWin98, kWinMe));

TEST(ShippedWin2KTemplate, Setup_AsksAndLeavesTheFileSystemAlone) {
  const testing::FakeHost host;
  const std::string text = ReadShipped(kWin2K.name);
  EXPECT_EQ(base::FindIniValue(text, "Data", "AutoPartition"), "0");
  EXPECT_EQ(base::FindIniValue(text, "Unattended", "FileSystem"), "LeaveAlone");
  EXPECT_EQ(base::FindIniValue(text, "Unattended", "UnattendMode"), "ProvideDefault");
  EXPECT_THAT(text, ::testing::ContainsRegex("; .*ProductID"));
}

TEST(ShippedBatchTemplates, Setup_ShowsItsPagesAndTheLicence) {
  const testing::FakeHost host;
  for (const Template& shipped : {kWin98, kWinMe}) {
    const std::string text = ReadShipped(shipped.name);
    EXPECT_EQ(base::FindIniValue(text, "Version", "Signature"), "$CHICAGO$");
    EXPECT_EQ(base::FindIniValue(text, "Setup", "Express"), "0");
    EXPECT_EQ(base::FindIniValue(text, "Setup", "ShowEula"), "1");
    EXPECT_EQ(base::FindIniValue(text, "Setup", "VRC"), "0");
  }
}

TEST(ShippedWin2KTemplate, DialogThatOpensWithIt_ShowsItsDefaults) {
  testing::FakeHost host;
  const std::string place = "C:\\Discwright\\files\\inf_files\\win2k_template.inf";
  host.AddFile(place, ReadShipped(kWin2K.name));
  const forms::FrmWin2KInfo designed;
  forms::FrmWin2KInfo dialog;
  for (forms::TextBox* box : {&dialog.TxtOwner, &dialog.TxtOrg, &dialog.TxtPCName, &dialog.TxtWorkgroup}) {
    box->text = "before";
  }
  util::Notes notes;
  LoadWin2KInfo(dialog, notes);
  EXPECT_EQ(dialog.TxtTemplate.text.get(), place);
  EXPECT_EQ(dialog.TxtOwner.text.get(), designed.TxtOwner.text.get());
  EXPECT_EQ(dialog.TxtOrg.text.get(), designed.TxtOrg.text.get());
  EXPECT_EQ(dialog.TxtPCName.text.get(), designed.TxtPCName.text.get());
  EXPECT_EQ(dialog.TxtWorkgroup.text.get(), designed.TxtWorkgroup.text.get());
  EXPECT_EQ(dialog.OptJoinWorkgroup.value, designed.OptJoinWorkgroup.value);
  EXPECT_EQ(dialog.OptJoinDomain.value, designed.OptJoinDomain.value);
}

// The text without the values of these keys. The program must not change it.
std::string WithoutValues(std::string text, const std::vector<Section>& sections) {
  for (const auto& [section, keys] : sections) {
    for (const std::string& key : keys) text = base::WithIniValue(text, section, key, "");
  }
  return text;
}

TEST(ShippedTemplates, AnswerFilesOfThem_DifferInTheAnswersOnly) {
  testing::FakeHost host;
  util::Notes notes;
  for (const Template& shipped : {kWin2K, kWin98, kWinMe}) {
    const std::string text = ReadShipped(shipped.name);
    host.AddFile("C:\\Discwright\\files\\inf_files\\" + shipped.name, text);
    host.AddFile("C:\\keys.txt", shipped.name == kWin98.name ? "[Win9xInfo]\r\nOptimizedFor=98\r\n" : "");
    const std::string file = "C:\\Discwright\\answers.txt";
    EXPECT_TRUE(shipped.name == kWin2K.name ? FillSetupDataFromKeyFileToUnattend(notes, "C:\\keys.txt", file)
                                            : FillSetupDataFromKeyFileToMSBatch(notes, "C:\\keys.txt", file));
    EXPECT_NE(host.Content(file), text);
    EXPECT_EQ(WithoutValues(host.Content(file), shipped.answers), WithoutValues(text, shipped.answers));
  }
  EXPECT_THAT(notes.all(), IsEmpty());
}

}  // namespace
}  // namespace discwright::settings
