// The topics of the help file.
#pragma once

#include <string>

namespace discwright::wizard {

// The numeric id of a page's topic: 1110 for page 0 to 1210 for page 10.
constexpr int HelpTopic(int page) { return (page + 1) * 10 + 1100; }

// What the help viewer opens: the help file of the program folder, and the window type in it.
std::string HelpPath();

}  // namespace discwright::wizard
