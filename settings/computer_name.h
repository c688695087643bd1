// Checks computer and workgroup names before the CD is made, because Windows Setup refuses some. Call
// WhyNoComputerName and WhyNoWorkgroupName; an empty result means that Setup accepts the name.
#pragma once

#include <string>
#include <string_view>

namespace discwright::settings {

enum class SetupFamily {
  kWin9x,  // Windows 98 and Me
  kWin2K,  // Windows 2000, XP and 2003
};

// Why Setup refuses a computer name, as a sentence; empty when Setup accepts it. Blanks around the name are ignored,
// because they are not written. An empty name is accepted: Setup then asks the user. Windows 2000 to 2003 also accept
// "*", and choose a name themselves.
// The rules are those that Microsoft documents. They were not tried with a real Setup. A name that no rule forbids is
// accepted.
std::string WhyNoComputerName(std::string_view name, SetupFamily family);

// Why Setup refuses a workgroup name, as a sentence; empty when Setup accepts it. An empty name is accepted.
std::string WhyNoWorkgroupName(std::string_view name, SetupFamily family);

}  // namespace discwright::settings
