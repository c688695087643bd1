// Tests of the reader of the boot menu's script.
#include "boot/loader/script.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tests/loader/fake_files.h"

namespace discwright::loader {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const std::string kRestartEntry = "Entry Restart\nKey R\nRestart\nEndEntry\n";

// Reads lines in front of a good entry, which must never be lost.
std::vector<std::string> MistakesOf(const std::string& lines) {
  const ReadScriptText read(lines + "\n" + kRestartEntry, {"there"});
  EXPECT_THAT(read.Entries(), Contains("Restart")) << lines;
  return read.Mistakes();
}

TEST(ReadScriptTest, EveryCommand_IsReadWithItsTexts) {
  const ReadScriptText read(
      "ENTRY Floppy\nkey f\nHELP of the floppy\nFloppy a.img\nOptions raw\nEndEntry\n"
      "Entry Sector\nCdSector \\boot\\b.bin\nEndEntry\n"
      "Entry Kernel\nLinux c\nOptions \"a=1 # quiet\"\nInitrd d\nEndEntry\n"
      "Entry One\nHardDisk 1\nEndEntry\nEntry Two\nHardDisk 2\nEndEntry\nEntry Next\nNextDevice\nEndEntry\n"
      "Entry Look\nOverview\nEndEntry\nEntry Again\nRestart\nEndEntry\nEntry Off\nPowerOff\nEndEntry\n",
      {"a.img", "boot/b.bin", "c", "d"});
  EXPECT_THAT(read.Mistakes(), IsEmpty());
  ASSERT_EQ(read.script->entry_count, kCommandKinds);
  for (std::size_t i = 0; i < kCommandKinds; ++i) {
    EXPECT_EQ(read.script->entries[i].command.kind, static_cast<CommandKind>(i));
  }
  const Entry& floppy = read.script->entries[0];
  EXPECT_EQ(floppy.text, "Floppy");
  EXPECT_EQ(floppy.key, 'F');
  EXPECT_EQ(floppy.help, "of the floppy");
  EXPECT_EQ(floppy.command.path, "a.img");
  EXPECT_EQ(floppy.command.options, "raw");
  EXPECT_EQ(read.script->entries[1].command.path, "\\boot\\b.bin");
  EXPECT_EQ(read.script->entries[2].command.options, "a=1 # quiet");
  EXPECT_EQ(read.script->entries[2].command.initrd, "d");
}

TEST(ReadScriptTest, LineEndsBlanksAndComments_DoNotCount) {
  const ReadScriptText read(
      "\xEF\xBB\xBF# note\r\n ; note\r\n\r\n\tEntry  Two words \t# note\r\n Restart ; note\r\n\tEndEntry\r\n"
      "Set Title = a#b ;c\r\nPrint \"  x ; \" # note");
  EXPECT_THAT(read.Mistakes(), IsEmpty());
  EXPECT_THAT(read.Entries(), ElementsAre("Two words"));
  EXPECT_EQ(read.script->title, "a#b");
  ASSERT_EQ(read.script->step_count, 1);
  EXPECT_EQ(read.script->steps[0].text, "  x ; ");
}

// Without that, a comment at the start would hide the whole script, and with it the password.
TEST(ReadScriptTest, LineThatEndsInCrAlone_IsALine) {
  const ReadScriptText read("# note\rSet PasswordRequest=1\r\r\nEntry A\rRestart\rEndEntry\rwrong\r");
  EXPECT_TRUE(read.script->asks_for_password);
  EXPECT_THAT(read.Entries(), ElementsAre("A"));
  EXPECT_THAT(read.Mistakes(), ElementsAre("main.cds, line 7: no line begins with this word: wrong"));
}

TEST(ReadScriptTest, EndMarkOfADosEditor_IsNoMistake) {
  const ReadScriptText read(kRestartEntry + "\r\n\x1A\x1A");
  EXPECT_THAT(read.Mistakes(), IsEmpty());
  EXPECT_THAT(read.Entries(), ElementsAre("Restart"));
}

TEST(ReadScriptTest, BytesAbove126_ArePassedOn) {
  EXPECT_EQ(ReadScriptText("Set Title=\x84\xE1 \xC3\xBC").script->title, "\x84\xE1 \xC3\xBC");
}

TEST(ReadScriptTest, EntryWhoseFileIsMissing_DoesNotAppear) {
  for (const char* lines : {"Floppy missing", "CdSector missing", "Linux missing", "Linux there\nInitrd missing",
                            "IfFile missing\nRestart", "Restart\nIfFile there\nIfFile missing"}) {
    const ReadScriptText read("Entry A\nPrint x\n" + std::string(lines) + "\nEndEntry\n" + kRestartEntry, {"there"});
    EXPECT_THAT(read.Mistakes(), IsEmpty()) << lines;
    EXPECT_THAT(read.Entries(), ElementsAre("Restart")) << lines;
    EXPECT_EQ(read.script->step_count, 0) << lines;
  }
}

TEST(ReadScriptTest, BlockWhoseFileIsMissing_DoesNotCount) {
  const ReadScriptText read(
      "IfFile missing\nSet Title=no\nPrint no\nInclude no\nMenu No\nKey M\nHelp no\nIfFile there\nEntry No\nKey R\n"
      "Restart\nEndEntry\nEndIf\nEndMenu\nEndIf\nIfFile there\n" +
          kRestartEntry + "EndIf\n",
      {"there"});
  EXPECT_THAT(read.Mistakes(), IsEmpty());
  EXPECT_THAT(read.Entries(), ElementsAre("Restart"));
  EXPECT_EQ(read.script->title, "Boot menu");
  EXPECT_EQ(read.script->entries[0].key, 'R');
  EXPECT_EQ(read.script->step_count, 0);
}

TEST(ReadScriptTest, ProcessorOfTheComputer_DecidesAboutBlocksAndEntries) {
  const std::string text =
      "IfProcessor 64\nMenu Block 64\n" + kRestartEntry +
      "EndMenu\nEndIf\nIfProcessor 32\nIfFile there\nEntry Block 32\n" +
      "Restart\nEndEntry\nEndIf\nEndIf\nEntry 64\nIfProcessor 64\nRestart\nEndEntry\n" +
      "Entry 32\nifprocessor 32\nRestart\nEndEntry\nEntry None\nIfProcessor 32\nIfProcessor 64\nRestart\nEndEntry\n" +
      "IfProcessor 16\nEntry 16\nRestart\nEndEntry\nEndIf\n";
  EXPECT_THAT(ReadScriptText(text, {"there"}, Processor::k64Bit).Entries(),
              ElementsAre("Block 64", "Block 64/Restart", "64"));
  EXPECT_THAT(ReadScriptText(text, {"there"}, Processor::k32Bit).Entries(), ElementsAre("Block 32", "32"));
}

TEST(ReadScriptTest, Submenus_HoldTheirEntriesAndDisappearWhenEmpty) {
  const ReadScriptText read(
      "Menu A\nKey A\nHelp of A\nMenu B\n" + kRestartEntry + "EndMenu\n" + kRestartEntry +
      "Menu Empty\nKey E\nMenu Emptier\nEndMenu\nEntry None\nFloppy missing\nEndEntry\nEndMenu\nEndMenu\n" +
      kRestartEntry);
  EXPECT_THAT(read.Mistakes(), IsEmpty());
  EXPECT_THAT(read.Entries(), ElementsAre("A", "A/B", "A/B/Restart", "A/Restart", "Restart"));
  EXPECT_EQ(read.script->entries[0].help, "of A");
  EXPECT_EQ(read.script->entries[0].key, 'A');
}

TEST(ReadScriptTest, EachMistake_IsNamedWithFileLineAndReasonAndLosesNothingElse) {
  const std::pair<const char*, const char*> cases[] = {
      {"\nFoo bar", "main.cds, line 2: no line begins with this word: Foo"},
      {"\"x\"", "main.cds, line 1: no line begins with this word: \"x"},
      {"Floppy there", "main.cds, line 1: this word belongs between Entry and EndEntry: Floppy"},
      {"EndEntry", "main.cds, line 1: this word belongs between Entry and EndEntry: EndEntry"},
      {"Entry A\nPrint x\nEndEntry", "main.cds, line 1: this Entry is left out, because it has no command: A"},
      {"Entry A\nRestart\nPowerOff\nEndEntry",
       "main.cds, line 3: an Entry has one command; this second one does not count"},
      {"\nEntry A\nRestart", "main.cds, line 2: this Entry is not ended with EndEntry"},
      {"Entry\nRestart\nEndEntry", "main.cds, line 1: this word needs a value: Entry"},
      {"Entry A\nFloppy\nEndEntry", "main.cds, line 2: this word needs a value: Floppy"},
      {"Entry A\nRestart now\nEndEntry", "main.cds, line 2: this word has no value: Restart"},
      {"Entry A\nHardDisk 3\nRestart\nEndEntry", "main.cds, line 2: HardDisk has the number 1 or 2: 3"},
      {"Entry A\nKey AB\nRestart\nEndEntry", "main.cds, line 2: a hot key is one letter from A to Z: AB"},
      {"Entry A\nKey 1\nRestart\nEndEntry", "main.cds, line 2: a hot key is one letter from A to Z: 1"},
      {"Entry A\nKey X\nRestart\nEndEntry\nEntry B\nKey x\nRestart\nEndEntry",
       "main.cds, line 6: another entry of this menu has this hot key: x"},
      {"Key A", "main.cds, line 1: Key belongs into an Entry, or directly into a Menu"},
      {"Help A", "main.cds, line 1: Help belongs into an Entry, or directly into a Menu"},
      {"Print \"x", "main.cds, line 1: the second quote of the value is missing"},
      {"Print \"x\" y", "main.cds, line 1: something stands behind the second quote of the value"},
      {"Wait x", "main.cds, line 1: Wait has a number of seconds from 0 to 3600: x"},
      {"Wait 3601", "main.cds, line 1: Wait has a number of seconds from 0 to 3600: 3601"},
      {"EndIf", "main.cds, line 1: EndIf stands here without its IfFile or IfProcessor"},
      {"EndMenu", "main.cds, line 1: EndMenu stands here without its Menu"},
      {"IfFile there\nEndMenu\nEndIf", "main.cds, line 2: EndMenu stands here without its Menu"},
      {"IfFile there", "main.cds, line 1: this IfFile or IfProcessor is not ended with EndIf"},
      {"IfProcessor 32", "main.cds, line 1: this IfFile or IfProcessor is not ended with EndIf"},
      {"IfProcessor\nEndIf", "main.cds, line 1: this word needs a value: IfProcessor"},
      {"IfProcessor 16\nEndIf", "main.cds, line 1: IfProcessor has the number 64 or 32: 16"},
      {"Entry A\nIfProcessor 16\nRestart\nEndEntry", "main.cds, line 2: IfProcessor has the number 64 or 32: 16"},
      {"Set Title", "main.cds, line 1: Set needs a name, an equals sign and a value"},
      {"Set Title=", "main.cds, line 1: Set needs a value for Title, which may be \"\""},
      {"Set Colour=1",
       "main.cds, line 1: Set knows no Colour, only Title, Timeout, Default, PasswordRequest and PasswordString"},
      {"Set Timeout=-1", "main.cds, line 1: Timeout is a number of seconds from 0 to 3600: -1"},
      {"Set Timeout=3601", "main.cds, line 1: Timeout is a number of seconds from 0 to 3600: 3601"},
      {"Set Default=9", "main.cds, line 1: no entry of the main menu has this place or hot key: 9"},
      {"Set Default=Q", "main.cds, line 1: no entry of the main menu has this place or hot key: Q"},
      {"Include nowhere.cds", "main.cds, line 1: this script is not on the CD: nowhere.cds"},
      {"Include \\MAIN.cds", "main.cds, line 1: this script includes itself, perhaps through another: \\MAIN.cds"},
  };
  for (const auto& [lines, mistake] : cases) EXPECT_THAT(MistakesOf(lines), ElementsAre(mistake)) << lines;
}

TEST(ReadScriptTest, MenuThatIsNotEnded_EndsWithItsFile) {
  FakeFiles files;
  files.files = {{"main.cds", "Include a\n" + kRestartEntry}, {"a", "Menu A\n" + kRestartEntry}};
  const ReadScriptText read(files);
  EXPECT_THAT(read.Mistakes(), ElementsAre("a, line 1: this Menu is not ended with EndMenu"));
  EXPECT_THAT(read.Entries(), ElementsAre("A", "A/Restart", "Restart"));
}

TEST(ReadScriptTest, IncludedFile_CannotEndTheBlocksAroundIt) {
  FakeFiles files;
  files.files = {{"main.cds", "Menu A\nInclude a\n" + kRestartEntry + "EndMenu\n"},
                 {"a", "EndMenu\nEndIf\nEndEntry\n"}};
  const ReadScriptText read(files);
  EXPECT_THAT(read.Mistakes(), AllOf(SizeIs(3), Each(HasSubstr("a, line "))));
  EXPECT_THAT(read.Entries(), ElementsAre("A", "A/Restart"));
}

TEST(ReadScriptTest, Includes_AreReadInTheirPlaceAndNamedInMistakes) {
  FakeFiles files;
  files.files = {{"main.cds", "Menu A\nInclude sub/one.cds\nEndMenu\nBad\n" + kRestartEntry},
                 {"sub/one.cds", "\n\nBad\n" + kRestartEntry + "Include two.cds"},
                 {"two.cds", kRestartEntry}};
  const ReadScriptText read(files);
  EXPECT_THAT(read.Entries(), ElementsAre("A", "A/Restart", "A/Restart", "Restart"));
  EXPECT_THAT(read.Mistakes(), ElementsAre("sub/one.cds, line 3: no line begins with this word: Bad",
                                           "two.cds, line 2: another entry of this menu has this hot key: R",
                                           "main.cds, line 4: no line begins with this word: Bad"));
}

TEST(ReadScriptTest, CircleOfIncludes_EndsWithAMistake) {
  FakeFiles files;
  files.files = {{"main.cds", "Include a\n" + kRestartEntry}, {"a", "Include b"}, {"b", "Include /A"}};
  const ReadScriptText read(files);
  EXPECT_THAT(read.Mistakes(), ElementsAre("b, line 1: this script includes itself, perhaps through another: /A"));
  EXPECT_THAT(read.Entries(), ElementsAre("Restart"));
}

TEST(ReadScriptTest, NinthIncludeInsideOthers_IsRefused) {
  FakeFiles files;
  files.files["main.cds"] = "Include 1\n";
  for (int i = 1; i <= 9; ++i) {
    files.files[std::to_string(i)] = "Print x\nInclude " + std::to_string(i + 1) + "\n" + (i == 1 ? kRestartEntry : "");
  }
  const ReadScriptText read(files);
  EXPECT_THAT(read.Mistakes(), ElementsAre("8, line 2: at most 8 scripts may include one another: 9"));
  EXPECT_EQ(read.script->step_count, 8);
}

TEST(ReadScriptTest, IncludesThatMultiply_EndAfter64Files) {
  FakeFiles files;
  const auto twenty_times = [](const std::string& line) {
    std::string lines;
    for (int i = 0; i < 20; ++i) lines += line;
    return lines;
  };
  files.files = {{"main.cds", twenty_times("Include a\n") + kRestartEntry},
                 {"a", twenty_times("Include b\n")},
                 {"b", twenty_times("Include c\n")},
                 {"c", ""}};
  const ReadScriptText read(files);
  EXPECT_EQ(files.reads, 64);
  EXPECT_THAT(read.Mistakes(), Contains(HasSubstr("a menu has at most 64 scripts: c")));
  EXPECT_THAT(read.Entries(), ElementsAre("Restart"));
}

TEST(ReadScriptTest, ScriptOf64KB_IsReadToItsEnd) {
  std::string text(kLargestScript - kRestartEntry.size(), '\n');
  text += kRestartEntry;
  const ReadScriptText read(text);
  EXPECT_THAT(read.Mistakes(), IsEmpty());
  EXPECT_THAT(read.Entries(), ElementsAre("Restart"));
}

TEST(ReadScriptTest, LargerScript_IsReadUpToTheLastWholeLine) {
  std::string text = kRestartEntry;
  text.resize(kLargestScript - 8, '\n');
  text += "Set Title=long";
  const ReadScriptText read(text);
  EXPECT_THAT(read.Mistakes(),
              ElementsAre("main.cds: a script has at most 64 KB, so the end of this script does not count: main.cds"));
  EXPECT_THAT(read.Entries(), ElementsAre("Restart"));
}

TEST(ReadScriptTest, LargerScriptWithLinesThatEndInCr_IsReadUpToTheLastWholeLine) {
  std::string text = "Entry A\rRestart\rEndEntry\r";
  text.resize(kLargestScript - 8, '\r');
  text += "Set Title=long";
  EXPECT_THAT(ReadScriptText(text).Entries(), ElementsAre("A"));
}

TEST(ReadScriptTest, ScriptInUtf16_IsReportedAndLeftOut) {
  FakeFiles files;
  const std::string entry("R\0e\0s\0t\0a\0r\0t\0\n\0", 16);
  files.files = {
      {"main.cds", kRestartEntry + "Include a\nInclude b"}, {"a", "\xFF\xFE" + entry}, {"b", "\xFE\xFF" + entry}};
  const std::string reason =
      "this script is Unicode text of two bytes per character, and does not count; save it as plain text: ";
  EXPECT_THAT(ReadScriptText(files, Processor::k32Bit).Mistakes(),
              ElementsAre("main.cds, line 5: " + reason + "a", "main.cds, line 6: " + reason + "b"));
}

TEST(ReadScriptTest, FullMemory_IsReported) {
  FakeFiles files;
  files.files = {{"main.cds", kRestartEntry + "Include a"}, {"a", std::string(200, '#')}};
  const ReadScriptText read(files, Processor::k32Bit, 100);
  EXPECT_THAT(
      read.Mistakes(),
      ElementsAre("main.cds, line 5: the memory for scripts is full, so the end of this script does not count: a"));
}

TEST(ReadScriptTest, ThousandEntries_AreRefusedInWords) {
  std::string text;
  for (int i = 0; i < 1000; ++i) text += "Entry E\nPrint x\nRestart\nEndEntry\n";
  const ReadScriptText read(text);
  EXPECT_EQ(read.script->entry_count, kMostEntries);
  EXPECT_EQ(read.script->step_count, kMostSteps);
  EXPECT_THAT(read.Mistakes(),
              Contains("main.cds, line 1025: the menu has room for 256 entries; this one and all behind "
                       "it are left out: E"));
}

TEST(ReadScriptTest, MenuWithoutRoom_IsLeftOutWithItsEntries) {
  std::string text;
  for (int i = 0; i < 256; ++i) text += "Entry E\nRestart\nEndEntry\n";
  const ReadScriptText read(text + "Menu M\nKey Z\nHelp x\nEntry F\nRestart\nEndEntry\nEndMenu\n");
  EXPECT_EQ(read.script->entry_count, kMostEntries);
  EXPECT_THAT(read.Mistakes(), SizeIs(1));
  EXPECT_EQ(read.script->entries[255].help, "");
}

TEST(ReadScriptTest, BlocksThatAreTooDeep_AreSkippedAndLeaveTheRest) {
  std::string text;
  for (int i = 0; i < 40; ++i) text += i % 2 == 0 ? "Menu M\n" : "IfFile main.cds\n";
  text += "Key A\nHelp x\n" + kRestartEntry;
  for (int i = 39; i >= 0; --i) text += i % 2 == 0 ? "EndMenu\n" : "EndIf\n";
  const ReadScriptText read(text + kRestartEntry);
  EXPECT_THAT(read.Mistakes(),
              ElementsAre("main.cds, line 17: at most 16 Menu, IfFile and IfProcessor may stand inside one another"));
  EXPECT_THAT(read.Entries(), ElementsAre("Restart"));
}

TEST(ReadScriptTest, SixteenBlocksInsideOneAnother_AreFine) {
  std::string text;
  for (int i = 0; i < 16; ++i) text += i % 2 == 0 ? "IfFile main.cds\n" : "Menu M\n";
  text += "Key A\nHelp x\n" + kRestartEntry;
  for (int i = 15; i >= 0; --i) text += i % 2 == 0 ? "EndIf\n" : "EndMenu\n";
  const ReadScriptText read(text + "EndIf\nBad\n");
  EXPECT_THAT(read.Mistakes(), ElementsAre("main.cds, line 39: EndIf stands here without its IfFile or IfProcessor",
                                           "main.cds, line 40: no line begins with this word: Bad"));
  EXPECT_EQ(read.script->entry_count, 9);
  EXPECT_EQ(read.script->entries[7].key, 'A');
  EXPECT_EQ(read.script->entries[7].help, "x");
  EXPECT_EQ(read.script->entries[8].menu, 7);
}

TEST(ReadScriptTest, EmptyMenuAtTheDeepestPlace_Disappears) {
  std::string text;
  for (int i = 0; i < 16; ++i) text += "Menu M\n";
  for (int i = 0; i < 16; ++i) text += "EndMenu\n";
  EXPECT_THAT(ReadScriptText(text + kRestartEntry).Entries(), ElementsAre("Restart"));
}

TEST(ReadScriptTest, KeyOfAMenuGivenTwice_IsTheLast) {
  const ReadScriptText read("Menu M\nKey A\nKey A\nKey b\n" + kRestartEntry + "EndMenu\n");
  EXPECT_THAT(read.Mistakes(), IsEmpty());
  EXPECT_EQ(read.script->entries[0].key, 'B');
}

TEST(ReadScriptTest, MistakeBehindAnEntry_HasItsOwnLine) {
  EXPECT_THAT(MistakesOf("Entry A\nKey A\nEntry B\nKey A\nRestart\nFoo"),
              ElementsAre("main.cds, line 1: this Entry is not ended with EndEntry",
                          "main.cds, line 1: this Entry is left out, because it has no command: A",
                          "main.cds, line 6: no line begins with this word: Foo",
                          "main.cds, line 3: this Entry is not ended with EndEntry"));
}

TEST(ReadScriptTest, ManyMistakes_AreAllCounted) {
  std::string text;
  for (int i = 0; i < 1000; ++i) text += "Bad\n";
  const ReadScriptText read(text + kRestartEntry);
  EXPECT_EQ(read.script->mistake_count, 1000U);
}

TEST(ReadScriptTest, WithoutAnyEntry_TheMenuOffersWhatNeedsNoFile) {
  FakeFiles files;
  const ReadScriptText missing(files);
  EXPECT_THAT(missing.Entries(), ElementsAre("First hard disk", "Next boot device", "Restart", "Power off"));
  const CommandKind kinds[] = {CommandKind::kFirstHardDisk, CommandKind::kNextDevice, CommandKind::kRestart,
                               CommandKind::kPowerOff};
  for (std::uint16_t i = 0; i < 4; ++i) {
    EXPECT_EQ(missing.script->entries[i].command.kind, kinds[i]);
    EXPECT_FALSE(missing.script->entries[i].is_menu);
    EXPECT_EQ(missing.script->entries[i].key, "HNRP"[i]);
  }
  EXPECT_THAT(ReadScriptText("\n\nPrint x\n").Mistakes(), ElementsAre(HasSubstr("main.cds: no entry can be shown")));
  EXPECT_THAT(missing.Mistakes(),
              ElementsAre("main.cds: this script is not on the CD: main.cds",
                          "main.cds: no entry can be shown, so the menu has only those that need no file of the CD"));
  files.files["main.cds"];
  files.unreadable = "main.cds";
  const ReadScriptText unreadable(files);
  EXPECT_THAT(unreadable.Mistakes(), Contains("main.cds: this script could not be read from the CD: main.cds"));
  EXPECT_THAT(unreadable.Entries(), SizeIs(4));
}

TEST(ReadScriptTest, OnAFloppy_MessagesNameTheDisk) {
  FakeFiles files;
  files.where = Medium::kFloppy;
  const ReadScriptText missing(files);
  EXPECT_THAT(missing.Mistakes(),
              ElementsAre("main.cds: this script is not on the disk: main.cds",
                          "main.cds: no entry can be shown, so the menu has only those that need no file of the disk"));
  EXPECT_EQ(missing.script->entries[1].help, "Goes on without this disk.");
  files.files["main.cds"];
  files.unreadable = "main.cds";
  EXPECT_THAT(ReadScriptText(files).Mistakes(),
              Contains("main.cds: this script could not be read from the disk: main.cds"));
}

TEST(ReadScriptTest, Default_IsAPlaceOrAHotKeyOfTheMainMenu) {
  const std::string entries = "Entry A\nKey A\nRestart\nEndEntry\nMenu M\nKey M\n" + kRestartEntry +
                              "EndMenu\nEntry B\nKey B\nRestart\nEndEntry\nEntry C\nKey C\nFloppy no\nEndEntry\n";
  const auto default_of = [&](const std::string& line) { return ReadScriptText(line + entries).script->default_entry; };
  EXPECT_EQ(default_of(""), 0);
  EXPECT_EQ(default_of("Set Default=1\n"), 0);
  EXPECT_EQ(default_of("Set Default=3\n"), 3);
  EXPECT_EQ(default_of("Set Default=b\n"), 3);
  EXPECT_EQ(default_of("Set Default=\"B\"\nSet Default=A\n"), 0);
  EXPECT_EQ(default_of("Set Default=R\n"), kNoEntry);
  EXPECT_EQ(default_of("Set Default=M\n"), kNoEntry);
  const ReadScriptText hidden("Set Default=C\n" + entries);
  EXPECT_EQ(hidden.script->default_entry, kNoEntry);
  EXPECT_THAT(hidden.Mistakes(), IsEmpty());  // its file may be on another CD
}

TEST(ReadScriptTest, DefaultWithoutItsEntry_IsNamedWithTheFileThatSetIt) {
  FakeFiles files;
  files.files = {{"main.cds", "Include a\n" + kRestartEntry}, {"a", "\nSet Default=5"}};
  EXPECT_THAT(ReadScriptText(files).Mistakes(),
              ElementsAre("a, line 2: no entry of the main menu has this place or hot key: 5"));
}

TEST(ReadScriptTest, LongestTimes_AreAccepted) {
  const ReadScriptText read("Set Timeout=3600\nWait 3600\nWait\n" + kRestartEntry);
  EXPECT_THAT(read.Mistakes(), IsEmpty());
  EXPECT_EQ(read.script->timeout, 3600U);
  EXPECT_EQ(read.script->steps[0].seconds, 3600);
  EXPECT_EQ(read.script->steps[1].seconds, 0);
}

TEST(ReadScriptTest, HotKeyWithAMistake_IsNone) {
  for (const char* key : {"AB", "1", "\xC4"}) {
    const ReadScriptText read("Menu M\nKey " + std::string(key) + "\nEntry A\nKey " + key +
                              "\nRestart\nEndEntry\nEndMenu");
    EXPECT_THAT(read.Mistakes(), SizeIs(2)) << key;
    EXPECT_EQ(read.script->entries[0].key, 0) << key;
    EXPECT_EQ(read.script->entries[1].key, 0) << key;
  }
  const ReadScriptText twice(kRestartEntry + "Entry A\nKey R\nPowerOff\nEndEntry\n");
  EXPECT_EQ(twice.script->entries[1].key, 0);
}

TEST(ReadScriptTest, LongDetail_IsCutInTheMessage) {
  const std::vector<std::string> mistakes = MistakesOf(std::string(500, 'x'));
  EXPECT_THAT(mistakes,
              ElementsAre("main.cds, line 1: no line begins with this word: " + std::string(40, 'x') + "..."));
}

TEST(ShippedScriptTest, WithAllFiles_IsReadWithoutMistakes) {
  std::ifstream stream(SHIPPED_SCRIPT, std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(stream), {});
  EXPECT_THAT(text, HasSubstr("\r\nSet PasswordRequest=0\r\nSet PasswordString=\"\"\r\n"));
  std::vector<std::string> present;
  for (const char* image :
       {"vexastart.img", "vexaemm.img", "vexanet.img", "vexawin.img", "w2ksect.bin", "erdc.bin", "oobc.bin"}) {
    present.push_back(std::string("boot/images/") + image);
  }
  const ReadScriptText full(text, present);
  EXPECT_THAT(full.Mistakes(), IsEmpty());
  EXPECT_EQ(full.script->entry_count, 14);
  EXPECT_FALSE(full.script->asks_for_password);
  EXPECT_TRUE(full.script->has_password);
  EXPECT_EQ(full.script->default_entry, 0);
  const ReadScriptText bare(text);
  EXPECT_THAT(bare.Mistakes(), IsEmpty());
  EXPECT_THAT(bare.Entries(),
              ElementsAre("First hard disk", "This computer", "This computer/Second hard disk",
                          "This computer/Next boot device", "This computer/Memory and disks", "Restart", "Power off"));
}

std::string DiskScript(const std::string& path) {
  std::ifstream stream(DISKS "/" + path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// Reads the script of a disk. All files that the profiles name are there.
ReadScriptText ReadDisk(const std::string& profile, Processor processor, bool asks_for_card = false) {
  FakeFiles files;
  for (const char* name : {"memtest.x64", "memtest.x32", "grub.gz", "memdisk", "ipxe.krn"}) {
    files.files[std::string("boot/") + name];
  }
  if (asks_for_card) files.files["boot/scripts/cards.cds"] = DiskScript("cards.cds");
  files.files["main.cds"] = DiskScript(profile + "/main.cds");
  return ReadScriptText(files, processor);
}

TEST(DiskScriptTest, EveryDisk_OffersItsProgramsAndTheWaysOut) {
  const std::vector<std::string> ways_out = {"First hard disk", "Restart", "Power off"};
  const std::pair<const char*, std::vector<std::string>> disks[] = {
      {"vexasoftware", {"Memory test", "GRUB"}},
      {"linkwellplus288", {"Start from the network", "Memory test", "GRUB"}},
      {"netaccess", {"Start from the network"}},
      {"winsetup", {}},
      {"vexasoftware_emm", {}},
  };
  for (const auto& [profile, programs] : disks) {
    std::vector<std::string> entries = programs;
    entries.insert(entries.end(), ways_out.begin(), ways_out.end());
    for (const Processor processor : {Processor::k32Bit, Processor::k64Bit}) {
      const ReadScriptText read = ReadDisk(profile, processor);
      EXPECT_THAT(read.Mistakes(), IsEmpty()) << profile;
      EXPECT_THAT(read.Entries(), ElementsAreArray(entries)) << profile;
      EXPECT_FALSE(read.script->asks_for_password);
    }
  }
}

TEST(DiskScriptTest, MemoryTest_IsTheOneForTheProcessor) {
  for (const auto& [processor, program] :
       {std::pair(Processor::k32Bit, "boot/memtest.x32"), std::pair(Processor::k64Bit, "boot/memtest.x64")}) {
    const ReadScriptText read = ReadDisk("vexasoftware", processor);
    EXPECT_EQ(read.script->entries[0].command.path, program);
    EXPECT_EQ(read.script->entries[0].key, 'M');
  }
}

TEST(DiskScriptTest, NetworkDisks_StartByThemselvesUnlessTheyAskForTheCard) {
  for (const char* profile : {"netaccess", "linkwellplus288"}) {
    const ReadScriptText plain = ReadDisk(profile, Processor::k32Bit);
    EXPECT_EQ(plain.script->timeout, 10U);
    EXPECT_EQ(plain.script->default_entry, 0);
    EXPECT_EQ(plain.script->entries[0].command.path, "boot/ipxe.krn");
    EXPECT_EQ(plain.script->entries[0].command.options, "");
    const ReadScriptText asking = ReadDisk(profile, Processor::k32Bit, true);
    EXPECT_THAT(asking.Mistakes(), IsEmpty());
    EXPECT_EQ(asking.script->timeout, 0U);
    EXPECT_THAT(asking.Entries(), AllOf(Contains("First network card only"), Contains("Command line of iPXE"),
                                        Contains("List of the cards and their drivers"), Contains("Power off")));
    EXPECT_EQ(asking.script->entries[2].command.options, "autoboot net1 || shell");
  }
}

TEST(DiskScriptTest, DisksWithoutASystem_SayWhatToPutWhere) {
  for (const std::string profile : {"winsetup", "vexasoftware_emm"}) {
    const ReadScriptText read = ReadDisk(profile, Processor::k32Bit);
    std::string text;
    std::size_t lines = 0;
    for (std::uint16_t i = 0; i < read.script->step_count; ++i) {
      text += std::string(read.script->steps[i].text) + "\n";
      lines += !read.script->steps[i].is_wait;
    }
    EXPECT_THAT(text, AllOf(HasSubstr("This disk has no system yet."),
                            HasSubstr("     files\\disks\\" + profile + "\\dos\n"), HasSubstr("bootsect.bin")));
    EXPECT_LE(lines, 19U) << "the menu shows no more";
    EXPECT_TRUE(read.script->steps[read.script->step_count - 1].is_wait);
    EXPECT_EQ(read.script->timeout, 0U);
  }
}

TEST(ShippedScriptTest, PatchedByTheWizard_AsksForThePassword) {
  std::ifstream stream(SHIPPED_SCRIPT, std::ios::binary);
  std::string text(std::istreambuf_iterator<char>(stream), {});
  // The wizard replaces these texts wherever they stand, in any letter case. So each stands there once.
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), UpperOf);
  for (const auto& [from, to] : {std::pair("Set PasswordRequest=0", "Set PasswordRequest=1"),
                                 std::pair("Set PasswordString=\"\"", "Set PasswordString=\" a#b; \"")}) {
    std::string upper_from(from);
    std::transform(upper_from.begin(), upper_from.end(), upper_from.begin(), UpperOf);
    ASSERT_EQ(upper.find(upper_from), upper.rfind(upper_from));
    text.replace(text.find(from), std::string_view(from).size(), to);
  }
  const ReadScriptText read(text + "\r\n\r\n");
  EXPECT_THAT(read.Mistakes(), IsEmpty());
  EXPECT_TRUE(read.script->asks_for_password);
  EXPECT_EQ(read.script->password, " a#b; ");
}

TEST(ShippedScriptTest, LocalScriptWithMistakes_LosesNoShippedEntry) {
  std::ifstream stream(SHIPPED_SCRIPT, std::ios::binary);
  FakeFiles files;
  files.files["main.cds"] = std::string(std::istreambuf_iterator<char>(stream), {});
  files.files["boot/scripts/local.cds"] = "Menu Mine\nEntry One\nKey Q\nRestart\nEnd\nSet x\n";
  const ReadScriptText read(files);
  EXPECT_THAT(read.Entries(), AllOf(SizeIs(9), Contains("Power off"), Contains("Mine/One")));
  EXPECT_THAT(read.Mistakes(), Each(HasSubstr("boot/scripts/local.cds, line ")));
}

}  // namespace
}  // namespace discwright::loader
