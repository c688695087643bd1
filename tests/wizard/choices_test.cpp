// Tests of choices by the names of controls, of the remarks on choices, and of the way to the summary.
#include "wizard/choices.h"

#include "tests/wizard/wizard_fixture.h"

namespace discwright::wizard {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::WizardFixture;

constexpr const char* kKeyFile = "C:\\Discwright\\keyfile2.txt";

class Choices : public WizardFixture {
 protected:
  // The names of the window and the control, or the sentence that says why there is none.
  std::string Named(const std::string& name) {
    const FoundControl found = FindControl(windows, name);
    if (found.control == nullptr) return found.why_not;
    EXPECT_EQ(found.why_not, "");
    return found.control->form().name() + "." + found.control->name();
  }
  std::string Make(const std::vector<Choice>& choices) { return wizard::Choose(context, choices); }
  std::vector<std::string> Remarks(const std::vector<Choice>& choices, bool session_is_own = false) {
    EXPECT_EQ(Make(choices), "");
    return RemarksOn(windows, choices, session_is_own);
  }
  std::vector<std::string> Confirm(const std::vector<Choice>& choices, bool has_session) {
    EXPECT_EQ(Make(choices), "");
    return ConfirmDialogs(context, choices, has_session);
  }
  std::string KeyFile() const { return host.Content(kKeyFile); }

