// Which Windows 2000/XP edition and service pack a setup CD holds, told by its tag files.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "forms/frm_discwright.h"

namespace discwright::integration {

// Examines the root of a setup CD (no trailing separator) and shows the verdict in LblWin2KOSVer. The three numbers
// are set only when an edition is recognised.
void IdentifyWinVer(forms::FrmDiscwright& main, std::string_view Source, std::int16_t& BuildNum, std::int16_t& MajorVer,
                    std::int16_t& MinorVer);

// The same, for callers that do not need the numbers.
void ShowWinVer(forms::FrmDiscwright& main, const std::string& Source);

}  // namespace discwright::integration
