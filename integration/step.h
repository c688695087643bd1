// What the build steps of this room do alike.
#pragma once

#include <string>
#include <string_view>

#include "util/context.h"
#include "util/copy.h"

namespace discwright::integration {

std::string WorkspaceRoot();  // of the tree that becomes the CD: program folder + "\vexacd"

// Copies a folder onto the CD's tree, with the step's label and bar. False only for what ends the step: an ordinary
// failure of the copy is not looked at, the copy has noted it.
bool CopyToTree(util::Context& context, std::string_view source, std::string_view destination,
                util::CopiedNames names = util::CopiedNames::kAsListed);

// Copies "files\bootsect\`name`" to "boot\images" of the CD's tree; one that is missing afterwards is noted.
void CopyBootSector(util::Context& context, const std::string& name);

// The box of a fatal error while integrating `what`; then cancels the build.
void HaltStep(util::Context& context, const std::string& what);

}  // namespace discwright::integration
