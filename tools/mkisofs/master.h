// A whole run of the program, from its command line to its exit code.
#pragma once

#include <cstdint>
#include <functional>
#include <ostream>
#include <span>
#include <string>

namespace discwright::tools::mkisofs {

// What a run takes from its surroundings.
struct Surroundings {
  const char* source_date = nullptr;  // SOURCE_DATE_EPOCH; null when it is not set
  std::int64_t now = 0;               // seconds since 1970-01-01 00:00 UTC
  std::function<bool()> stopped;      // the user wants to end the run
};

// Masters the image that `words` (without the program's name) describe and says so on `messages`. 0 on success, 1 when
// the image could not be made, 2 for a wrong command line; then nothing stands under the image's name that was not
// there before.
int Master(std::span<const std::string> words, const Surroundings& surroundings, std::ostream& messages);

}  // namespace discwright::tools::mkisofs
