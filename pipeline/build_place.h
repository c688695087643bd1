// The folder that holds the program: everything is built there.
#pragma once

#include <memory>
#include <string>

namespace discwright::pipeline {

// What the user has to be told when the program folder does not let itself be written to, or holds a build of another
// program already, to be asked before anything is built; empty otherwise. Leaves nothing behind. As long as `claim`
// lives, no other program builds here.
std::string WhyNotBuiltHere(std::shared_ptr<void>& claim);

}  // namespace discwright::pipeline
