// A table of all files and folders in the program folder: those that ship with the program, and those that it makes.
// PathOf(Item::kWorkspace), for example, is the path of the workspace.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace discwright::util {

enum class Item {
  // Ships with the program.
  kTemplateTree,
  kBootSectors,
  kWin2KTemplate,
  kWin98Template,
  kWinMeTemplate,
  kCreateDsk,
  kDfl,
  kMkisofs,
  kHelpFile,
  kHelpTopics,
  // Is in an installed folder and in the folder of a user that was filled from it (util/users_program_folder.h).
  kInstalledList,
  // Holds the user's choices.
  kSession,
  kWorkingKeyFile,
  // Made by a build.
  kBuildKeyFile,
  kWriteTest,
  kWorkspace,
  kWorkspaceMark,
  kStaging,
  kStagingMark,
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
  std::string_view path;        // relative to the program folder, with a separator at its start
  std::string_view made_by;     // the function that makes the item; empty when the item ships with the program
  std::string_view deleted_by;  // the function that deletes the item; empty when the program never deletes it
};

// One row for each Item, in the same order.
extern const std::array<FolderItem, static_cast<std::size_t>(Item::kCount)> kProgramFolder;

std::string PathOf(Item item);             // the full path
std::string_view NameInFolder(Item item);  // the path relative to the program folder, without a separator at its start

}  // namespace discwright::util
