// The pages by name, and the content that decides whether a page is on the way.
#pragma once

#include "forms/frm_discwright.h"

namespace discwright::wizard {

// Indexes into FraMain; the finish and the progress page have theirs in forms/frm_discwright.h.
enum Page : int {
  kWelcomePage = 0,
  kContentsPage = 1,
  kWin2KSourcePage = 2,
  kWin2KOptionsPage = 3,
  kWin9xPage = 4,
  kAdvtoolsPage = 5,
  kUtilitiesPage = 6,
  kIsoPage = 7,
  kSummaryPage = 8,
};

// A page whose content was not chosen on the contents page is skipped in both directions.
inline bool IsOnTheWay(const forms::FrmDiscwright& main, int page) {
  switch (page) {
    case kWin2KSourcePage:
    case kWin2KOptionsPage:
      return main.ChkGet_Win2k.checked();
    case kWin9xPage:
      return main.ChkGet_Win9x.checked();
    case kAdvtoolsPage:
      return main.ChkGet_Advtools.checked();
    default:
      return true;
  }
}

}  // namespace discwright::wizard
