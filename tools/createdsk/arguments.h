// Describes the command line of CreateDsk. main() calls ParseArguments, and prints kUsage when it fails.
#pragma once

#include <span>
#include <string>

#include "tools/createdsk/disk_format.h"
#include "tools/result.h"

namespace discwright::tools {

inline constexpr const char* kUsage = "Usage: CreateDsk -t 144|288 PROFILE [-sel]";

struct Arguments {
  const DiskFormat* format = nullptr;  // not null after ParseArguments has succeeded
  std::string profile;
  bool selection = false;  // "-sel" was given: the files of [Selection] are stored, too
};

// Reads the command line, without the program's name. Its words may stand in any order.
Result ParseArguments(std::span<const std::string> words, Arguments& arguments);

}  // namespace discwright::tools
