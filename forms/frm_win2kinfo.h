// Describes the installation info dialog of Windows 2000/XP/2003 as data: its controls with their captions and first
// values.
#pragma once

#include "forms/control.h"

namespace discwright::forms {

struct FrmWin2KInfo : Form {
  FrmWin2KInfo() : Form("FrmWin2KInfo", "Windows 2K/XP/2003 Installation Info") {
    DlgOpen.title = "Unattended setup information file";
    DlgOpen.file_name = "unattend.txt";
    DlgOpen.filter = "Text file (*.txt; *.sif)|*.txt; *.sif";
    default_buttons = {&CmdOK};
    cancel_button = &CmdCancel;
  }

  FileDialog DlgOpen{*this, "DlgOpen"};
  Label LblTemplate{*this, "LblTemplate", "Unattended setup script file : ", {.key = 'U'}};
  TextBox TxtTemplate{*this, "TxtTemplate", LblTemplate};
  CommandButton CmdBrwUnattend{*this, "CmdBrwUnattend", "Browse ...", {.key = 'B', .beside = true}};
  Label LblOwner{*this, "LblOwner", "Owner Name :", {.key = 'O'}};
  TextBox TxtOwner{*this, "TxtOwner", LblOwner, "VexaUser", {.beside = true}};
  Label LblOrg{*this, "LblOrg", "Organization :", {.key = 'g'}};
  TextBox TxtOrg{*this, "TxtOrg", LblOrg, "KORVANE LTD.", {.beside = true}};
  Label LblPCName{*this, "LblPCName", "Computer Name :", {.key = 'C'}};
  TextBox TxtPCName{*this, "TxtPCName", LblPCName, "", {.beside = true}};
  OptionButton OptJoinWorkgroup{*this, "OptJoinWorkgroup", "Join Workgroup :", {.key = 'W'}, true};
  OptionButton OptJoinDomain{*this, "OptJoinDomain", "Join Domain :", {.key = 'D', .beside = true}};
  Label LblJoinName{*this, "LblJoinName", "Name of the workgroup or domain :", {.key = 'N'}};
  TextBox TxtWorkgroup{*this, "TxtWorkgroup", LblJoinName, "KORVANE_LTD", {.beside = true}};
  CommandButton CmdOK{*this, "CmdOK", "OK"};
  CommandButton CmdCancel{*this, "CmdCancel", "Cancel", {.beside = true}};
};

}  // namespace discwright::forms
