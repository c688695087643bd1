// What came of a build. Every face turns this into words; no face reads the labels of the window to find it out.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace discwright::steps {

enum class BuildEnd {
  kNone,  // there was no build yet
  kMade,
  kMadeWithNotes,  // there is an image, but something named in a note is missing from it or was left behind
  kFailed,
  kCancelled,  // by the user
};

struct BuildResult {
  BuildEnd end = BuildEnd::kNone;
  std::string image;                  // the path of the image that was made, or was to be made, without quotes
  std::int64_t size = 0;              // of the image that was made, in bytes
  std::string sha256;                 // its digest, in lower-case hexadecimal; empty when it was not asked for
  std::string why;                    // of a failure: sentences for the user
  std::string log;                    // of a failed mastering: the path of its log
  std::vector<std::string> log_tail;  // and the last lines of it, as UTF-8
};

}  // namespace discwright::steps
