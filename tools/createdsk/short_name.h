// Names on a FAT disk: 8.3 file names and volume labels, both eleven bytes.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/createdsk/result.h"

namespace discwright::tools {

// Eight bytes of name and three of extension, padded with blanks (FAT specification 1.03, DIR_Name).
using ShortName = std::array<std::uint8_t, 11>;

inline constexpr ShortName kNoLabel = {'N', 'O', ' ', 'N', 'A', 'M', 'E', ' ', ' ', ' ', ' '};

// The name in capitals; nothing when it is not 8.3, has a character that DOS forbids, or is a DOS device (CON, NUL...).
std::optional<ShortName> ToShortName(std::string_view text);

// "README.TXT" again, for messages; "?" stands for what is not plain ASCII.
std::string ToText(const ShortName& name);

// A volume label in capitals: 1 to 11 characters, blanks inside allowed.
Result ToLabel(std::string_view text, ShortName& label);

}  // namespace discwright::tools
