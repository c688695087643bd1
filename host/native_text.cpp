// Converts settings files and the arguments of the command line, as far as this is the same on every system.
#include "host/native_text.h"

#include "base/utf8.h"

namespace discwright::host {

std::string EncodeText(std::string_view text) {
  // The bytes of some texts in the code page are valid UTF-8 by chance ("Ã¤" becomes the bytes of "ä"). DecodeText
  // would return another text for them, so these texts are stored as UTF-8.
  const std::optional<std::string> bytes = CodePageBytes(text);
  if (bytes && DecodeText(*bytes) == text) return *bytes;
  return std::string(base::kUtf8Mark).append(text);
}

std::string DecodeText(std::string_view bytes) {
  if (!base::IsUtf8File(bytes)) return TextOfCodePage(bytes);
  if (base::HasUtf8Mark(bytes)) bytes.remove_prefix(base::kUtf8Mark.size());
  return std::string(bytes);
}

std::vector<std::string> Arguments(int argc, char** argv) {
  std::vector<std::string> words;
  for (int i = 1; i < argc; ++i) words.push_back(TextFromNative(argv[i]));
  return words;
}

}  // namespace discwright::host
