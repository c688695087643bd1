// The file operations that the build steps share: patching in place, copying by pattern, moving and renaming.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "util/context.h"
#include "util/copy.h"

namespace discwright::integration {

// Replaces the bytes of `FindText` wherever they stand, letter case and all, by those of `ReplaceText` (both in the
// code page); the file keeps its length and its times. True when at least one place was replaced. A missing or empty
// file is none; a failure is shown ("Patching Error") and noted, and leaves the file as it was.
bool PatchBinaryFile(util::Context& context, const std::string& FileName, std::string_view FindText,
                     std::string_view ReplaceText);

// Replaces `FindText` wherever it stands, in any letter case, by `ReplaceText`, and ends the file with one more line
// end. Always false, and never respects letter case, whatever `match_case` says: both are meant. A missing file is
// none; a failure is shown and noted as above.
bool PatchTextFile(util::Context& context, const std::string& FileName, std::string_view FindText,
                   std::string_view ReplaceText, bool match_case = false);

// Copies the files that match `SourceSpec`, whose last name may have wildcards, into the folder of `DestSpec`, whose
// last name is ignored; hidden and system files too. The first file that fails ends it, as does a folder that cannot be
// listed, but not one that is missing: false, and noted.
bool CopyMatchingFiles(util::Notes& notes, const std::string& SourceSpec, const std::string& DestSpec,
                       util::CopiedNames names = util::CopiedNames::kAsListed);

// Moves (the last name of `Source` may have wildcards) or renames as the desktop's shell does it, without questions.
// The answer is empty, "Aborted", or the shell's number for what went wrong. `Flags` are the shell's.
std::string MoveWithShell(void* OwnerWindow, const std::string& Source, const std::string& Destination,
                          std::uint16_t Flags, const std::string& Title);
std::string RenameWithShell(void* OwnerWindow, const std::string& OldName, const std::string& NewName,
                            const std::string& Title);

}  // namespace discwright::integration
