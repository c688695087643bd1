// Patches files in place: PatchBinaryFile replaces bytes in a program, PatchTextFile replaces text in a script.
#pragma once

#include <string>
#include <string_view>

#include "steps/context.h"

namespace discwright::integration {

// Overwrites each occurrence of `FindText` with `ReplaceText`, both as bytes of the code page. Letter case matters. The
// file keeps its length and its times. Returns whether at least one occurrence was overwritten; false for a missing or
// empty file. A failure is shown ("Patching Error") and noted, and the file stays as it was.
bool PatchBinaryFile(steps::Context& context, const std::string& FileName, std::string_view FindText,
                     std::string_view ReplaceText);

// Replaces each occurrence of `FindText` by `ReplaceText`. Letter case does not matter. Each call adds a line end at
// the end of the file. A missing file is not a failure; any other failure is shown and noted as above. The result is
// always false, and no caller uses it. The line end and the result are kept as they have always been.
bool PatchTextFile(steps::Context& context, const std::string& FileName, std::string_view FindText,
                   std::string_view ReplaceText);

}  // namespace discwright::integration
