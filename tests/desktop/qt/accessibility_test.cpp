// Tests of what assistive programs learn about the window: names, values, and which label belongs to which field.
#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <set>

#include "forms/all_windows.h"
#include "tests/desktop/qt/window_fixture.h"
#include "wizard/layout.h"

namespace discwright::desktop {
namespace {

class AccessibilityTest : public testing::WindowFixture {
 protected:
  // Returns the widget of any control, also of a hidden page or a closed dialog.
  QWidget& WidgetOf(const forms::Control& control) {
    QWidget* const window = static_cast<QDialog*>(control.form().window);
    for (QWidget* const widget : window->findChildren<QWidget*>(ToQt(control.name()))) {
      if (widget->window() == window) return *widget;
    }
    throw std::logic_error("no widget " + control.name());
  }
  static std::string Spoken(QWidget& widget, QAccessible::Text what = QAccessible::Name) {
    return FromQt(QAccessible::queryAccessibleInterface(&widget)->text(what));
  }
};

TEST_F(AccessibilityTest, EverythingThatTakesInput_HasANameWithoutBlanksAroundIt) {
  int count = 0;
  for (const wizard::Layout& layout : wizard::AllLayouts(program->windows)) {
    for (const forms::Control* control : wizard::ControlsOf(layout)) {
      if (!forms::TakesInput(*control) && control->name() != "TxtSummery") continue;
      const std::string name = Spoken(WidgetOf(*control));
      EXPECT_NE(name, "") << control->name();
      EXPECT_EQ(name, FromQt(ToQt(name).trimmed())) << control->name();
      EXPECT_EQ(name.find('&'), name.find("&O Blue")) << name;
      ++count;
    }
  }
  EXPECT_GE(count, 60);
}

TEST_F(AccessibilityTest, Fields_HaveTheNamesOfTheirLabels) {
  EXPECT_EQ(Spoken(Widget("Txt_i386_Loc")), "Location of Windows Setup Files");
  EXPECT_EQ(Spoken(Widget("TxtPass2")), "Confirm Password");
  EXPECT_EQ(Spoken(Widget("TxtSummery")), "Ready to create ISO file");
  EXPECT_EQ(Spoken(WidgetOf(program->windows.win9x_info.TxtOSType)), "Optimized for :");
  EXPECT_EQ(Spoken(Widget("ChkVexaUtils")), "Vexa Utilities");
  EXPECT_EQ(Spoken(Widget("CmdNext")), "Next >");
}

TEST_F(AccessibilityTest, BrowseButtons_SayWhichFieldTheyFill) {
  std::set<std::string> descriptions;
  for (const char* button : {"CmdBrw_i386_loc", "CmdBrw_spexe", "CmdBrw_ERDC", "CmdBrw_BCon"}) {
    descriptions.insert(Spoken(Widget(button), QAccessible::Description));
  }
  EXPECT_EQ(descriptions.size(), 4U);
  EXPECT_EQ(descriptions.count(""), 0U);
}

TEST_F(AccessibilityTest, Labels_AreTheBuddiesOfTheirFields) {
  int count = 0;
  for (const wizard::Layout& layout : wizard::AllLayouts(program->windows)) {
    for (const forms::Control* control : wizard::ControlsOf(layout)) {
      const auto* field = dynamic_cast<const forms::TextBox*>(control);
      if (field == nullptr) continue;
      const auto* label = dynamic_cast<const QLabel*>(&WidgetOf(*field->label));
      ASSERT_NE(label, nullptr) << field->name();
      EXPECT_EQ(label->buddy(), &WidgetOf(*field)) << field->name();
      ++count;
    }
  }
  EXPECT_GE(count, 20);
}

TEST_F(AccessibilityTest, Passwords_AreMasked) {
  GoTo(7);
  Click("ChkPassProtect");
  for (const char* name : {"TxtPass1", "TxtPass2"}) {
    WriteInto(name, "secret");
    EXPECT_EQ(The<QLineEdit>(name).echoMode(), QLineEdit::Password);
    EXPECT_NE(FromQt(The<QLineEdit>(name).displayText()), "secret");
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&Widget(name))->state().passwordEdit);
  }
  EXPECT_EQ(The<QLineEdit>("TxtISOLoc").echoMode(), QLineEdit::Normal);
}

