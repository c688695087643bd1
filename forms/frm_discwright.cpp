// The main window's start state beyond captions and texts.
#include "forms/frm_discwright.h"

namespace discwright::forms {

FrmDiscwright::FrmDiscwright() : Form("FrmDiscwright", "Vexa Discwright") {
  for (std::size_t page = 1; page < FraMain.size(); ++page) FraMain[page].visible = false;
  CmdBack.enabled = false;
  CmdFinish.visible = false;
  LblAbort.visible = false;
  BarSub_Step.visible = false;
  TxtSummery.read_only = true;
  TxtSummery.multi_line = true;
  for (TextBox* box : {&TxtPass1, &TxtPass2}) box->password = true;
  for (Label* mark : {&LblRight1, &LblRight2, &LblRight3, &LblRight4, &LblRight5}) mark->symbol_font = true;
  for (Label* address : {&LblLink_vexacd, &LblLink_cdshell, &LblLink_Third}) address->link = true;
}

const Label& FrmDiscwright::Heading(std::size_t page) const {
  const std::array<const Label*, kPageCount> headings = {
      &LblHeadWelcome, &LblHeadContents, &LblHeadWin2K1,  &LblHeadWin2K2, &LblHeadWin9x, &LblHeadAdvtools,
      &LblHeadUtils,   &LblHeadISO,      &LblHeadSummery, &LblFinish,     &LblWait};
  return *headings.at(page);
}

}  // namespace discwright::forms
