// The code pages of Windows beside the ANSI one of host/native_text.h: scripts and consoles use the OEM code page.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "host/native_text.h"

namespace discwright::host {

// As CodePageBytes, for any code page of the system.
std::optional<std::string> BytesInCodePage(std::string_view text, unsigned code_page);

// As TextToNative, for any code page of the system.
std::string NearestInCodePage(std::string_view text, unsigned code_page);

// What a call of the system has put into a buffer. `length` is what the call returned: 0 when it failed, and more than
// fits when there was not enough room. Empty for both.
template <std::size_t size>
std::string TextOfBuffer(const std::array<char, size>& buffer, unsigned long length) {
  return length < size ? TextOfCodePage({buffer.data(), length}) : std::string();
}

}  // namespace discwright::host
