// The result of a build. pipeline::FinishApp returns it. A user interface words its final message from this result, and
// not from the labels of the window.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace discwright::steps {

enum class BuildEnd {
  kNone,           // no build has run yet
  kMade,           // the image is complete
  kMadeWithNotes,  // the image was made, but the notes name failures
  kFailed,
  kCancelled,  // by the user
};

struct BuildResult {
  BuildEnd end = BuildEnd::kNone;
  std::string image = {};   // the path of the image, without quotes; also after a build that made none
  std::int64_t size = 0;    // the size of the finished image in bytes
  std::string sha256 = {};  // the SHA-256 of the finished image in lower-case hexadecimal; empty if it was not wanted
  std::string why = {};     // why the build failed, as sentences for the user
  std::string log = {};     // the path of the mastering log; empty unless the mastering failed
  std::vector<std::string> log_tail = {};  // the last lines of this log, as UTF-8
};

}  // namespace discwright::steps
