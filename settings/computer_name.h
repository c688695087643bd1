// Which names of computers and workgroups Windows Setup refuses, so that the user learns it before the CD is made.
#pragma once

#include <string>
#include <string_view>

namespace discwright::settings {

enum class SetupFamily { kWin9x, kWin2K };  // 98 and Me; 2000, XP and 2003

// Empty when Setup takes the name, otherwise why it does not, as a sentence. Blanks around a name do not count: it is
// written without them. Setup asks for an empty name, and 2000 to 2003 make up one for "*".
// These are the rules as Microsoft documents them for these systems; no Setup was tried. What is not documented as
// refused is taken.
std::string WhyNoComputerName(std::string_view name, SetupFamily family);

// The same for a workgroup. An empty name is taken.
std::string WhyNoWorkgroupName(std::string_view name, SetupFamily family);

}  // namespace discwright::settings
