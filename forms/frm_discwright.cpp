// Sets what the declarations of the main window cannot say: which controls are hidden, disabled, read-only or for
// passwords.
#include "forms/frm_discwright.h"

#include <algorithm>

namespace discwright::forms {

FrmDiscwright::FrmDiscwright() : Form("FrmDiscwright", "Vexa Discwright") {
  for (std::size_t page = 1; page < FraMain.size(); ++page) FraMain[page].visible = false;
  CmdBack.enabled = false;
  CmdFinish.visible = false;
  BarSub_Step.visible = false;
  for (Label* label : {&LblPlace, &LblAbort, &LblResult}) label->visible = false;
  TxtReport.visible = false;
  for (TextBox* box : {&TxtSummery, &TxtReport}) {
    box->read_only = true;
    box->multi_line = true;
  }
  for (TextBox* box : {&TxtPass1, &TxtPass2}) box->password = true;
  for (Label* mark : {&LblRight1, &LblRight2, &LblRight3, &LblRight4, &LblRight5}) mark->symbol_font = true;
  for (Label* heading : {&LblHeadWelcome, &LblHeadContents, &LblHeadWin2K1, &LblHeadWin2K2, &LblHeadWin9x,
                         &LblHeadAdvtools, &LblHeadUtils, &LblHeadISO, &LblHeadSummery, &LblFinish, &LblWait}) {
    heading->heading = true;
  }
  default_buttons = {&CmdNext, &CmdFinish};
  cancel_button = &CmdCancel;
  help_button = &CmdHelp;
  LblSub_Step.one_line = true;
}

const Label& FrmDiscwright::Heading(std::size_t page) const {
  const auto found = std::find_if(controls().begin(), controls().end(), [&](const Control* control) {
    const auto* label = dynamic_cast<const Label*>(control);
    return label != nullptr && label->heading && label->container() == &FraMain[page];
  });
  return dynamic_cast<const Label&>(**found);  // the cast is safe, because every page has a title line
}

}  // namespace discwright::forms
