// Converts names to their form on a FAT disk, 11 bytes each. ToShortName makes an 8.3 file name, ToLabel a volume
// label.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/result.h"

namespace discwright::tools {

// Eight bytes of name and three of extension without the dot, padded with blanks (FAT specification 1.03, DIR_Name).
using ShortName = std::array<std::uint8_t, 11>;

inline constexpr ShortName kNoLabel = {'N', 'O', ' ', 'N', 'A', 'M', 'E', ' ', ' ', ' ', ' '};

// Returns the name in capitals. Returns no value when the name is not in 8.3 form, has a character that DOS forbids, or
// is the name of a DOS device (CON, NUL).
std::optional<ShortName> ToShortName(std::string_view text);

// Returns the name as text for messages, such as "README.TXT". "?" stands for every byte that is not printable ASCII.
std::string ToText(const ShortName& name);

// Makes a volume label in capitals from 1 to 11 characters, which may include blanks. The sentence of a failure has no
// subject: the caller puts the label before it.
Result ToLabel(std::string_view text, ShortName& label);

}  // namespace discwright::tools
