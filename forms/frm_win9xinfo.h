// Describes the installation info dialog of Windows 98/Me as data: its controls with their captions and first values.
#pragma once

#include "forms/control.h"

namespace discwright::forms {

struct FrmWin9xInfo : Form {
  FrmWin9xInfo() : Form("FrmWin9xInfo", "Windows 9x Installation Info") {
    default_buttons = {&CmdOK};
    cancel_button = &CmdCancel;
  }

  Label LblOwner{*this, "LblOwner", "Owner Name :", {.key = 'O'}};
  TextBox TxtOwner{*this, "TxtOwner", LblOwner, "VexaUser", {.beside = true}};
  Label LblOrg{*this, "LblOrg", "Organization :", {.key = 'g'}};
  TextBox TxtOrg{*this, "TxtOrg", LblOrg, "KORVANE LTD.", {.beside = true}};
  Label LblPCName{*this, "LblPCName", "Computer Name :", {.key = 'C'}};
  TextBox TxtPCName{*this, "TxtPCName", LblPCName, "", {.beside = true}};
  Label LblWorkgroup{*this, "LblWorkgroup", "Workgroup :", {.key = 'W'}};
  TextBox TxtWorkgroup{*this, "TxtWorkgroup", LblWorkgroup, "KORVANE_LTD", {.beside = true}};
  Label LblOSType{*this, "LblOSType", "Optimized for :", {.key = 'p'}};
  TextBox TxtOSType{*this, "TxtOSType", LblOSType, "Microsoft Windows 98", {.beside = true}};
  CommandButton CmdOK{*this, "CmdOK", "OK"};
  CommandButton CmdCancel{*this, "CmdCancel", "Cancel", {.beside = true}};
};

}  // namespace discwright::forms
