// Explains why a page refused a location, and what the user can do. Call one of these functions with the text of the
// location's field after its check has failed. The result is one sentence that names the location as the system spells
// it. The functions change nothing.
#pragma once

#include <string>

namespace discwright::wizard {

std::string WhyNoFolder(const std::string& text);
std::string WhyNoServicePack(const std::string& text);

// Locations that must contain a certain file. If this file is one folder further down or up, the sentence suggests that
// folder.
std::string WhyNoWin2KSource(const std::string& text);
std::string WhyNoWin9xSource(const std::string& text);
std::string WhyNoErdCommander(const std::string& text);
std::string WhyNoBlueCon(const std::string& text);

}  // namespace discwright::wizard
