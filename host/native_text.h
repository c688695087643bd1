// Converts text between UTF-8, which the program uses, and the code page of the system's files and calls. Use
// EncodeText and DecodeText for settings files, and TextFromNative for text that another program has printed.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace discwright::host {

// These functions convert between UTF-8 and the code page of settings files and scripts: the ANSI code page on Windows,
// Windows-1252 on other systems. CodePageBytes returns std::nullopt when the text is not UTF-8, or has a character that
// the code page lacks. It never takes a similar character, because that would make another name.
std::optional<std::string> CodePageBytes(std::string_view text);
std::string TextOfCodePage(std::string_view bytes);

// These functions convert between a text and the bytes of a settings file. The bytes are in the code page when it can
// hold the text, otherwise in UTF-8 with a byte order mark. DecodeText(EncodeText(text)) is equal to the text, even
// when the text is not valid UTF-8.
std::string EncodeText(std::string_view text);
std::string DecodeText(std::string_view bytes);  // reads the bytes as UTF-8 when base::IsUtf8File is true

// These functions convert between UTF-8 and the text of the system's own programs: in the ANSI code page on Windows,
// unchanged on other systems. TextToNative replaces characters that the code page lacks by "?" or a similar character,
// so its result is only for reading, not for names.
std::string TextFromNative(std::string_view native);
std::string TextToNative(std::string_view text);

// The arguments of main() after the program's name, as UTF-8. Paths among them keep the user's spelling; see
// PathFromNative.
std::vector<std::string> Arguments(int argc, char** argv);

}  // namespace discwright::host
