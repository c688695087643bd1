// Makes and recognises the names of temporary files.
#include "base/temporary_names.h"

#include <algorithm>

namespace discwright::base {
namespace {

constexpr std::string_view kStart = ".discwright-";
constexpr std::string_view kPart = ".part";
constexpr std::string_view kTest = ".test";
constexpr std::size_t kLongest = 200;  // bytes of a name; file systems allow 255 for the whole

std::string Around(std::string_view name, std::string_view end) {
  std::size_t length = std::min(name.size(), kLongest);
  // No character of UTF-8 is cut: its further bytes are 10xxxxxx.
  while (length < name.size() && length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80) --length;
  return std::string(kStart).append(name.substr(0, length)).append(end);
}

bool IsNumber(std::string_view text) { return !text.empty() && text.find_first_not_of("0123456789") == text.npos; }

}  // namespace

std::string TemporaryName(unsigned long process, unsigned long number) {
  return std::string(kStart) + std::to_string(process) + "-" + std::to_string(number);
}

std::string PartName(std::string_view name) { return Around(name, kPart); }

std::string TestName(std::string_view name) { return Around(name, kTest); }

bool IsTemporaryName(std::string_view name) {
  if (!name.starts_with(kStart)) return false;
  name.remove_prefix(kStart.size());
  if (name.ends_with(kPart) || name.ends_with(kTest)) return name.size() > kPart.size();
  const std::size_t dash = std::min(name.find('-'), name.size());
  return dash < name.size() && IsNumber(name.substr(0, dash)) && IsNumber(name.substr(dash + 1));
}

}  // namespace discwright::base
