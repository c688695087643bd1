// The pages by name, the one in view, and the content that decides whether a page is on the way.
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

// The check box of the contents page without which a page is skipped, in both directions; null: always on the way.
forms::CheckBox* ContentOf(forms::FrmDiscwright& main, int page);
bool IsOnTheWay(forms::FrmDiscwright& main, int page);

// The page that is shown. It is not always `Step`: a cancelled wizard shows the finish page, and `Step` stays.
int PageInView(const forms::FrmDiscwright& main);

// The page on which a control stands; -1 when it stands on none (it is below all pages, or of a dialog).
int PageOf(forms::FrmDiscwright& main, const forms::Control& control);

// Whether the Finish button's build is under way.
bool BuildRuns(const forms::FrmDiscwright& main);

}  // namespace discwright::wizard
