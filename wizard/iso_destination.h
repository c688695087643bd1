// Checks whether the ISO file can be written to the path that the user has entered. Call WhyNoIsoDestination, and
// HoldsSomethingElse to find out whether an existing file would be lost.
#pragma once

#include <string>

namespace discwright::wizard {

// Returns why the image cannot be written there and what the user can do, as a sentence; empty if it can be written.
// Double quotes around the path are ignored. An existing file is accepted. For a new file the function creates and
// deletes a test file of that name. Folders, devices, pipes and sockets are refused without being opened.
std::string WhyNoIsoDestination(const std::string& text);

// Whether there is a file that is not a disc image, so that it must not be replaced without asking. A disc image has
// the identifier "CD001" in sector 16 (ECMA-119, 8.1.2). An empty file counts as a disc image.
bool HoldsSomethingElse(const std::string& text);

}  // namespace discwright::wizard
