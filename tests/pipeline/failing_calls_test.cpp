// Makes each call of the host fail once in a whole build, for both copy engines. A build that says nothing must have
// made the same CD as an undisturbed one.
#include <map>
#include <memory>

#include "pipeline/build_driver.h"
#include "tests/pipeline/pipeline_fixture.h"

namespace discwright::pipeline {
namespace {

constexpr int kNtFamily = 2;
constexpr int kWindows9x = 1;

// One build with everything chosen, in a program folder that still has the workspace of an earlier build.
class Build : public discwright::testing::PipelineFixture {
 public:
  explicit Build(int platform_id) {
    host.platform_id = platform_id;
    AddProgramFolder();
    AddSources();
    Choose();
  }

  // Makes the call with this number fail; -1 stands for no call.
  void RunWithFailure(int number) {
    host.FailCall(number);
    result_ = FinishApp(context);
  }

  const std::string& FailedCall() const { return host.FailedCall(); }
  steps::BuildEnd End() const { return result_.end; }
  bool HasSaidWhy() const {
    return result_.end == steps::BuildEnd::kMadeWithNotes ? !notes.all().empty() : !result_.why.empty();
  }

  // The content of every file on the CD, by its path.
  std::map<std::string, std::string> Cd() const {
    std::map<std::string, std::string> files;
    for (const std::string& file : host.Files()) {
      if (file.starts_with("C:\\Discwright\\vexacd\\")) files[file] = host.Content(file);
    }
    return files;
  }

 private:
  void TestBody() override {}

  void AddProgramFolder() {
    const std::string folder = "C:\\Discwright\\";
    for (const char* sector : {"w2ksect.bin", "erdc.bin", "oobc.bin"}) {
      host.AddFile(folder + "files\\bootsect\\" + sector, "I386");
    }
    host.AddFile(folder + "files\\vexacd\\boot\\scripts\\main.cds",
                 "Set PasswordRequest=0\r\nSet PasswordString=\"\"\r\n");
    host.AddFile(folder + "files\\inf_files\\win2k_template.inf", "[UserData]\r\nFullName=x\r\n");
    host.AddFile(folder + "files\\inf_files\\win98_template.inf", "[NameAndOrg]\r\nName=98\r\n");
    host.AddFile(folder + "files\\inf_files\\winme_template.inf", "[NameAndOrg]\r\nName=Me\r\n");
    host.AddFile(folder + "keyfile2.txt",
                 "[Win2KInfo]\r\nOwnerName=Ann\r\nComputerName=PC\r\n[Win9xInfo]\r\nOwnerName=Bob\r\n");
    host.AddFile(folder + "keyfile.txt", "[Win9xInfo]\r\nOptimizedFor=Microsoft Windows 98\r\n");
    host.AddLeftFile(folder + "vexacd\\WINSETUP\\OLD.TXT", "of an earlier CD", true);
    host.AddLeftFile(folder + "advtemp\\I386\\OLD.TXT", "of an earlier CD");
  }

  void AddSources() {
    host.AddFile("D:\\I386\\SETUPLDR.BIN", "i386 of Windows");
    host.AddFile("D:\\I386\\LANG\\KOR\\FONT.TT_", "font");
    host.AddFile("D:\\WIN51IP", "tag");
    host.AddFile("D:\\98\\BASE4.CAB", "cabinet");
    for (const char* tool : {"E:\\erd", "E:\\bluecon"}) {
      host.AddFile(std::string(tool) + "\\I386\\SETUPLDR.BIN", "i386");
      host.AddFile(std::string(tool) + "\\I386\\TXTSETUP.SIF", "i386");
      host.AddFile(std::string(tool) + "\\I386\\FROM.TXT", tool);
    }
    host.AddFile("D:\\tools\\docs\\probe.txt", "probe");
    host.AddFile("D:\\more\\music\\song.mid", "song");
  }

  void Choose() {
    for (forms::CheckBox* choice : {&main.ChkGet_Win2k, &main.ChkGet_Win9x, &main.ChkGet_Advtools, &main.ChkERDC,
                                    &main.ChkBCon, &main.ChkVexaUtils, &main.ChkAddFiles, &main.ChkPassProtect,
                                    &main.ChkDelTree_Lang, &main.ChkWin2KInfo_Unattend, &main.ChkWin9xInfo_MSBatch}) {
      choice->value = 1;
    }
    main.ChkCleanSession.value = 0;
    main.Txt_i386_Loc.text = "D:\\I386";
    main.TxtWin9x_Loc.text = "D:\\98";
    main.TxtERDC.text = "E:\\erd";
    main.TxtBCon.text = "E:\\bluecon";
    main.TxtUtils_Loc.text = "D:\\tools";
    main.TxtAddFiles_Loc.text = "D:\\more";
    main.TxtPass1.text = "secret";
    main.TxtPass2.text = "secret";
    context.wants_digest = false;
  }

  steps::BuildResult result_;
};

class FailingCalls : public ::testing::TestWithParam<int> {};

TEST_P(FailingCalls, EachOne_IsReportedOrChangesNothingOnTheCd) {
  std::map<std::string, std::string> expected;
  {
    Build undisturbed(GetParam());
    undisturbed.RunWithFailure(-1);
    ASSERT_EQ(undisturbed.End(), steps::BuildEnd::kMade);
    expected = undisturbed.Cd();
    ASSERT_GT(expected.size(), 15U);
  }
  int number = 0;
  for (;; ++number) {
    Build build(GetParam());
    build.RunWithFailure(number);
    if (build.FailedCall().empty()) break;
    SCOPED_TRACE("call " + std::to_string(number) + ": " + build.FailedCall());
    if (build.End() == steps::BuildEnd::kMade) {
      EXPECT_EQ(build.Cd(), expected);
    } else {
      EXPECT_TRUE(build.HasSaidWhy());
    }
  }
  EXPECT_GT(number, 200);
}

INSTANTIATE_TEST_SUITE_P(BothEngines, FailingCalls, ::testing::Values(kNtFamily, kWindows9x));

}  // namespace
}  // namespace discwright::pipeline
