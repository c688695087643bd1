// Checks whether the program folder can be used for a build, because everything is built there. Call WhyNotBuiltHere
// before a build.
#pragma once

#include <memory>
#include <string>

namespace discwright::pipeline {

// Why no build can start in the program folder, as a message for the user: the folder is not writable, another process
// is building there, or a folder that a build would empty is not this program's (see util/emptied_folders.h). Empty
// when a build can start. Then `claim` keeps other processes from building there for as long as it exists;
// afterwards nothing of the check is left. What a killed run left in the program folder is deleted.
std::string WhyNotBuiltHere(std::shared_ptr<void>& claim);

}  // namespace discwright::pipeline
