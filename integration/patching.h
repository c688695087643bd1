// Patching files in place: bytes of a program, or text of a script.
#pragma once

#include <string>
#include <string_view>

#include "steps/context.h"

namespace discwright::integration {

// Replaces the bytes of `FindText` wherever they stand, letter case and all, by those of `ReplaceText` (both in the
// code page); the file keeps its length and its times. True when at least one place was replaced. A missing or empty
// file is none; a failure is shown ("Patching Error") and noted, and leaves the file as it was.
bool PatchBinaryFile(steps::Context& context, const std::string& FileName, std::string_view FindText,
                     std::string_view ReplaceText);

// Replaces `FindText` wherever it stands, in any letter case, by `ReplaceText`, and ends the file with one more line
// end. Always false: no caller asks whether a place was replaced. A missing file is no failure; a failure is shown and
// noted as above.
bool PatchTextFile(steps::Context& context, const std::string& FileName, std::string_view FindText,
                   std::string_view ReplaceText);

}  // namespace discwright::integration
