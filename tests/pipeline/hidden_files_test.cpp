// Tests of the search for files that nobody will see on the CD.
#include "pipeline/hidden_files.h"

#include "tests/pipeline/pipeline_fixture.h"

namespace discwright::pipeline {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class HiddenFiles : public discwright::testing::PipelineFixture {
 protected:
  void AddToCd(const std::string& path) { host.AddLeftFile("C:\\Discwright\\vexacd\\" + path, "x"); }
};

TEST_F(HiddenFiles, LoaderOfTheCd_IsNotNoted) {
  AddToCd("boot\\loader.bin");
  AddToCd("LOADER.BIN");
  AddToCd("docs\\loader.bin.txt");
  NoteHiddenFiles(context);
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(HiddenFiles, FilesAndFoldersWithTheNamesOfTheBootFiles_AreNoted) {
  AddToCd("boot\\boot.catalog");
  AddToCd("vexa\\tool\\loader.bin");
  AddToCd("work\\boot.catalog\\a.txt");
  NoteHiddenFiles(context);
  const std::string cd = "C:\\Discwright\\vexacd\\";
  EXPECT_THAT(NoteLines(), ElementsAre(HasSubstr(cd + "boot\\boot.catalog: will not be visible on the CD"),
                                       HasSubstr(cd + "vexa\\tool\\loader.bin: will not be visible on the CD"),
                                       HasSubstr(cd + "work\\boot.catalog: will not be visible on the CD")));
  EXPECT_THAT(NoteLines()[1], HasSubstr("rename your file "));
  EXPECT_THAT(NoteLines()[2], HasSubstr("rename your folder "));
}

TEST_F(HiddenFiles, WholeBuild_NotesThemBeforeTheMastering) {
  main.ChkVexaUtils.value = 1;
  main.TxtUtils_Loc.text = "E:\\utils";
  host.AddFile("E:\\utils\\loader.bin", "mine");
  FinishApp(context);
  EXPECT_THAT(NoteLines(), ElementsAre(HasSubstr("C:\\Discwright\\vexacd\\vexa\\loader.bin: will not be visible")));
}

}  // namespace
}  // namespace discwright::pipeline
