// File operations that several integration steps use. To copy a whole folder, use steps::CopyToTree.
#pragma once

#include <cstdint>
#include <string>

#include "steps/context.h"
#include "util/copy.h"

namespace discwright::integration {

// Copies the files that match `SourceSpec` into the folder of `DestSpec`. The last name of `SourceSpec` may contain
// wildcards; the last name of `DestSpec` is ignored. Hidden and system files are copied too. The copy ends at the first
// file that cannot be copied, or if the folder cannot be listed: the result is false, and the failure is noted. It also
// ends, with false, when the build is cancelled. A missing folder is not a failure.
bool CopyMatchingFiles(steps::Context& context, const std::string& SourceSpec, const std::string& DestSpec,
                       util::CopiedNames names = util::CopiedNames::kAsListed);

// Moves or renames with the shell of the desktop, without asking the user. The last name of `Source` may contain
// wildcards. `Flags` are those of the shell. The result is empty after a success. Otherwise it is "Aborted", or the
// error number of the shell.
std::string MoveWithShell(void* OwnerWindow, const std::string& Source, const std::string& Destination,
                          std::uint16_t Flags, const std::string& Title);
std::string RenameWithShell(void* OwnerWindow, const std::string& OldName, const std::string& NewName,
                            const std::string& Title);

// Copies the boot sector `name` from "files\bootsect" of the program folder to "boot\images" of the workspace. A
// missing boot sector is noted.
void CopyBootSector(steps::Context& context, const std::string& name);

// Ends the build with the message "A fatal Error occured while integrating the ..."; `what` completes the sentence.
// Does nothing when the build has been cancelled already.
void HaltIntegration(steps::Context& context, const std::string& what);

}  // namespace discwright::integration
