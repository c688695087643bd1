// The folder that holds the program: everything is built there.
#pragma once

#include <string>

namespace discwright::pipeline {

// What the user has to be told when the program folder does not let itself be written to, to be asked before anything
// is built; empty otherwise. Leaves nothing behind.
std::string WhyNotBuiltHere();

}  // namespace discwright::pipeline
