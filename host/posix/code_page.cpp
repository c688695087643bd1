// Windows-1252, as Windows writes the same files.
#include "host/code_page.h"

#include "host/windows_1252.h"

namespace discwright::host {

std::optional<std::string> CodePageBytes(std::string_view text) { return ToWindows1252(text); }

std::string TextOfCodePage(std::string_view bytes) { return FromWindows1252(bytes); }

}  // namespace discwright::host
