// Tests of the boot menu: its keys, its time and its screen.
#include "boot/loader/menu.h"

#include "tests/loader/menu_fixture.h"

namespace discwright::loader {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string EntryOf(const std::string& text, const std::string& more = "") {
  return "Entry " + text + "\nHelp About " + text + "\nFloppy " + text + "\n" + more + "\nEndEntry\n";
}

class MenuTest : public MenuFixture {
 protected:
  // Four entries, one of them a submenu of two.
  void ShowFour(const std::string& before = "") {
    Show(before + EntryOf("Alpha", "Key Q") + EntryOf("Beta") + "Menu More\nKey M\nHelp About more\n" +
             EntryOf("Inner", "Key Q") + EntryOf("Innermost") + "EndMenu\n" + EntryOf("Adam"),
         {"Alpha", "Beta", "Inner", "Innermost", "Adam"});
  }
  void ShowMany(int count) {
    std::string text;
    std::vector<std::string> files;
    for (int i = 1; i <= count; ++i) {
      files.push_back("E" + std::to_string(i));
      text += EntryOf(files.back());
    }
    Show(text, files);
  }
};

TEST_F(MenuTest, Start_ShowsTitleEntriesKeysAndHelp) {
  ShowFour("Set Title=Rescue\n");
  EXPECT_EQ(Row(0), std::string(37, ' ') + "Rescue");
  EXPECT_EQ(Row(2), "   1  Alpha" + std::string(65, ' ') + "Q");
  EXPECT_EQ(Row(3), "   2  Beta");
  EXPECT_EQ(Row(4), "   3  More" + std::string(63, ' ') + ">  M");
  EXPECT_EQ(Row(5), "   4  Adam");
  EXPECT_EQ(Row(6), "");
  EXPECT_EQ(Row(21), "");
  EXPECT_EQ(Row(22), "  About Alpha");
  EXPECT_EQ(Row(24), "  Arrows: choose   Enter, digit or letter: start");
  EXPECT_EQ(Chosen(), "Alpha");
}

TEST_F(MenuTest, ArrowsHomeAndEnd_Choose) {
  ShowFour();
  const std::pair<KeyKind, const char*> keys[] = {
      {KeyKind::kDown, "Beta"},      {KeyKind::kDown, "More"},       {KeyKind::kUp, "Beta"},
      {KeyKind::kEnd, "Adam"},       {KeyKind::kDown, "Alpha"},      {KeyKind::kUp, "Adam"},
      {KeyKind::kHome, "Alpha"},     {KeyKind::kPageDown, "Adam"},   {KeyKind::kPageUp, "Alpha"},
      {KeyKind::kOther, "Alpha"},    {KeyKind::kBackspace, "Alpha"}, {KeyKind::kEscape, "Alpha"},
      {KeyKind::kAltDigit, "Alpha"},
  };
  for (const auto& [key, chosen] : keys) {
    EXPECT_EQ(Started(Press(key)), "nothing");
    EXPECT_EQ(Chosen(), chosen) << static_cast<int>(key);
  }
  EXPECT_EQ(Row(22), "  About Alpha");
}

TEST_F(MenuTest, EnterDigitAndHotKey_Start) {
  ShowFour();
  EXPECT_EQ(Started(Enter()), "start Alpha");
  menu->Resume("");
  EXPECT_EQ(Started(Type("2")), "start Beta");
  menu->Resume("");
  EXPECT_EQ(Chosen(), "Beta");
  EXPECT_EQ(Started(Type("q")), "start Alpha");
  menu->Resume("");
  for (const char* key : {"0", "5", "9", "x", "/", "\xFC"}) EXPECT_EQ(Started(Type(key)), "nothing");
  EXPECT_EQ(Chosen(), "Alpha");
}

TEST_F(MenuTest, OtherLetter_ChoosesTheNextEntryThatBeginsWithIt) {
  ShowFour();
  for (const char* chosen : {"Adam", "Alpha", "Adam"}) {
    EXPECT_EQ(Started(Type("a")), "nothing");
    EXPECT_EQ(Chosen(), chosen);
  }
}

TEST_F(MenuTest, Submenu_HasItsOwnEntriesAndIsLeftWithEsc) {
  ShowFour();
  EXPECT_EQ(Started(Type("m")), "nothing");
  EXPECT_EQ(Row(1), "  More");
  EXPECT_THAT(Row(24), HasSubstr("Esc: back"));
  EXPECT_EQ(Chosen(), "Inner");
  EXPECT_THAT(All(), Not(HasSubstr("Beta")));
  EXPECT_EQ(Started(Type("q")), "start Inner");
  menu->Resume("");
  Press(KeyKind::kDown);
  EXPECT_EQ(Started(Enter()), "start Innermost");
  menu->Resume("");
  Press(KeyKind::kEscape);
  EXPECT_EQ(Chosen(), "More");
  Press(KeyKind::kEscape);
  EXPECT_EQ(Chosen(), "More");
  EXPECT_EQ(Started(Type("3")), "nothing");
  EXPECT_EQ(Chosen(), "Inner");
}

TEST_F(MenuTest, MoreEntriesThanRows_Scroll) {
  ShowMany(40);
  EXPECT_EQ(Row(18), std::string(69, ' ') + "more below");
  EXPECT_THAT(Row(17), HasSubstr("E16"));
  EXPECT_EQ(Row(1), "");
  for (int i = 0; i < 16; ++i) Press(KeyKind::kDown);
  EXPECT_EQ(Chosen(), "E17");
  EXPECT_THAT(Row(2), HasSubstr("E2"));
  EXPECT_THAT(Row(17), HasSubstr("E17"));
  EXPECT_THAT(Row(1), HasSubstr("more above"));
  Press(KeyKind::kPageDown);
  EXPECT_EQ(Chosen(), "E33");
  Press(KeyKind::kPageDown);
  EXPECT_EQ(Chosen(), "E40");
  EXPECT_THAT(Row(18), Not(HasSubstr("more below")));
  Press(KeyKind::kPageUp);
  EXPECT_EQ(Chosen(), "E24");
  Press(KeyKind::kHome);
  EXPECT_THAT(Row(2), HasSubstr("E1"));
  Press(KeyKind::kUp);
  EXPECT_EQ(Chosen(), "E40");
  EXPECT_EQ(Started(Enter()), "start E40");
}

TEST_F(MenuTest, GreyedEntry_ShowsItsReasonAndCannotBeStarted) {
  obstacles[static_cast<std::size_t>(CommandKind::kFloppy)] = "Needs more memory.";
  Show("Set Timeout=1\nMenu Disks\nKey D\n" + EntryOf("A", "Key A") + "EndMenu\n" + EntryOf("B", "Key B") +
           "Set Default=B\n",
       {"A", "B"});
  EXPECT_EQ(AttributeOf(2), Attribute::kNormal);
  EXPECT_EQ(AttributeOf(3), Attribute::kChosenGreyed);
  EXPECT_EQ(Row(22), "  Needs more memory.");
  EXPECT_EQ(Started(Enter()), "nothing");
  EXPECT_EQ(Started(Type("b")), "nothing");
  EXPECT_EQ(Started(Type("2")), "nothing");
  EXPECT_EQ(Started(Pass(100)), "nothing");
  Type("d");
  EXPECT_EQ(Started(Enter()), "nothing");
  EXPECT_EQ(Row(22), "  Needs more memory.");
}

TEST_F(MenuTest, TimeOut_CountsDownAndStartsTheDefault) {
  ShowFour("Set Timeout=10\nSet Default=2\n");
  EXPECT_EQ(Chosen(), "Beta");
  EXPECT_EQ(Row(21), "  Starts in 10 s: Beta");
  EXPECT_EQ(Started(Pass(91)), "nothing");
  EXPECT_EQ(Row(21), "  Starts in 5 s: Beta");
  EXPECT_EQ(Started(Pass(90)), "nothing");
  EXPECT_EQ(Row(21), "  Starts in 1 s: Beta");
  EXPECT_EQ(Started(Pass(1)), "start Beta");
  menu->Resume("");
  EXPECT_EQ(Started(Pass(1000)), "nothing");
}

TEST_F(MenuTest, AnyKey_StopsTheCountdown) {
  for (const KeyKind key : {KeyKind::kOther, KeyKind::kCharacter, KeyKind::kUp, KeyKind::kEscape, KeyKind::kAltDigit}) {
    ShowFour("Set Timeout=1\n");
    EXPECT_THAT(Row(21), HasSubstr("Starts in 1 s"));
    Press(key);
    EXPECT_EQ(Row(21), "");
    EXPECT_EQ(Started(Pass(1000)), "nothing");
  }
}

TEST_F(MenuTest, WithoutTimeout_NothingStartsByItself) {
  ShowFour();
  EXPECT_EQ(Started(Pass(10000)), "nothing");
}

TEST_F(MenuTest, CommandThatReturns_ShowsItsMessageUntilAKey) {
  ShowFour();
  menu->Resume("not started yet");
  EXPECT_THAT(All(), Not(HasSubstr("not started yet")));
  Enter();
  EXPECT_EQ(Started(Enter()), "nothing");  // it was started already
  EXPECT_EQ(Started(Pass(100)), "nothing");
  menu->Resume("The image is damaged. " + std::string(300, 'x'));
  EXPECT_EQ(Row(18), "  The image is damaged.");
  EXPECT_EQ(Row(19), "  " + std::string(76, 'x'));
  EXPECT_EQ(Row(21), "");
  Press(KeyKind::kDown);
  EXPECT_EQ(Row(18), "");
  EXPECT_EQ(Chosen(), "Beta");
}

TEST_F(MenuTest, PrintAndWaitOfAnEntry_ComeBeforeItsCommand) {
  Show(EntryOf("A", "Print one\nWait 1\nPrint two\nWait\nPrint three"), {"A"});
  EXPECT_EQ(Started(Enter()), "nothing");
  EXPECT_EQ(Row(2), "  one");
  EXPECT_EQ(Row(3), "");
  EXPECT_EQ(Started(Pass(18)), "nothing");
  EXPECT_EQ(Row(3), "  two");
  EXPECT_EQ(Started(Pass(100000)), "nothing");
  EXPECT_EQ(Started(Press(KeyKind::kOther)), "start A");
  EXPECT_EQ(Row(4), "  three");
  menu->Resume("");
  EXPECT_EQ(Chosen(), "A");
}

TEST_F(MenuTest, PrintAndWaitOfTheScript_ComeBeforeTheMenu) {
  Show("Print hello\nWait 1\nPrint one\nPrint two\n" + EntryOf("A"), {"A"});
  EXPECT_EQ(Row(2), "  hello");
  EXPECT_EQ(Chosen(), "none");
  Pass(19);
  EXPECT_EQ(Chosen(), "A");
  EXPECT_EQ(Row(18), "  two");
}

TEST_F(MenuTest, Wait_EndsWithAnyKey) {
  Show("Print a\nWait 3600\nWait 3600\n" + EntryOf("A"), {"A"});
  Press(KeyKind::kOther);
  EXPECT_EQ(Chosen(), "none");
  Press(KeyKind::kOther);
  EXPECT_EQ(Chosen(), "A");
}

TEST_F(MenuTest, MoreLinesThanRows_ShowTheLast) {
  std::string text;
  for (int i = 1; i <= 30; ++i) text += "Print line " + std::to_string(i) + "\n";
  Show(text + "Wait\n" + EntryOf("A"), {"A"});
  EXPECT_EQ(Row(2), "  line 12");
  EXPECT_EQ(Row(20), "  line 30");
}

TEST_F(MenuTest, MistakesOfTheScript_AreShownUntilAKeyOrForAWhile) {
  Show("Bad\n" + EntryOf("A"), {"A"});
  EXPECT_THAT(All(), HasSubstr("main.cds, line 1: no line begins with this word: Bad"));
  EXPECT_THAT(All(), Not(HasSubstr("more")));
  EXPECT_EQ(Started(Enter()), "nothing");
  EXPECT_EQ(Chosen(), "A");
  Show("Set Timeout=1\nBad\n" + EntryOf("A"), {"A"});
  EXPECT_EQ(Started(Pass(20 * 182 / 10)), "nothing");
  EXPECT_EQ(Chosen(), "A");
  EXPECT_EQ(Started(Pass(18)), "start A");
}

TEST_F(MenuTest, MoreMistakesThanRows_AreCounted) {
  std::string text;
  for (int i = 0; i < 100; ++i) text += "Bad\n";
  Show(text);
  EXPECT_THAT(Row(22), HasSubstr("And 85 more."));
}

TEST_F(MenuTest, LongTextsAndControlBytes_StayInTheirPlace) {
  Show("Set Title=" + std::string(200, 'T') + "\nEntry " + std::string(200, 'e') + "\nHelp " + std::string(500, 'h') +
       "\nKey A\nRestart\nEndEntry\nEntry a\tb\x01" + "c\x7F\x80\nRestart\nEndEntry\n");
  EXPECT_EQ(Row(0), std::string(80, 'T'));
  EXPECT_EQ(Row(2), "   1  " + std::string(66, 'e') + "    A");
  EXPECT_EQ(Row(3), "   2  a b c \x80");
  EXPECT_EQ(Row(22), "  " + std::string(76, 'h'));
  EXPECT_EQ(Row(23), "  " + std::string(76, 'h'));
}

}  // namespace
}  // namespace discwright::loader
