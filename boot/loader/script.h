// Reads the boot menu's script into a Script, which the menu shows.
//
// A script is plain text with lines that end in LF, CR LF or CR, at most 64 KB long. Each line is a word and, for most
// words, one value. Words may have any letter case. Blanks and tabs around words and values do not count. A value that
// has blanks at its ends, a comment's sign or a quote at its beginning stands in double quotes; no quote can stand
// inside of it. A comment begins with # or ; at the start of a line or behind a blank, outside of quotes. Bytes above
// 126 are passed on as they are: the screen shows them as code page 437 has them. A path begins at the root of the CD
// or floppy, which are both called CD below, with / or \ between the names.
//
//   Set NAME=VALUE    sets Title, Timeout, Default, PasswordRequest or PasswordString (see below)
//   Include PATH      continues with another script, and then with the next line; at most 8 inside one another
//   IfFile PATH       the lines up to EndIf count only if this file is on the CD
//   IfProcessor 64    the lines up to EndIf count only if the processor can run 64-bit programs
//   IfProcessor 32    the lines up to EndIf count only if it cannot
//   EndIf
//   Menu TEXT         a submenu, which holds all entries up to EndMenu; it does not appear while it is empty
//     Key LETTER      its hot key: A to Z
//     Help TEXT       its line of help
//   EndMenu
//   Entry TEXT        an entry of the menu
//     Key LETTER      its hot key
//     Help TEXT       its line of help
//     IfFile PATH     the entry appears only if this file is on the CD (here without EndIf)
//     IfProcessor 64  the entry appears only with such a processor; the same with 32 (here without EndIf, too)
//     Print TEXT      shows a line before the start
//     Wait SECONDS    waits before the start; any key ends it. Without a number it waits for a key
//     and one of these commands:
//     Floppy PATH     starts the image of a floppy disk from memory; Options TEXT has words for the floppy's emulator
//     CdSector PATH   starts a boot sector for CDs, of 2,048 bytes
//     Linux PATH      starts a kernel; Options TEXT is its command line, Initrd PATH its initial RAM disk
//     HardDisk 1      starts the first hard disk, HardDisk 2 the second
//     NextDevice      lets the BIOS go on with its next boot device
//     Overview        shows the memory and the disks of the computer
//     Restart
//     PowerOff
//   EndEntry
//
// An entry does not appear if a file of its command is not on the CD. Print and Wait outside of an entry are done once,
// before the menu appears.
//
//   Set Title=TEXT                 the top line of the menu
//   Set Timeout=SECONDS            starts the default entry after this time, up to 3600; 0: never
//   Set Default=NUMBER or LETTER   the entry of the main menu with this place or hot key; the first if it is not set
//   Set PasswordRequest=0 or 1     1: the menu asks for the password first
//   Set PasswordString="TEXT"      the password. The wizard writes it as it was typed. A quote in it ends the value
//                                  early, and what stands behind that quote is not looked at
//
// The last line wins for Title, Timeout and Default. The password can only get stronger: a request is never taken back,
// an empty password may be replaced, another one may not. A value of PasswordRequest that is neither 0 nor 1 counts
// as 1. If a password is requested but no line sets one, the menu does not open.
//
// A line with a mistake is left out, or the whole entry to which it belongs; everything else is read. A block that is
// not ended ends with its file. If no entry is left, the menu offers what needs no file of the CD.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "boot/loader/files.h"

namespace discwright::loader {

inline constexpr std::size_t kLargestScript = 65536;  // bytes
inline constexpr std::size_t kMostScripts = 64;       // files in all, each counted as often as it is included
inline constexpr std::size_t kMostIncludes = 8;       // files inside one another, besides the first
inline constexpr std::size_t kMostBlocks = 16;        // Menu, IfFile and IfProcessor inside one another
inline constexpr std::size_t kMostEntries = 256;      // submenus count, too
inline constexpr std::size_t kMostSteps = 256;        // Print and Wait
inline constexpr std::size_t kMostMistakes = 32;      // those that are kept; all are counted
inline constexpr std::uint32_t kLongestTime = 3600;   // seconds
inline constexpr std::uint16_t kMainMenu = 0xFFFF;    // stands for the main menu where the number of an entry stands
inline constexpr std::uint16_t kNoEntry = 0xFFFE;

// What IfProcessor tells apart.
enum class Processor : std::uint8_t {
  k32Bit,
  k64Bit,  // it has the long mode
};

enum class CommandKind : std::uint8_t {
  kFloppy,
  kCdSector,
  kLinux,
  kFirstHardDisk,
  kSecondHardDisk,
  kNextDevice,
  kOverview,
  kRestart,
  kPowerOff,
};
inline constexpr std::size_t kCommandKinds = 9;

// What an entry starts. The three texts are empty where the command has none.
struct Command {
  CommandKind kind = CommandKind::kRestart;
  std::string_view path;
  std::string_view options;
  std::string_view initrd;
};

struct Entry {
  std::string_view text;
  std::string_view help;
  std::uint16_t menu = kMainMenu;  // the submenu in which it stands
  char key = 0;                    // 'A' to 'Z'; 0: none
  bool is_menu = false;            // a submenu, which has no command
  Command command;
};

// A Print or a Wait. They stand in the order of the script.
struct Step {
  std::uint16_t owner = kMainMenu;  // the entry; kMainMenu: before the menu
  bool is_wait = false;
  std::uint16_t seconds = 0;  // of a wait; 0: until a key is pressed
  std::string_view text;
};

struct Mistake {
  std::string_view file;
  std::uint32_t line = 0;   // 0: the whole file
  std::string_view reason;  // "%" in it stands for the detail
  std::string_view detail;
};

// All texts are in the memory that was given to ReadScript, or are constants.
struct Script {
  std::string_view title = "Boot menu";
  std::uint32_t timeout = 0;               // seconds; 0: none
  std::uint16_t default_entry = kNoEntry;  // kNoEntry: the menu waits
  bool asks_for_password = false;
  bool has_password = false;  // false: no line has set one, not even an empty one
  std::string_view password;

  std::array<Entry, kMostEntries> entries{};
  std::array<Step, kMostSteps> steps{};
  std::array<Mistake, kMostMistakes> mistakes{};
  std::uint16_t entry_count = 0;
  std::uint16_t step_count = 0;
  std::uint32_t mistake_count = 0;  // may be more than `mistakes` has room for
};

// Reads the script `path` and those that it includes into `script`, for a computer with this processor. Their texts
// stay in `memory`, which should have room for all of them. It always ends with a usable menu; what was wrong stands in
// `mistakes`.
void ReadScript(Files& files, std::string_view path, Processor processor, std::span<char> memory, Script& script);

// Words a mistake for the screen: "boot/scripts/local.cds, line 7: ...". It is written to `to`, and cut if necessary.
std::string_view Describe(const Mistake& mistake, std::span<char> to);

}  // namespace discwright::loader
