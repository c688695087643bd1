// Tests of the recognition of Windows 2000/XP setup CDs.
#include "integration/source_identification.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "tests/support/fake_host.h"

namespace discwright::integration {
namespace {

using ::testing::ElementsAre;

class IdentifyWinVerTest : public ::testing::Test {
 protected:
  // The caption for a CD with these files in its root.
  std::string Identify(const std::vector<std::string>& tag_files) {
    host.AddFolder("D:");
    for (const std::string& tag_file : tag_files) host.AddFile("D:\\" + tag_file, "Windows");
    IdentifyWinVer(main, "D:", numbers[0], numbers[1], numbers[2]);
    return main.LblWin2KOSVer.caption;
  }

  testing::FakeHost host;
  forms::FrmDiscwright main;
  std::array<std::int16_t, 3> numbers = {77, 78, 79};  // build, major, minor
};

TEST_F(IdentifyWinVerTest, NoTagFiles_IsUnknownAndKeepsTheNumbers) {
  EXPECT_EQ(Identify({"SETUP.EXE"}), "Unknown Windows Version");
  EXPECT_THAT(numbers, ElementsAre(77, 78, 79));
}

TEST_F(IdentifyWinVerTest, ServicePackTagsWithoutEdition_AreUnknown) {
  EXPECT_EQ(Identify({"WIN51IP.SP2", "CDROMSP4.TST"}), "Unknown Windows Version");
  EXPECT_THAT(numbers, ElementsAre(77, 78, 79));
}

TEST_F(IdentifyWinVerTest, TagThatIsAFolder_DoesNotCount) {
  host.AddFolder("D:\\WIN51IP");
  EXPECT_EQ(Identify({}), "Unknown Windows Version");
}

TEST_F(IdentifyWinVerTest, TagInOtherLetterCase_Counts) {
  EXPECT_EQ(Identify({"win51ip"}), "Microsoft Windows XP Professional Edition");
}

TEST_F(IdentifyWinVerTest, EmptySource_LooksInTheRootFolder) {
  IdentifyWinVer(main, "", numbers[0], numbers[1], numbers[2]);
  EXPECT_EQ(main.LblWin2KOSVer.caption.get(), "Unknown Windows Version");
}

struct Verdict {
  std::vector<std::string> tag_files;
  std::string caption;
  std::array<std::int16_t, 3> numbers;
};

class IdentifyWinVerTable : public IdentifyWinVerTest, public ::testing::WithParamInterface<Verdict> {};

TEST_P(IdentifyWinVerTable, TagFiles_GiveCaptionAndNumbers) {
  EXPECT_EQ(Identify(GetParam().tag_files), GetParam().caption);
  EXPECT_EQ(numbers, GetParam().numbers);
}

constexpr std::array<std::int16_t, 3> kXp = {2600, 5, 1};
constexpr std::array<std::int16_t, 3> k2000 = {2195, 5, 0};

INSTANTIATE_TEST_SUITE_P(Editions, IdentifyWinVerTable,
                         ::testing::Values(Verdict{{"WIN51IP"}, "Microsoft Windows XP Professional Edition", kXp},
                                           Verdict{{"WIN51IC"}, "Microsoft Windows XP Home Edition", kXp},
                                           Verdict{{"CDROM_IP.5"}, "Microsoft Windows 2000 Professional", k2000},
                                           Verdict{{"CDROM_IS.5"}, "Microsoft Windows 2000 Server", k2000},
                                           Verdict{{"CDROM_IA.5"}, "Microsoft Windows 2000 Advanced Server", k2000}));

INSTANTIATE_TEST_SUITE_P(
    SeveralEditionsTheLastOfTheTableWins, IdentifyWinVerTable,
    ::testing::Values(Verdict{{"WIN51IP", "WIN51IC"}, "Microsoft Windows XP Home Edition", kXp},
                      Verdict{{"CDROM_IP.5", "CDROM_IS.5"}, "Microsoft Windows 2000 Server", k2000},
                      Verdict{{"CDROM_IA.5", "CDROM_IP.5"}, "Microsoft Windows 2000 Advanced Server", k2000}));

INSTANTIATE_TEST_SUITE_P(
    ServicePacks, IdentifyWinVerTable,
    ::testing::Values(Verdict{{"WIN51IP", "WIN51IP.SP1"}, "Microsoft Windows XP Professional Edition SP1", kXp},
                      Verdict{{"WIN51IP", "WIN51IP.SP2"}, "Microsoft Windows XP Professional Edition SP2", kXp},
                      Verdict{{"WIN51IP", "WIN51IP.SP3"}, "Microsoft Windows XP Professional Edition SP3", kXp},
                      Verdict{{"CDROM_IP.5", "CDROM_SP.TST"}, "Microsoft Windows 2000 Professional SP1", k2000},
                      Verdict{{"CDROM_IP.5", "CDROMSP2.TST"}, "Microsoft Windows 2000 Professional SP2", k2000},
                      Verdict{{"CDROM_IS.5", "CDROMSP3.TST"}, "Microsoft Windows 2000 Server SP3", k2000},
                      Verdict{{"CDROM_IA.5", "CDROMSP4.TST"}, "Microsoft Windows 2000 Advanced Server SP4", k2000},
                      Verdict{{"CDROM_IP.5", "CDROMSP5.TST"}, "Microsoft Windows 2000 Professional SP5", k2000}));

INSTANTIATE_TEST_SUITE_P(SeveralServicePacksTheHighestWins, IdentifyWinVerTable,
                         ::testing::Values(Verdict{{"WIN51IP", "WIN51IP.SP2", "WIN51IP.SP1"},
                                                   "Microsoft Windows XP Professional Edition SP2",
                                                   kXp},
                                           Verdict{{"CDROM_IP.5", "CDROM_SP.TST", "CDROMSP2.TST", "CDROMSP4.TST"},
                                                   "Microsoft Windows 2000 Professional SP4",
                                                   k2000}));

// Only the tag files of the Professional edition are examined, so a Home Edition has no service pack.
INSTANTIATE_TEST_SUITE_P(HomeEditionHasNoServicePack, IdentifyWinVerTable,
                         ::testing::Values(Verdict{
                             {"WIN51IC", "WIN51IC.SP2"}, "Microsoft Windows XP Home Edition", kXp}));

INSTANTIATE_TEST_SUITE_P(
    ServicePackOfTheOtherFamilyIsIgnored, IdentifyWinVerTable,
    ::testing::Values(Verdict{{"WIN51IP", "CDROMSP4.TST"}, "Microsoft Windows XP Professional Edition", kXp},
                      Verdict{{"CDROM_IP.5", "WIN51IP.SP2"}, "Microsoft Windows 2000 Professional", k2000}));

// The caption is replaced, but a service pack of Windows XP still keeps that of Windows 2000 from being shown.
INSTANTIATE_TEST_SUITE_P(
    BothFamiliesGiveWindows2000, IdentifyWinVerTable,
    ::testing::Values(
        Verdict{{"WIN51IP", "CDROM_IP.5"}, "Microsoft Windows 2000 Professional", k2000},
        Verdict{{"WIN51IP", "WIN51IP.SP2", "CDROM_IP.5"}, "Microsoft Windows 2000 Professional", k2000},
        Verdict{{"WIN51IP", "CDROM_IP.5", "CDROMSP4.TST"}, "Microsoft Windows 2000 Professional SP4", k2000},
        Verdict{
            {"WIN51IP", "WIN51IP.SP2", "CDROM_IP.5", "CDROMSP4.TST"}, "Microsoft Windows 2000 Professional", k2000}));

}  // namespace
}  // namespace discwright::integration
