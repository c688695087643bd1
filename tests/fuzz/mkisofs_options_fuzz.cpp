// Gives random command lines to mkisofs. The options that it accepts must be valid.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "tools/mkisofs/names.h"
#include "tools/mkisofs/options.h"
#include "tools/mkisofs/volume_descriptors.h"

namespace {

using discwright::tools::mkisofs::Options;

bool IsPathBelow(const std::string& path) {
  return !path.empty() && path.front() != '/' && path.back() != '/' && path.find("//") == path.npos &&
         ("/" + path + "/").find("/../") == std::string::npos;
}

void Require(bool promise) {
  if (!promise) std::abort();
}

}  // namespace

// Words stand in the input as on a command line of the system: each ends with a zero byte.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> words(1);
  for (std::size_t i = 0; i < size; ++i) {
    if (data[i] == 0) {
      words.emplace_back();
    } else {
      words.back() += static_cast<char>(data[i]);
    }
  }
  Options options;
  if (!discwright::tools::mkisofs::ParseOptions(words, options).ok()) return 0;
  Require(!options.output.empty() && !options.tree.empty());
  Require(options.volume_id.size() <= discwright::tools::mkisofs::kVolumeIdSize);
  for (const std::string* text : {&options.preparer, &options.publisher, &options.application_id})
    Require(text->size() <= discwright::tools::mkisofs::kTextSize);
  Require(options.boot_image.empty() || IsPathBelow(options.boot_image));
  Require(IsPathBelow(options.boot_catalogue));
  Require(options.boot_load_sectors != 0);
  for (const std::string& pattern : options.hidden) discwright::tools::mkisofs::MatchesPattern(pattern, options.tree);
  return 0;
}
