// Tests that the help about the boot menu's script agrees with the reader of scripts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <string>

#include "tests/loader/fake_files.h"

namespace discwright::loader {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::string FileText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string Help() { return FileText(std::string(SHIPPED_HELP) + "/script.html"); }

std::string Example() {
  const std::string help = Help();
  const std::size_t begin = help.find("<pre>") + 5;
  return help.substr(begin, help.find("</pre>") - begin);
}

TEST(ScriptHelp, Example_IsAScriptWithoutMistakes) {
  const ReadScriptText read(Example(), {"mine/dos.img", "mine/vmlinuz", "mine/initrd.gz", "mine/memtest64.bin"});
  EXPECT_THAT(read.Mistakes(), IsEmpty());
  EXPECT_THAT(read.Entries(), ElementsAre("My tools", "My tools/Floppy disk with a DOS", "My tools/My Linux"));
  EXPECT_EQ(read.script->title, "The rescue CD of Anna");
}

// The words stand in one table of the reader.
TEST(ScriptHelp, EveryWordOfTheReader_IsExplained) {
  const std::string source = FileText(std::string(PROGRAM_SOURCES) + "/boot/loader/script.cpp");
  const std::string help = Help();
  const std::regex word(R"re(\{"(\w+)", Place::)re");
  int words = 0;
  for (std::sregex_iterator match(source.begin(), source.end(), word), end; match != end; ++match, ++words) {
    EXPECT_TRUE(std::regex_search(help, std::regex("<code>" + (*match)[1].str() + "[< ]"))) << (*match)[1];
  }
  EXPECT_GT(words, 20);
  for (const char* name : {"Title", "Timeout", "Default", "PasswordRequest", "PasswordString"}) {
    EXPECT_THAT(source, HasSubstr(name));
    EXPECT_THAT(help, HasSubstr("<code>Set " + std::string(name) + "="));
  }
}

}  // namespace
}  // namespace discwright::loader
