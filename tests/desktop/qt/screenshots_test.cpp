// Makes pictures of every page and dialog, in light and in dark colours, below the folder of the tests' build.
#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPalette>
#include <QPixmap>
#include <algorithm>
#include <set>

#include "tests/desktop/qt/window_fixture.h"
#include "wizard/report.h"
#include "wizard/summary.h"

namespace discwright::desktop {
namespace {

QPalette LightColours() { return {QColor(0xEF, 0xEF, 0xEF)}; }

QPalette DarkColours() {
  const QColor window(0x2B, 0x2B, 0x2E);
  const QColor text(0xEE, 0xEE, 0xEE);
  QPalette palette(QColor(0x3A, 0x3A, 0x3E), window);
  palette.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x20));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Active, role, text);
    palette.setColor(QPalette::Inactive, role, text);
    palette.setColor(QPalette::Disabled, role, QColor(0x88, 0x88, 0x88));
  }
  palette.setColor(QPalette::Link, QColor(0x8A, 0xB4, 0xF8));
  return palette;
}

struct Picture {
  std::string name;
  QImage image;
};

class ScreenshotsTest : public testing::WindowFixture {
 protected:
  ~ScreenshotsTest() override { QApplication::setPalette(before_); }

  void FillIn() {
    host.shows_slashes = true;
    Choose(true, true, true);
    records().Txt_i386_Loc.text = "/media/ann/WXPHOME_EN/I386";
    records().TxtSP_exe.text = "/home/ann/Downloads/xpsp3_en_x86.exe";
    records().TxtWin9x_Loc.text = "/media/ann/WIN98SE/WIN98";
    records().TxtERDC.text = "/media/ann/ERD2003/";
    records().TxtBCon.text = "/media/ann/BLUECON/";
    records().TxtUtils_Loc.text = "/home/ann/rescue/vexa_utilities";
    records().TxtAddFiles_Loc.text = "/home/ann/rescue/Additional Files";
    records().TxtISOLoc.text = "/home/ann/vexacd.iso";
    records().TxtPass1.text = "a secret";
    records().TxtPass2.text = "a secret";
    for (forms::CheckBox* box : {&records().ChkGet_Vexanetplus, &records().ChkSlipstream, &records().ChkERDC,
                                 &records().ChkVexaUtils, &records().ChkPassProtect, &records().ChkWin2KInfo_Assis,
                                 &records().ChkWin9xInfo_MSBatch, &records().ChkOptimizeISO}) {
      box->value = 1;
    }
    records().TxtSummery.text = wizard::GenerateSummery(records());
    FillProgressIn();
    FillReportIn();
  }
  void FillReportIn() {
    steps::BuildResult& result = program->context.result;
    result = {steps::BuildEnd::kMadeWithNotes, "/home/ann/vexacd.iso", 644'245'094};
    result.sha256 = "9f86d081884c7d659a2feaa0c55ad015a3bf4f1b2b0b822cd15d6c15b0f00a08";
    program->notes.Add("/home/ann/rescue/Additional Files/.git",
                       "not copied: folders whose names begin with a dot are skipped");
    program->notes.Remark("/home/ann/rescue/Additional Files/autorun.inf",
                          "replaces the file of the same name that is already on the CD");
    wizard::ShowReport(program->context);
  }
  void FillProgressIn() {
    records().LblRight1.caption = forms::kTick;
    records().LblRight2.caption = forms::kTick;
    records().LblRight3.caption = forms::kCross;
    records().LblMsg4.bold = true;
    records().LblSub_Step.caption = "Copying : /home/ann/rescue/vexa_utilities/disk/partition_editor.exe";
    records().BarSub_Step.visible = true;
    records().BarSub_Step.value = 62;
  }
  void Show(int page) {
    for (forms::Frame& frame : records().FraMain) frame.visible = frame.index() == page;
    records().CmdBack.enabled = page > 0 && page < 9;
    records().CmdNext.visible = page < 8;
    records().CmdFinish.visible = page >= 8;
    records().CmdFinish.enabled = page != 10;
    records().CmdCancel.enabled = page != 9;
    Settle();
  }
  static Picture Take(QWidget& window, const std::string& name) {
    const QImage image = window.grab().toImage();
    QDir().mkpath(SCREENSHOTS);
    EXPECT_TRUE(image.save(QDir(SCREENSHOTS).filePath(ToQt(name) + ".png"))) << name;
    EXPECT_EQ(image.size(), window.size() * window.devicePixelRatio()) << name;
    return {name, image};
  }
  // Takes the pictures of all pages and of both dialogs.
  std::vector<Picture> TakeAll(const std::string& colours) {
    Start();
    FillIn();
    std::vector<Picture> pictures;
    for (int page = 0; page < static_cast<int>(forms::kPageCount); ++page) {
      Show(page);
      pictures.push_back(Take(main(), "page" + std::to_string(page) + "_" + colours));
    }
    for (forms::Form* form : {static_cast<forms::Form*>(&program->windows.win2k_info),
                              static_cast<forms::Form*>(&program->windows.win9x_info)}) {
      watch.InNext([&](QDialog& dialog) {
        pictures.push_back(Take(dialog, form->name() + "_" + colours));
        dialog.close();
      });
      form->visible = true;
      Settle();
    }
    return pictures;
  }

