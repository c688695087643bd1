// The command line of CreateDsk.
#pragma once

#include <span>
#include <string>

#include "tools/createdsk/disk_format.h"
#include "tools/createdsk/result.h"

namespace discwright::tools {

inline constexpr const char* kUsage = "Usage: CreateDsk -t 144|288 PROFILE [-sel]";

struct Arguments {
  const DiskFormat* format = nullptr;
  std::string profile;
  bool selection = false;  // "-sel": the drivers are selected when the disk starts
};

// Reads the words behind the program's name, in any order. The failure is a sentence to show above the usage line.
Result ParseArguments(std::span<const std::string> words, Arguments& arguments);

}  // namespace discwright::tools
