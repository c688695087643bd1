// Converts text to and from any code page of Windows; scripts and consoles use the OEM code page. For the ANSI code
// page, use host/native_text.h.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "host/native_text.h"

namespace discwright::host {

// Like CodePageBytes, but for any code page of the system.
std::optional<std::string> BytesInCodePage(std::string_view text, unsigned code_page);

// Like TextToNative, but for any code page of the system.
std::string NearestInCodePage(std::string_view text, unsigned code_page);

// The text that a call of the system has put into a buffer. `length` is the result of the call: 0 when it failed, and
// more than fits when there was not enough room. In both cases the text is empty.
template <std::size_t size>
std::string TextOfBuffer(const std::array<char, size>& buffer, unsigned long length) {
  return length < size ? TextOfCodePage({buffer.data(), length}) : std::string();
}

}  // namespace discwright::host
