// Makes and recognises the names that dfl gives to new links until they replace files. When dfl is killed, it leaves a
// few of these links, each beside the file whose content it has. The next run of dfl removes them, and mkisofs does not
// store them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace discwright::tools {

// The beginning is so long and unusual that no file of a user has a name that begins with it.
inline constexpr std::string_view kTemporaryLinkStart = ".discwright-dfl-link-7c1f5e9a2b-";

inline std::string TemporaryLinkName(std::size_t number) {
  return std::string(kTemporaryLinkStart).append(std::to_string(number));
}

inline bool IsTemporaryLinkName(std::string_view name) {
  if (!name.starts_with(kTemporaryLinkStart) || name.size() == kTemporaryLinkStart.size()) return false;
  name.remove_prefix(kTemporaryLinkStart.size());
  return std::ranges::all_of(name, [](char character) { return character >= '0' && character <= '9'; });
}

}  // namespace discwright::tools
