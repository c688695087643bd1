// Recognises the Windows 2000/XP edition and the service pack on a setup CD by its tag files. Call ShowWinVer when the
// user has chosen a CD.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "forms/frm_discwright.h"

namespace discwright::integration {

// Examines the root folder of a setup CD, given without a separator at its end, and shows the edition in LblWin2KOSVer.
// Sets the three numbers only if it recognises an edition, for example 2600, 5 and 1 for Windows XP.
void IdentifyWinVer(forms::FrmDiscwright& main, std::string_view Source, std::int16_t& BuildNum, std::int16_t& MajorVer,
                    std::int16_t& MinorVer);

// Shows the edition in LblWin2KOSVer.
void ShowWinVer(forms::FrmDiscwright& main, const std::string& Source);

}  // namespace discwright::integration
