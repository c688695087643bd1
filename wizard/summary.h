// The text of the summary page.
#pragma once

#include <string>

#include "forms/frm_discwright.h"

namespace discwright::wizard {

// Every choice in plain text, lines ended by CR LF. Reads the controls and today's date, changes nothing.
std::string GenerateSummery(const forms::FrmDiscwright& main);

}  // namespace discwright::wizard
