// The Windows 2000/XP/2003 installation info dialog as data.
#pragma once

#include "forms/control.h"

namespace discwright::forms {

struct FrmWin2KInfo : Form {
  FrmWin2KInfo() : Form("FrmWin2KInfo", "Windows 2K/XP/2003 Installation Info") {
    DlgOpen.title = "Unattended setup information file";
    DlgOpen.file_name = "unattend.txt";
    DlgOpen.filter = "Text file (*.txt; *.sif)|*.txt; *.sif";
  }

  Label LblTemplate{*this, "LblTemplate", "Unattended setup script file : "};
  TextBox TxtTemplate{*this, "TxtTemplate"};
  CommandButton CmdBrwUnattend{*this, "CmdBrwUnattend", "Browse ..."};
  FileDialog DlgOpen{*this, "DlgOpen"};
  Label LblOwner{*this, "LblOwner", "Owner Name :"};
  TextBox TxtOwner{*this, "TxtOwner", "VexaUser"};
  Label LblOrg{*this, "LblOrg", "Organization :"};
  TextBox TxtOrg{*this, "TxtOrg", "KORVANE LTD."};
  Label LblPCName{*this, "LblPCName", "Computer Name :"};
  TextBox TxtPCName{*this, "TxtPCName"};
  OptionButton OptJoinWorkgroup{*this, "OptJoinWorkgroup", "Join Workgroup :", true};
  OptionButton OptJoinDomain{*this, "OptJoinDomain", "Join Domain :"};
  TextBox TxtWorkgroup{*this, "TxtWorkgroup", "KORVANE_LTD"};  // of the workgroup or the domain
  CommandButton CmdOK{*this, "CmdOK", "OK"};
  CommandButton CmdCancel{*this, "CmdCancel", "Cancel"};
};

}  // namespace discwright::forms
