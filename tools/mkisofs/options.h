// Describes the command line of mkisofs. Master() calls ParseOptions, and prints UsageText when it fails.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "tools/result.h"

namespace discwright::tools::mkisofs {

struct Options {
  std::string volume_id;  // at most 32 bytes
  std::string preparer;   // like publisher and application_id at most 128 bytes
  std::string publisher;
  std::string application_id;
  std::string boot_image;                       // path below the tree, "/" between names; empty: the disc does not boot
  std::string boot_catalogue = "boot.catalog";  // path below the tree
  std::optional<std::uint16_t> boot_load_sectors;  // of 512 bytes; without a value the whole boot image
  std::vector<std::string> hidden;                 // patterns of names, see MatchesPattern
  bool leave_system_area_empty = false;            // the image starts from a CD only
  bool follow_links = false;
  bool store_links_once = false;  // hard links share the data of their file
  std::string output;             // path of the image, as the user spells it
  std::string tree;               // path of the folder to master, as the user spells it
};

// Reads the command line without the program's name; options may stand in any order. Fails with a sentence about the
// first word that is wrong.
Result ParseOptions(std::span<const std::string> words, Options& options);

// Returns the usage line and one line per option.
std::string UsageText();

}  // namespace discwright::tools::mkisofs