TEST_F(AccessibilityTest, Bar_HasANameAndSpeaksItsValue) {
  records().BarSub_Step.visible = true;
  records().BarSub_Step.value = 25;
  QWidget& bar = Widget("BarSub_Step");
  EXPECT_NE(Spoken(bar), "");
  QAccessibleValueInterface* const value = QAccessible::queryAccessibleInterface(&bar)->valueInterface();
  ASSERT_NE(value, nullptr);
  const double range = value->maximumValue().toDouble() - value->minimumValue().toDouble();
  EXPECT_DOUBLE_EQ((value->currentValue().toDouble() - value->minimumValue().toDouble()) / range, 0.25);
  EXPECT_EQ(FromQt(The<QProgressBar>("BarSub_Step").text()), "25%");
}

TEST_F(AccessibilityTest, Bar_ShowsAnyRangeAndStaysInIt) {
  auto& bar = records().BarSub_Step;
  const auto percent = [this] { return FromQt(The<QProgressBar>("BarSub_Step").text()); };
  bar.max = std::int64_t{1} << 40;
  bar.value = std::int64_t{1} << 39;
  EXPECT_EQ(percent(), "50%");
  bar.value = std::int64_t{1} << 41;
  EXPECT_EQ(percent(), "100%");
  bar.value = -5;
  EXPECT_EQ(percent(), "0%");
  bar.max = 0;
  EXPECT_EQ(percent(), "0%");
}

TEST_F(AccessibilityTest, Marks_SayWhatTheyMean) {
  EXPECT_EQ(Spoken(Widget("LblRight2")), "");
  records().LblRight2.caption = forms::kTick;
  EXPECT_EQ(Spoken(Widget("LblRight2")), "done");
  records().LblRight2.caption = forms::kCross;
  EXPECT_EQ(Spoken(Widget("LblRight2")), "left out");
}

TEST_F(AccessibilityTest, ChangedLabel_SpeaksItsNewText) {
  records().LblWin2KOSVer.caption = "An edition & its service pack";
  EXPECT_EQ(Spoken(Widget("LblWin2KOSVer")), "An edition & its service pack");
  EXPECT_EQ(ShownText("LblWin2KOSVer"), "An edition & its service pack");
}

TEST_F(AccessibilityTest, Captions_AreShownAsTheyAreWrittenWithTheirAccessKeysMarked) {
  for (const wizard::Layout& layout : wizard::AllLayouts(program->windows)) {
    for (const forms::Control* control : wizard::ControlsOf(layout)) {
      const auto* captioned = dynamic_cast<const forms::Captioned*>(control);
      const auto* button = dynamic_cast<const QAbstractButton*>(&WidgetOf(*control));
      if (captioned == nullptr || button == nullptr) continue;
      QString text = button->text().replace("&&", "<and>");
      const qsizetype mark = text.indexOf('&');
      const char key = forms::AccessKey(*control);
      EXPECT_EQ(mark < 0 ? 0 : text.at(mark + 1).toLatin1(), key) << control->name();
      text = text.remove('&').replace("<and>", "&");
      EXPECT_EQ(FromQt(text), forms::ShownText(*captioned));
    }
  }
}

TEST_F(AccessibilityTest, CutText_IsWholeInTheToolTip) {
  GoTo(8);
  records().FraMain[8].visible = false;
  records().FraMain[10].visible = true;
  const std::string text = "C:\\" + std::string(400, 'x') + "\\end.txt";
  records().LblSub_Step.caption = text;
  main().grab();
  EXPECT_EQ(FromQt(Widget("LblSub_Step").toolTip()), text);
  records().LblSub_Step.caption = "short";
  main().grab();
  EXPECT_EQ(FromQt(Widget("LblSub_Step").toolTip()), "");
}

}  // namespace
}  // namespace discwright::desktop
