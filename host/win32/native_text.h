// The code pages of Windows beside the ANSI one of host/native_text.h: scripts and consoles use the OEM code page.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace discwright::host {

// As CodePageBytes, for any code page of the system.
std::optional<std::string> BytesInCodePage(std::string_view text, unsigned code_page);

// As TextToNative, for any code page of the system.
std::string NearestInCodePage(std::string_view text, unsigned code_page);

}  // namespace discwright::host
