// Why a page refuses a location, and what the user can do about it. Each gives one sentence that names the location as
// the system spells it. They are called after a check has refused the location, look closer, and change nothing.
#pragma once

#include <string>

namespace discwright::wizard {

std::string WhyNoFolder(const std::string& text);
std::string WhyNoServicePack(const std::string& text);

// Folders that are known by a file in them. Where that file lies one folder further down or up, they say so.
std::string WhyNoWin2KSource(const std::string& text);
std::string WhyNoWin9xSource(const std::string& text);
std::string WhyNoErdCommander(const std::string& text);
std::string WhyNoBlueCon(const std::string& text);

}  // namespace discwright::wizard
