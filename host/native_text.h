// Translates text between the program, which uses UTF-8, and the system, whose files and calls use its code page.
// Settings files go through EncodeText and DecodeText, everything that another program printed through TextFromNative.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace discwright::host {

// The code page of settings files and scripts: the ANSI code page on Windows, Windows-1252 elsewhere. Nothing when the
// code page cannot hold a character of the text, or the text is not UTF-8: a similar character would be another name.
std::optional<std::string> CodePageBytes(std::string_view text);
std::string TextOfCodePage(std::string_view bytes);

// The bytes of a settings file: in the code page wherever it can hold the text, otherwise UTF-8 with a byte order mark.
// DecodeText(EncodeText(text)) is the text again, also for a text that is not valid UTF-8.
std::string EncodeText(std::string_view text);
std::string DecodeText(std::string_view bytes);  // reads as UTF-8 what base::IsUtf8File says is UTF-8

// Text as the system's own programs read and write it: in the ANSI code page on Windows, unchanged elsewhere. On the
// way out "?" or a similar character stands for what the code page lacks: for texts to be read, not for names.
std::string TextFromNative(std::string_view native);
std::string TextToNative(std::string_view text);

// The words behind the program's name as UTF-8, from what main() was given. A path among them is still as the user
// spells it: see PathFromNative.
std::vector<std::string> Arguments(int argc, char** argv);

}  // namespace discwright::host