  forms::FrmWin2KInfo& win2k = windows.win2k_info;
  forms::FrmWin9xInfo& win9x = windows.win9x_info;
};

TEST_F(Choices, NameOfOneControl_IsFoundInAnyLetterCase) {
  EXPECT_EQ(Named("ChkVexaUtils"), "FrmDiscwright.ChkVexaUtils");
  EXPECT_EQ(Named("chkvexautils"), "FrmDiscwright.ChkVexaUtils");
  EXPECT_EQ(Named("frmdiscwright.CHKVEXAUTILS"), "FrmDiscwright.ChkVexaUtils");
  EXPECT_EQ(Named("TxtOSType"), "FrmWin9xInfo.TxtOSType");
  EXPECT_EQ(Named("FrmWin2KInfo.TxtOwner"), "FrmWin2KInfo.TxtOwner");
  EXPECT_EQ(Named("CmdCancel"), "FrmDiscwright.CmdCancel");  // both dialogs have one, too
}

TEST_F(Choices, NameOfTwoControls_NamesBoth) {
  EXPECT_EQ(Named("TxtOwner"),
            "two windows have a control TxtOwner; write FrmWin2KInfo.TxtOwner or FrmWin9xInfo.TxtOwner");
  EXPECT_EQ(Named("txtpcname"),
            "two windows have a control txtpcname; write FrmWin2KInfo.TxtPCName or FrmWin9xInfo.TxtPCName");
}

TEST_F(Choices, MisspelledName_NamesTheControlThatIsNear) {
  EXPECT_EQ(Named("ChkVexaUtil"), "there is no control ChkVexaUtil; did you mean ChkVexaUtils (Vexa Utilities)?");
  EXPECT_EQ(Named("TxtISOLco"),
            "there is no control TxtISOLco; did you mean TxtISOLoc (Specify the Location to save the generated ISO "
            "file to:)?");
  EXPECT_EQ(Named("FrmWin9xInfo.TxtOSTyp"),
            "there is no control FrmWin9xInfo.TxtOSTyp; did you mean TxtOSType (Optimized for :)?");
  EXPECT_EQ(Named("TxtTemplat"),
            "there is no control TxtTemplat; did you mean TxtTemplate (Unattended setup script file :)?");
}

// Buttons and labels hold no choice, however near they are.
TEST_F(Choices, NameNearAButton_NamesAControlThatHoldsAChoice) {
  EXPECT_THAT(Named("CmdNexxt"), Not(HasSubstr("CmdNext")));
  EXPECT_THAT(Named("LblISOLoc2"), Not(HasSubstr("mean LblISOLoc")));
  EXPECT_THAT(Named("TxtSummary"), Not(HasSubstr("TxtSummery")));  // it is read only
}

TEST_F(Choices, KeyOfASession_NamesItsControl) {
  EXPECT_EQ(Named("optimizeiso"),
            "there is no control optimizeiso; did you mean ChkOptimizeISO (Optimize the ISO file "
            "size by encoding duplicate files)?");
  EXPECT_EQ(Named("AcceptDrivers"),
            "there is no control AcceptDrivers; did you mean ChkSelectDrivers (Accept default "
            "list of Network drivers)?");
  EXPECT_EQ(Named("ERDCmdr_Dir"),
            "there is no control ERDCmdr_Dir; did you mean TxtERDC (Specify the location of your ERD Commander CD :)?");
}

TEST_F(Choices, WordsOfACaption_NameItsControl) {
  EXPECT_EQ(Named("additional files"),
            "there is no control additional files; did you mean ChkAddFiles (Additional Files)?");
  EXPECT_EQ(Named("ConfirmPassword"), "there is no control ConfirmPassword; did you mean TxtPass2 (Confirm Password)?");
  EXPECT_EQ(Named("Org"), "there is no control Org; did you mean FrmWin2KInfo.TxtOrg (Organization :)?");
  EXPECT_EQ(Named("Owner Name"), "there is no control Owner Name; did you mean FrmWin2KInfo.TxtOwner (Owner Name :)?");
}

TEST_F(Choices, NonsensicalName_NamesNothingElse) {
  for (const std::string name :
       {"Rumpelstiltskin", "FrmWin2KInfo.Rumpelstiltskin", "e", "to", "..", ".", "FrmDiscwright."}) {
    EXPECT_EQ(Named(name), "there is no control " + name);
  }
}

TEST_F(Choices, NameOfAControl_IsTheShortestThatIsUnderstood) {
  EXPECT_EQ(NameOf(windows, main.ChkERDC), "ChkERDC");
  EXPECT_EQ(NameOf(windows, win9x.TxtOSType), "TxtOSType");
  EXPECT_EQ(NameOf(windows, win9x.TxtOwner), "FrmWin9xInfo.TxtOwner");
  EXPECT_EQ(NameOf(windows, win2k.CmdCancel), "FrmWin2KInfo.CmdCancel");
  EXPECT_EQ(NameOf(windows, main.CmdCancel), "CmdCancel");
}

TEST_F(Choices, SeveralForOneControl_TheLastOneCounts) {
  EXPECT_EQ(Make({{"TxtUtils_Loc", "S:\\first"}, {"ChkVexaUtils", "1"}, {"TxtUtils_Loc", "S:\\last"}}), "");
  EXPECT_EQ(main.TxtUtils_Loc.text.get(), "S:\\last");
  EXPECT_TRUE(main.ChkVexaUtils.checked());
}

TEST_F(Choices, WrongOne_IsReportedAndTheLaterOnesAreNotMade) {
  EXPECT_EQ(Make({{"ChkVexaUtils", "1"}, {"ChkAddFiles", "yes"}, {"ChkERDC", "1"}}),
            "ChkAddFiles: a check box takes 0 or 1 (2 for greyed)");
  EXPECT_TRUE(main.ChkVexaUtils.checked());
  EXPECT_FALSE(main.ChkERDC.checked());
  EXPECT_EQ(Make({{"OptJoinDomain", "maybe"}}), "OptJoinDomain: an option takes True or False");
  EXPECT_EQ(Make({{"TxtSummery", "x"}}), "TxtSummery: it is filled by the program and cannot be set");
  EXPECT_EQ(Make({{"CmdNext", "1"}}),
            "CmdNext: it holds no choice; only check boxes, options and text boxes can be set");
  EXPECT_EQ(Make({{"Rumpelstiltskin", "1"}}), "there is no control Rumpelstiltskin");
}

TEST_F(Choices, AnswersOfTheDialogs_StayWhenTheDialogIsLoaded) {
  host.AddFile("C:\\Discwright\\files\\inf_files\\win2k_template.inf", "[UserData]\r\nFullName=Of the template\r\n");
  host.AddFile(kKeyFile, "[Win9xInfo]\r\nOwnerName=Of the key file\r\n");
  host.current_folder = host.program_folder;  // where the key file is looked for
  EXPECT_EQ(Make({{"FrmWin2KInfo.TxtOwner", "Ann"}, {"FrmWin9xInfo.TxtOrg", "Bob's"}}), "");
  EXPECT_TRUE(win2k.loaded);
  EXPECT_TRUE(win9x.loaded);
  EXPECT_EQ(win2k.TxtOwner.text.get(), "Ann");
  EXPECT_EQ(win9x.TxtOrg.text.get(), "Bob's");
  EXPECT_EQ(win9x.TxtOwner.text.get(), "Of the key file");
}

// The position of the script among the choices does not matter.
TEST_F(Choices, ScriptOfTheirOwn_FillsTheDialogBeforeAllOtherAnswers) {
  host.AddFile("S:\\my.txt", "[UserData]\r\nFullName=Script\r\nOrgName=Script Ltd\r\nComputerName=SCRIPT\r\n");
  EXPECT_EQ(Make({{"FrmWin2KInfo.TxtOwner", "Ann"}, {"txttemplate", " \"S:\\my.txt\" "}}), "");
  EXPECT_EQ(win2k.TxtOwner.text.get(), "Ann");
  EXPECT_EQ(win2k.TxtOrg.text.get(), "Script Ltd");
  EXPECT_EQ(win2k.TxtPCName.text.get(), "SCRIPT");
  EXPECT_EQ(win2k.TxtTemplate.text.get(), " \"S:\\my.txt\" ");
}

struct Confirmation {
  const char* what;
  bool wanted;
  bool given;
  bool has_session;
  bool has_earlier;
  bool writes;
  bool remarks;
};

constexpr Confirmation kConfirmations[] = {
    {"Nothing", false, false, false, false, false, false},
    {"OnlyEarlier", false, false, false, true, false, false},
    {"OnlySession", false, false, true, false, false, false},
    {"SessionAndEarlier", false, false, true, true, false, false},
    {"Given", false, true, false, false, true, false},
    {"GivenAndEarlier", false, true, false, true, true, false},
    {"GivenAndSession", false, true, true, false, true, false},
    {"GivenSessionAndEarlier", false, true, true, true, true, false},
    {"Wanted", true, false, false, false, true, false},
    {"WantedAndEarlier", true, false, false, true, false, true},
    {"WantedAndSession", true, false, true, false, true, false},
    {"WantedSessionAndEarlier", true, false, true, true, true, false},
    {"WantedAndGiven", true, true, false, false, true, false},
    {"WantedGivenAndEarlier", true, true, false, true, true, false},
    {"WantedGivenAndSession", true, true, true, false, true, false},
    {"All", true, true, true, true, true, false},
};

class Confirmations : public Choices, public ::testing::WithParamInterface<Confirmation> {
 protected:
  void Expect(const char* dialog, const char* section, const std::string& system, forms::CheckBox& box) {
    const Confirmation& what = GetParam();
    const std::string earlier = std::string("[") + section + "]\r\nOwnerName=Earlier\r\n";
    if (what.has_earlier) host.AddFile(kKeyFile, earlier);
    if (what.wanted) box.value = 1;
    std::vector<Choice> choices;
    if (what.given) choices.push_back({std::string(dialog) + ".TxtOrg", "Given Ltd"});
    const std::vector<std::string> remarks = Confirm(choices, what.has_session);
    if (!what.writes) {
      EXPECT_EQ(KeyFile(), what.has_earlier ? earlier : "<missing>");
    } else {
      EXPECT_THAT(KeyFile(), HasSubstr(std::string("[") + section + "]\r\n"));
      EXPECT_THAT(KeyFile(), HasSubstr(what.given ? "Organization=Given Ltd\r\n" : "Organization=KORVANE LTD.\r\n"));
    }
    EXPECT_TRUE(notes.all().empty());
    if (!what.remarks) {
      EXPECT_THAT(remarks, IsEmpty());
    } else {
      EXPECT_THAT(
          remarks,
          ElementsAre(system + " Setup gets the answers of an earlier build, from C:\\Discwright\\keyfile2.txt."));
    }
  }
};

TEST_P(Confirmations, DialogOfWindows9x_IsConfirmedIfItGotNewAnswers) {
  Expect("FrmWin9xInfo", "Win9xInfo", "Windows 98/Me", main.ChkWin9xInfo_MSBatch);
}

TEST_P(Confirmations, DialogOfWindows9xForTheAssistant_IsTheSame) {
  Expect("FrmWin9xInfo", "Win9xInfo", "Windows 98/Me", main.ChkWin9xInfo_Assis);
}

TEST_P(Confirmations, DialogOfWindows2000_IsConfirmedIfItGotNewAnswers) {
  Expect("FrmWin2KInfo", "Win2KInfo", "Windows 2000/XP/2003", main.ChkWin2KInfo_Unattend);
}

TEST_P(Confirmations, DialogOfWindows2000ForTheAssistant_IsTheSame) {
  Expect("FrmWin2KInfo", "Win2KInfo", "Windows 2000/XP/2003", main.ChkWin2KInfo_Assis);
}

INSTANTIATE_TEST_SUITE_P(All, Confirmations, ::testing::ValuesIn(kConfirmations),
                         [](const auto& test) { return test.param.what; });

TEST_F(Choices, AnswersOfOneDialog_DoNotConfirmTheOther) {
  host.AddFile(kKeyFile, "[Win9xInfo]\r\nOwnerName=Earlier\r\n");
  main.ChkWin9xInfo_MSBatch.value = 1;
  main.ChkWin2KInfo_Unattend.value = 1;
  EXPECT_THAT(Confirm({{"FrmWin2KInfo.TxtOwner", "Ann"}}, false),
              ElementsAre("Windows 98/Me Setup gets the answers of an earlier build, from "
                          "C:\\Discwright\\keyfile2.txt."));
  EXPECT_THAT(KeyFile(), HasSubstr("[Win9xInfo]\r\nOwnerName=Earlier\r\n"));
  EXPECT_THAT(KeyFile(), HasSubstr("OwnerName=Ann\r\n"));
}

TEST_F(Choices, AnswersThatCannotBeWritten_AreNoted) {
  host.FailOn("WriteWholeFile", "keyfile2.txt", host::ErrorClass::kAccessDenied, "in use");
  Confirm({{"FrmWin2KInfo.TxtOwner", "Ann"}, {"FrmWin9xInfo.TxtOwner", "Bob"}}, false);
  ASSERT_EQ(notes.all().size(), 2U);
  EXPECT_EQ(notes.all()[0].place, kKeyFile);
  EXPECT_EQ(notes.all()[0].cause, "your answers for Windows 98/Me Setup could not be written: in use");
  EXPECT_EQ(notes.all()[1].cause, "your answers for Windows 2000/XP/2003 Setup could not be written: in use");
}

TEST_F(Choices, WithoutEffect_AreRemarkedOn) {
  EXPECT_THAT(Remarks({{"TxtUtils_Loc", "S:\\utils"}}),
              ElementsAre("TxtUtils_Loc has no effect, because ChkVexaUtils is 0: set ChkVexaUtils=1 to use it."));
  EXPECT_THAT(Remarks({{"TxtERDC", "T:"}}),
              ElementsAre("TxtERDC has no effect, because ChkGet_Advtools is 0: set ChkGet_Advtools=1 to use it.",
                          "TxtERDC has no effect, because ChkERDC is 0: set ChkERDC=1 to use it."));
  EXPECT_THAT(
      Remarks({{"FrmWin9xInfo.TxtOwner", "Ann"}}),
      ElementsAre("FrmWin9xInfo.TxtOwner has no effect, because ChkGet_Win9x is 0: set ChkGet_Win9x=1 to use it.",
                  "FrmWin9xInfo.TxtOwner has no effect, because ChkWin9xInfo_Assis and ChkWin9xInfo_MSBatch are 0: set "
                  "one of them to 1 to use it."));
}

TEST_F(Choices, WithEffectOrEmpty_AreNotRemarkedOn) {
  EXPECT_THAT(Remarks({{"TxtUtils_Loc", "S:\\utils"}, {"ChkVexaUtils", "1"}}), IsEmpty());
  EXPECT_THAT(Remarks({{"ChkERDC", "0"}, {"TxtERDC", ""}, {"OptJoinDomain", "False"}, {"ChkHotfix", "0"}}), IsEmpty());
}

TEST_F(Choices, GivenTwice_AreRemarkedOnOnce) {
  EXPECT_THAT(Remarks({{"ChkERDC", "1"}, {"chkerdc", "1"}, {"FrmDiscwright.ChkERDC", "1"}}, true),
              ElementsAre("ChkERDC has no effect, because ChkGet_Advtools is 0: set ChkGet_Advtools=1 to use it."));
}

TEST_F(Choices, BootDisksThatAreToBeLeftOut_AreRemarkedOn) {
  EXPECT_THAT(Remarks({{"chkget_vexadisks", "0"}}),
              ElementsAre("ChkGet_Vexadisks stays 1: the boot disks are part of every CD."));
  EXPECT_TRUE(main.ChkGet_Vexadisks.checked());
  EXPECT_THAT(Remarks({{"ChkGet_Vexadisks", "1"}}), IsEmpty());
}

TEST_F(Choices, MissingFeatures_AreRemarkedOn) {
  EXPECT_THAT(Remarks({{"ChkGet_Win2k", "1"}, {"ChkHotfix", "1"}}),
              ElementsAre("ChkHotfix has no effect, because this version integrates no hotfixes."));
  EXPECT_THAT(Remarks({{"ChkGet_Win2k", "1"}, {"ChkWin2KInfo_Unattend", "1"}, {"OptJoinDomain", "True"}}),
              ElementsAre("OptJoinDomain has no effect, because Setup gets the name as that of a workgroup."));
}

TEST_F(Choices, ToolsWithoutATool_AreRemarkedOn) {
  EXPECT_THAT(Remarks({{"ChkGet_Advtools", "1"}}),
              ElementsAre("ChkGet_Advtools is 1, but ChkERDC and ChkBCon are 0: no tool is added to the CD."));
  EXPECT_THAT(Remarks({{"ChkERDC", "1"}}), IsEmpty());
  main.ChkERDC.value = 0;
  EXPECT_THAT(Remarks({{"ChkBCon", "1"}}), IsEmpty());
}

TEST_F(Choices, ProtectionWithoutAPassword_IsRemarkedOn) {
  EXPECT_THAT(Remarks({{"ChkPassProtect", "1"}}),
              ElementsAre("ChkPassProtect is 1, but no password was given: the boot menu accepts an empty one."));
  main.TxtPass2.text = "secret";
  EXPECT_THAT(Remarks({{"ChkPassProtect", "1"}}), IsEmpty());
}

TEST_F(Choices, NamesThatSetupRefuses_AreRemarkedOnWhereTheyAreWanted) {
  const std::vector<Choice> names = {{"FrmWin9xInfo.TxtPCName", "old pc"},
                                     {"FrmWin9xInfo.TxtWorkgroup", "work group"},
                                     {"FrmWin2KInfo.TxtPCName", "12345"},
                                     {"FrmWin2KInfo.TxtWorkgroup", "a?b"}};
  const std::vector<Choice> wanted = {
      {"ChkGet_Win9x", "1"}, {"ChkWin9xInfo_Assis", "1"}, {"ChkGet_Win2k", "1"}, {"ChkWin2KInfo_Unattend", "1"}};
  EXPECT_EQ(Make(names), "");
  EXPECT_THAT(RemarksOn(windows, {}, true), IsEmpty());
  EXPECT_THAT(Remarks(wanted),
              ElementsAre("FrmWin9xInfo.TxtPCName: the computer name 'old pc' contains a blank",
                          "FrmWin9xInfo.TxtWorkgroup: the workgroup name 'work group' contains a blank",
                          "FrmWin2KInfo.TxtPCName: the computer name '12345' consists of digits only, which Windows "
                          "2000 and later refuse",
                          "FrmWin2KInfo.TxtWorkgroup: the workgroup name 'a?b' contains a character that Windows Setup "
                          "refuses: ?"));
}

TEST_F(Choices, BoxesOfTheRunsOwnSession_AreRemarkedOnAsWell) {
  main.ChkERDC.value = 1;
  main.ChkWin9xInfo_MSBatch.value = 1;
  main.ChkDelTree_Lang.value = 1;
  EXPECT_THAT(RemarksOn(windows, {}, false), IsEmpty());
  EXPECT_THAT(
      RemarksOn(windows, {}, true),
      ElementsAre("ChkDelTree_Lang has no effect, because ChkGet_Win2k is 0: set ChkGet_Win2k=1 to use it.",
                  "ChkWin9xInfo_MSBatch has no effect, because ChkGet_Win9x is 0: set ChkGet_Win9x=1 to use it.",
                  "ChkERDC has no effect, because ChkGet_Advtools is 0: set ChkGet_Advtools=1 to use it."));
}

TEST_F(Choices, NothingChosen_NothingIsRemarkedOn) { EXPECT_THAT(RemarksOn(windows, {}, true), IsEmpty()); }

TEST_F(Choices, WayToTheSummary_GoesThroughWhenEveryPageAccepts) {
  host.AddFolder("C:\\out");
  main.TxtISOLoc.text = "C:\\out\\Rescue.iso";
  WizardFixture::Choose(true, true, true);
  StartOn(0);
  EXPECT_TRUE(WalkToTheSummary(context));
  EXPECT_EQ(main.Step, 8);
  EXPECT_TRUE(main.CmdFinish.visible);
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(Choices, WayToTheSummary_EndsOnThePageThatRefuses) {
  main.ChkVexaUtils.value = 1;
  main.TxtUtils_Loc.text = "S:\\missing";
  StartOn(0);
  EXPECT_FALSE(WalkToTheSummary(context));
  EXPECT_EQ(main.Step, 6);
  EXPECT_EQ(user.messages.size(), 1U);
}

TEST_F(Choices, WayToTheSummary_EndsWhenTheWizardIsClosed) {
  main.visible = false;
  StartOn(0);
  EXPECT_FALSE(WalkToTheSummary(context));
  EXPECT_EQ(main.Step, 0);
}

}  // namespace
}  // namespace discwright::wizard
