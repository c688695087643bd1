// Where the help file is.
#include "wizard/help_topics.h"

#include "host/system.h"

namespace discwright::wizard {

namespace {

constexpr const char* kHelpFile = "vexacd_builder.chm";
constexpr const char* kHelpWindow = "Down";

}  // namespace

std::string HelpPath() { return host::ProgramFolder() + "\\" + kHelpFile + ">" + kHelpWindow; }

}  // namespace discwright::wizard
