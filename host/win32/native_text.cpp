// The ANSI code page.
#include "host/native_text.h"

#include <windows.h>

#include "host/win32/ansi.h"

namespace discwright::host {

std::string TextFromNative(std::string_view native) { return Utf8OfAnsi(native); }

std::string TextToNative(std::string_view text) { return NearestInCodePage(text, CP_ACP); }

}  // namespace discwright::host

// The compiler's start-up code must not take "*" and "?" in arguments for wildcards, however it was built.
extern "C" {
extern int _dowildcard;
int _dowildcard = 0;
}
