// Text as the system's own programs read and write it: in the ANSI code page on Windows, as it is elsewhere.
#pragma once

#include <string>
#include <string_view>

namespace discwright::host {

std::string TextFromNative(std::string_view native);

// What the code page lacks becomes "?" or a similar character: for texts to be read, not for names.
std::string TextToNative(std::string_view text);

}  // namespace discwright::host
