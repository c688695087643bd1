// Makes the text of the summary page. Next calls GenerateSummery when it leaves the page of the ISO options.
#pragma once

#include <string>

#include "forms/frm_discwright.h"

namespace discwright::wizard {

// Lists the choices as text with CR LF line ends, from the controls and today's date. Changes nothing.
std::string GenerateSummery(const forms::FrmDiscwright& main);

}  // namespace discwright::wizard
