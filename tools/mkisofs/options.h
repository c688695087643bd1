// The command line: what is mastered, how it is called and how it boots.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace discwright::tools::mkisofs {

struct Options {
  std::string volume_id;  // at most 32 bytes
  std::string preparer;   // this and the next two at most 128 bytes
  std::string publisher;
  std::string application_id;
  std::string boot_image;  // below the tree, names with "/" in between; empty: the disc does not boot
  std::string boot_catalogue = "boot.catalog";     // the same
  std::optional<std::uint16_t> boot_load_sectors;  // of 512 bytes; nothing: the whole boot image
  std::vector<std::string> hidden;                 // patterns for names, see MatchesPattern
  bool follow_links = false;
  bool store_links_once = false;  // names of one file share its data
  std::string output;             // as the user spells it
  std::string tree;               // the same
};

// Reads the words behind the program's name, in any order. A sentence about the first that is wrong; empty when all
// is well.
std::string ParseOptions(std::span<const std::string> words, Options& options);

// One line per option, for a wrong command line.
std::string UsageText();

}  // namespace discwright::tools::mkisofs
