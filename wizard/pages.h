// Names the pages, and answers questions about them: which one is visible, and which ones Next and Back skip.
#pragma once

#include "forms/frm_discwright.h"

namespace discwright::wizard {

// Indexes into FraMain. Those of the finish and the progress page are in forms/frm_discwright.h.
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

// Next and Back skip a page if this check box of the contents page is clear. Null for pages that are never skipped.
forms::CheckBox* ContentOf(forms::FrmDiscwright& main, int page);
bool IsOnTheWay(forms::FrmDiscwright& main, int page);  // whether Next and Back show the page

// Returns the visible page. It can differ from `Step`: CancelApp shows the finish page and does not change `Step`.
int PageInView(const forms::FrmDiscwright& main);

// Returns the page that contains a control; -1 for a button below the pages and for a control of a dialog.
int PageOf(forms::FrmDiscwright& main, const forms::Control& control);

// Whether a build is running.
bool BuildRuns(const forms::FrmDiscwright& main);

}  // namespace discwright::wizard
