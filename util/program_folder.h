// The program folder as one table: every file and folder that ships in it, is made in it, or may be found there.
// PathOf(Item::kWorkspace) is the path of one of them.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace discwright::util {

enum class Item {
  // What ships.
  kTemplateTree,
  kBootSectors,
  kWin2KTemplate,
  kWin98Template,
  kWinMeTemplate,
  kCreateDsk,
  kDfl,
  kMkisofs,
  kHelpFile,
  // What the user chose.
  kSession,
  kWorkingKeyFile,
  // What a build makes.
  kBuildKeyFile,
  kWriteTest,
  kWorkspace,
  kStaging,
  kVexastartImage,
  kVexaemmImage,
  kVexawinImage,
  kVexalinkwellImage,
  kVexanetImage,
  kMasteringScript,
  kMasteringLog,
  kCount,
};

struct FolderItem {
  Item item;
  std::string_view path;        // below the program folder, beginning with a separator
  std::string_view made_by;     // the procedure that makes it; empty: it ships with the program
  std::string_view deleted_by;  // the procedure that removes it; empty: it stays
};

// In the order of the enumeration.
extern const std::array<FolderItem, static_cast<std::size_t>(Item::kCount)> kProgramFolder;

std::string PathOf(Item item);             // the full path
std::string_view NameInFolder(Item item);  // the path below the program folder, without a separator before it

}  // namespace discwright::util
