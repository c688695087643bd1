// Text is the same on both sides.
#include "host/native_text.h"

namespace discwright::host {

std::string TextFromNative(std::string_view native) { return std::string(native); }

std::string TextToNative(std::string_view text) { return std::string(text); }

}  // namespace discwright::host
