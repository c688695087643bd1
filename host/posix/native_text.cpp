// Converts settings files to and from Windows-1252, because Windows reads the same files. The system's own text is
// UTF-8 already.
#include "host/native_text.h"

#include "base/windows_1252.h"

namespace discwright::host {

std::optional<std::string> CodePageBytes(std::string_view text) { return base::ToWindows1252(text); }

std::string TextOfCodePage(std::string_view bytes) { return base::FromWindows1252(bytes); }

std::string TextFromNative(std::string_view native) { return std::string(native); }

std::string TextToNative(std::string_view text) { return std::string(text); }

}  // namespace discwright::host
