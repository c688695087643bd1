// The file operations that the integration steps share. Copying whole folders is steps::CopyToTree.
#pragma once

#include <cstdint>
#include <string>

#include "steps/context.h"
#include "util/copy.h"

namespace discwright::integration {

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

// Copies "files\bootsect\`name`" to "boot\images" of the CD's tree; one that is missing is noted.
void CopyBootSector(steps::Context& context, const std::string& name);

// Ends the build with the box of a fatal error while integrating `what`.
void HaltIntegration(steps::Context& context, const std::string& what);

}  // namespace discwright::integration
