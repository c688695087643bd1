// Names on a FAT disk, 11 bytes each: ToShortName makes an 8.3 file name, ToLabel a volume label.
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

// The name in capitals. No value when it is not 8.3, has a character that DOS forbids, or names a DOS device (CON,
// NUL).
std::optional<ShortName> ToShortName(std::string_view text);

// The name as text for messages, such as "README.TXT". "?" stands for every byte that is not printable ASCII.
std::string ToText(const ShortName& name);

// Makes a volume label in capitals from 1 to 11 characters, which may include blanks. On failure the sentence lacks its
// subject, the label.
Result ToLabel(std::string_view text, ShortName& label);

}  // namespace discwright::tools
