// Whether an ISO file can be written where the user wants it.
#pragma once

#include <string>

namespace discwright::wizard {

// Empty for a file that exists, and for a name in an existing folder under which a file can be created (tried out; the
// probe is removed again); double quotes around it are no part of the name. Otherwise why the image cannot be made
// there, and what to do, as a sentence. Folders, devices, pipes and sockets are refused and never opened.
std::string WhyNoIsoDestination(const std::string& text);

// Whether a file that stands there is something else than a disc image, which an image must not replace unasked: it
// is not empty, and it lacks the mark of ISO 9660 (ECMA-119, 8.1.2) in sector 16.
bool HoldsSomethingElse(const std::string& text);

}  // namespace discwright::wizard
