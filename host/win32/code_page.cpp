// The ANSI code page of the running system.
#include "host/code_page.h"

#include "host/win32/ansi.h"

namespace discwright::host {

std::optional<std::string> CodePageBytes(std::string_view text) { return AnsiOfUtf8(text); }

std::string TextOfCodePage(std::string_view bytes) { return Utf8OfAnsi(bytes); }

}  // namespace discwright::host
