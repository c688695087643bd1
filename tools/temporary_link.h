// The names that dfl gives to new links until they replace files. A dfl that is killed leaves a few of them, each
// beside the file whose content it has. The next dfl removes them, and mkisofs leaves them out.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace discwright::tools {

// Long and odd enough that no file of a user has a name that begins like this.
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
