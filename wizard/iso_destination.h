// Whether an ISO file can be written where the user wants it.
#pragma once

#include <string>

namespace discwright::wizard {

// True for a file that exists (see util::FileExists: blanks and quotes around it do not count, a wildcard needs a
// match), and for a name in an existing folder under which a file can be created (tried out; the probe is removed
// again). Folders, devices, pipes and sockets are false and never opened.
bool IsoDestinationIsCorrect(const std::string& text);

}  // namespace discwright::wizard
