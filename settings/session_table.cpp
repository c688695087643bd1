// The lines of a session file, each with the control whose value it keeps.
#include "settings/session_table.h"

namespace discwright::settings {

namespace {

using forms::FrmDiscwright;
using forms::FrmWin2KInfo;
using forms::FrmWin9xInfo;

template <auto member>
auto& Main(forms::Windows& windows) {
  return windows.main.*member;
}

template <auto member>
auto& Win2K(forms::Windows& windows) {
  return windows.win2k_info.*member;
}

template <auto member>
auto& Win9x(forms::Windows& windows) {
  return windows.win9x_info.*member;
}

using CheckBoxOf = forms::CheckBox& (*)(forms::Windows&);
using TextBoxOf = forms::TextBox& (*)(forms::Windows&);

constexpr SessionLine Plain(std::string_view literal) { return {literal}; }
constexpr SessionLine Check(std::string_view literal, CheckBoxOf box) {
  return {literal, ValueEncoding::kCheckBox, box};
}
constexpr SessionLine QuotedCheck(std::string_view literal, CheckBoxOf box) {
  return {literal, ValueEncoding::kQuotedCheckBox, box};
}
constexpr SessionLine Text(std::string_view literal, TextBoxOf box) {
  return {literal, ValueEncoding::kText, nullptr, box};
}
constexpr SessionLine QuotedText(std::string_view literal, TextBoxOf box) {
  return {literal, ValueEncoding::kQuotedText, nullptr, box};
}

}  // namespace

// Not all equals signs are in one column. The layout of the file is kept as it has always been.
constexpr std::array<SessionLine, kSessionLineCount> kSessionLines = {
    Plain("[Main]"),
    Check("BootDisks      = ", Main<&FrmDiscwright::ChkGet_Vexadisks>),
    Check("Windows2K      = ", Main<&FrmDiscwright::ChkGet_Win2k>),
    Check("Windows9x      = ", Main<&FrmDiscwright::ChkGet_Win9x>),
    Check("AdvancedTools  = ", Main<&FrmDiscwright::ChkGet_Advtools>),
    Text("ISOLocation    = ", Main<&FrmDiscwright::TxtISOLoc>),
    Check("CleanSession   = ", Main<&FrmDiscwright::ChkCleanSession>),
    Check("OptimizeISO    = ", Main<&FrmDiscwright::ChkOptimizeISO>),
    Plain(""),
    Plain("[BootDisks]"),
    Check("Use_LinkwellPlus  = ", Main<&FrmDiscwright::ChkGet_Vexanetplus>),
    Check("AcceptDrivers  = ", Main<&FrmDiscwright::ChkSelectDrivers>),
    Plain(""),
    Plain("[Win2K_Info]"),
    QuotedText("SourceDir      = ", Main<&FrmDiscwright::Txt_i386_Loc>),
    QuotedText("SP_exe         = ", Main<&FrmDiscwright::TxtSP_exe>),
    Check("In_SetupWin    = ", Main<&FrmDiscwright::ChkWin2KInfo_Assis>),
    Check("In_Unattend    = ", Main<&FrmDiscwright::ChkWin2KInfo_Unattend>),
    Check("DelLangFiles   = ", Main<&FrmDiscwright::ChkDelTree_Lang>),
    QuotedText("TemplateFile   = ", Win2K<&FrmWin2KInfo::TxtTemplate>),
    QuotedText("OwnerName      = ", Win2K<&FrmWin2KInfo::TxtOwner>),
    QuotedText("Organization   = ", Win2K<&FrmWin2KInfo::TxtOrg>),
    QuotedText("ComputerName   = ", Win2K<&FrmWin2KInfo::TxtPCName>),
    QuotedText("Workgroup      = ", Win2K<&FrmWin2KInfo::TxtWorkgroup>),
    SessionLine{"JoinDomain     = ", ValueEncoding::kJoinDomain},
    Plain(""),
    Plain("[Win9x_Info]"),
    QuotedText("SourceDir      = ", Main<&FrmDiscwright::TxtWin9x_Loc>),
    Check("In_MSBATCH     = ", Main<&FrmDiscwright::ChkWin9xInfo_MSBatch>),
    Check("In_SetupWin    = ", Main<&FrmDiscwright::ChkWin9xInfo_Assis>),
    QuotedText("OptimizedFor   = ", Win9x<&FrmWin9xInfo::TxtOSType>),
    QuotedText("OwnerName      = ", Win9x<&FrmWin9xInfo::TxtOwner>),
    QuotedText("Organization   = ", Win9x<&FrmWin9xInfo::TxtOrg>),
    QuotedText("ComputerName   = ", Win9x<&FrmWin9xInfo::TxtPCName>),
    QuotedText("Workgroup      = ", Win9x<&FrmWin9xInfo::TxtWorkgroup>),
    Plain(""),
    Plain("[Locations]"),
    QuotedCheck("VexaUtils       = ", Main<&FrmDiscwright::ChkVexaUtils>),
    QuotedText("VexaUtils_Dir   = ", Main<&FrmDiscwright::TxtUtils_Loc>),
    QuotedCheck("AddFiles       = ", Main<&FrmDiscwright::ChkAddFiles>),
    QuotedText("AddFiles_Dir   = ", Main<&FrmDiscwright::TxtAddFiles_Loc>),
    Plain(""),
    Plain("[AdvTools]"),
    Check("Add_BlueCon   = ", Main<&FrmDiscwright::ChkBCon>),
    Check("Add_ERDCmdr   = ", Main<&FrmDiscwright::ChkERDC>),
    QuotedText("BlueCon_Dir   = ", Main<&FrmDiscwright::TxtBCon>),
    QuotedText("ERDCmdr_Dir   = ", Main<&FrmDiscwright::TxtERDC>),
};

std::string_view AcceptedValues(ValueEncoding encoding) {
  switch (encoding) {
    case ValueEncoding::kCheckBox:
    case ValueEncoding::kQuotedCheckBox:
      return "0 or 1";
    case ValueEncoding::kJoinDomain:
      return "True, False or a number";
    case ValueEncoding::kText:
    case ValueEncoding::kQuotedText:
      return "any text";
    case ValueEncoding::kNone:
      break;
  }
  return "";
}

std::vector<SessionKey> SessionKeys() {
  std::vector<SessionKey> keys;
  std::string_view section;
  for (const SessionLine& line : kSessionLines) {
    if (line.literal.starts_with('[')) section = line.literal.substr(1, line.literal.size() - 2);
    if (line.encoding == ValueEncoding::kNone) continue;
    keys.push_back({section, line.literal.substr(0, line.literal.find(' ')), &line});
  }
  return keys;
}

}  // namespace discwright::settings
