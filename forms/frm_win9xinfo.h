// The Windows 98/Me installation info dialog as data.
#pragma once

#include "forms/control.h"

namespace discwright::forms {

struct FrmWin9xInfo : Form {
  FrmWin9xInfo() : Form("FrmWin9xInfo", "Windows 9x Installation Info") {}

  Label LblOwner{*this, "LblOwner", "Owner Name :"};
  TextBox TxtOwner{*this, "TxtOwner", "VexaUser"};
  Label LblOrg{*this, "LblOrg", "Organization :"};
  TextBox TxtOrg{*this, "TxtOrg", "KORVANE LTD."};
  Label LblPCName{*this, "LblPCName", "Computer Name :"};
  TextBox TxtPCName{*this, "TxtPCName"};
  Label LblWorkgroup{*this, "LblWorkgroup", "Workgroup :"};
  TextBox TxtWorkgroup{*this, "TxtWorkgroup", "KORVANE_LTD"};
  Label LblOSType{*this, "LblOSType", "Optimized for :"};
  TextBox TxtOSType{*this, "TxtOSType", "Microsoft Windows 98"};
  CommandButton CmdOK{*this, "CmdOK", "OK"};
  CommandButton CmdCancel{*this, "CmdCancel", "Cancel"};
};

}  // namespace discwright::forms
