// The words of the running program's command line.
#pragma once

#include <string>
#include <vector>

namespace discwright::host {

// The words behind the program's name as UTF-8, from what main() was given. A path among them is still as the user
// spells it: see PathFromNative.
std::vector<std::string> Arguments(int argc, char** argv);

}  // namespace discwright::host