 private:
  QPalette before_ = QApplication::palette();
};

// Of every 7th pixel in both directions.
double Lightness(const QImage& image) {
  double sum = 0;
  int count = 0;
  for (int y = 0; y < image.height(); y += 7) {
    for (int x = 0; x < image.width(); x += 7, ++count) sum += image.pixelColor(x, y).lightnessF();
  }
  return sum / count;
}

std::size_t Colours(const QImage& image) {
  std::set<QRgb> colours;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) colours.insert(image.pixel(x, y));
  }
  return colours.size();
}

// The share of the pixels in which two pictures of one size differ.
double Difference(const QImage& a, const QImage& b) {
  int count = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) count += a.pixel(x, y) == b.pixel(x, y) ? 0 : 1;
  }
  return static_cast<double>(count) / (a.width() * a.height());
}

TEST_F(ScreenshotsTest, EveryPageAndDialog_IsDrawnInLightAndInDarkColours) {
  QApplication::setPalette(LightColours());
  const std::vector<Picture> light = TakeAll("light");
  QApplication::setPalette(DarkColours());
  const std::vector<Picture> dark = TakeAll("dark");
  ASSERT_EQ(light.size(), 13U);
  ASSERT_EQ(dark.size(), light.size());
  for (std::size_t i = 0; i < light.size(); ++i) {
    SCOPED_TRACE(light[i].name);
    EXPECT_EQ(dark[i].image.size(), light[i].image.size());
    EXPECT_GT(Colours(light[i].image), 20U);
    EXPECT_GT(Lightness(light[i].image), 0.5);
    EXPECT_LT(Lightness(dark[i].image), Lightness(light[i].image) - 0.3);
    const bool follows_a_page = i > 0 && i < forms::kPageCount;
    EXPECT_TRUE(!follows_a_page || Difference(light[i].image, light[i - 1].image) > 0.005);
  }
}

// The text of a label must stand out from the page behind it.
TEST_F(ScreenshotsTest, TextStandsOutInBothColours) {
  for (const QPalette& palette : {LightColours(), DarkColours()}) {
    QApplication::setPalette(palette);
    Start();
    GoTo(1);
    for (const char* name : {"LblHeadContents", "ChkGet_Win2k", "CmdNext"}) {
      const QRect place(Widget(name).mapTo(&main(), QPoint(0, 0)), Widget(name).size());
      const QImage image = main().grab(place).toImage();
      double darkest = 1;
      double lightest = 0;
      for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
          darkest = std::min<double>(darkest, image.pixelColor(x, y).lightnessF());
          lightest = std::max<double>(lightest, image.pixelColor(x, y).lightnessF());
        }
      }
      EXPECT_GT(lightest - darkest, 0.5) << name;
    }
  }
}

}  // namespace
}  // namespace discwright::desktop
