// Performs a whole run of mkisofs. main() calls Master with the command line and returns its exit code.
#pragma once

#include <cstdint>
#include <functional>
#include <ostream>
#include <span>
#include <string>

namespace discwright::tools::mkisofs {

// What a run gets from the process that runs it. Tests give their own values.
struct Surroundings {
  const char* source_date = nullptr;  // the environment variable SOURCE_DATE_EPOCH; null when it is not set
  std::int64_t now = 0;               // seconds since 1970-01-01 00:00 UTC
  std::function<bool()> stopped;      // returns true when the user wants to end the run
};

// Masters the image that `words`, the command line without the program's name, describe. Progress and errors are
// printed on `messages`. Returns 0 on success, 1 when the image could not be made, 2 for a wrong command line. After a
// failure an older image is unchanged, and no part of a new one is left.
int Master(std::span<const std::string> words, const Surroundings& surroundings, std::ostream& messages);

}  // namespace discwright::tools::mkisofs
