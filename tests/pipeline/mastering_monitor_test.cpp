// Tests of the label and the bar after each kind of mastering output.
#include <gtest/gtest.h>

#include "pipeline/mastering.h"

namespace discwright::pipeline {
namespace {

class MasteringMonitor : public ::testing::Test {
 protected:
  MasteringMonitor() { main.LblSub_Step.caption = "before"; }
  std::string LabelAfter(std::string_view piece) {
    ShowMasteringOutput(main, piece);
    return main.LblSub_Step.caption;
  }
  forms::FrmDiscwright main;
};

TEST_F(MasteringMonitor, DigestAndDuplicateLines_AreShown) {
  EXPECT_EQ(LabelAfter("  Calculating MD5 digests ...\n"), "Calculating MD5 digests");
  EXPECT_EQ(LabelAfter("Finding duplicate files\n"), "Finding duplicate files");
}

TEST_F(MasteringMonitor, OneScanning_ShowsTheRestOfThePiece) {
  EXPECT_EQ(LabelAfter("Scanning vexacd/boot"), "Scanning :  vexacd/boot");
}

TEST_F(MasteringMonitor, TwoScannings_ShowTheTextBetweenThem) {
  EXPECT_EQ(LabelAfter("Scanning a\nScanning b\nScanning c"), "Scanning :  a\n");
}

TEST_F(MasteringMonitor, ScanningTree_ChangesNothingEvenWithAFurtherScanning) {
  EXPECT_EQ(LabelAfter("Scanning tree...\nScanning b\n"), "before");
}

TEST_F(MasteringMonitor, Eltorito_ShowsBootingInfo) {
  EXPECT_EQ(LabelAfter("Size of Eltorito boot image"), "Writing Booting Info");
}

TEST_F(MasteringMonitor, LowerCaseWords_AreNotRecognised) {
  EXPECT_EQ(LabelAfter("eltorito scanning finding duplicate files"), "before");
}

TEST_F(MasteringMonitor, Percent_SetsBarAndLabel) {
  EXPECT_EQ(LabelAfter(" 45.67% done, estimate finish Sat Nov 21"), "Creating ISO File : 45.67% Done");
  EXPECT_EQ(main.BarSub_Step.value.get(), 46);
}

TEST_F(MasteringMonitor, PercentOfOneDigit_IsTrimmed) {
  EXPECT_EQ(LabelAfter("  4.50% done"), "Creating ISO File : 4.50% Done");
  EXPECT_EQ(main.BarSub_Step.value.get(), 4);  // halves go to the even neighbour
  LabelAfter("  5.50% done");
  EXPECT_EQ(main.BarSub_Step.value.get(), 6);
}

TEST_F(MasteringMonitor, PercentInParentheses_IsSkipped) { EXPECT_EQ(LabelAfter("saved (12.50%) of it"), "before"); }

TEST_F(MasteringMonitor, FirstPercentCounts_WhenALaterOneIsInParentheses) {
  EXPECT_EQ(LabelAfter(" 10.00% done (20.00%)"), "Creating ISO File : 10.00% Done");
}

TEST_F(MasteringMonitor, PercentAmongTheFirstFiveCharacters_CarriesNoPercentage) {
  EXPECT_EQ(LabelAfter("5.0% done"), "before");
  EXPECT_EQ(LabelAfter("%"), "before");
  EXPECT_EQ(main.BarSub_Step.value.get(), 0);
}

TEST_F(MasteringMonitor, PercentAfterText_CarriesNoPercentage) {
  EXPECT_EQ(LabelAfter("some file 100%-name"), "before");  // "e 100" is no number
}

TEST_F(MasteringMonitor, TextThatOnlyBeginsWithANumber_CarriesNoPercentage) {
  EXPECT_EQ(LabelAfter("12ab4%"), "before");
  EXPECT_EQ(LabelAfter("a 5 MB% done"), "before");
  EXPECT_EQ(LabelAfter("1.2.3% done"), "before");
  EXPECT_EQ(main.BarSub_Step.value.get(), 0);
}

TEST_F(MasteringMonitor, PercentInParenthesesAfterANumber_IsSkippedForAllOfThePiece) {
  EXPECT_EQ(LabelAfter("saved 12.50%) of it,  45.67% done"), "before");
  EXPECT_EQ(main.BarSub_Step.value.get(), 0);
}

TEST_F(MasteringMonitor, FivePlacesBeforeThePercent_AreAllThatCounts) {
  EXPECT_EQ(LabelAfter("1234567% done"), "Creating ISO File : 34567% Done");
  EXPECT_EQ(LabelAfter("12.34% done"), "Creating ISO File : 12.34% Done");
  EXPECT_EQ(LabelAfter("x  7.5% done"), "Creating ISO File : 7.5% Done");
  EXPECT_EQ(main.BarSub_Step.value.get(), 8);
}

TEST_F(MasteringMonitor, SeveralPercents_TheFirstCounts) {
  EXPECT_EQ(LabelAfter(" 10.00% done\n 20.00% done\n"), "Creating ISO File : 10.00% Done");
  EXPECT_EQ(main.BarSub_Step.value.get(), 10);
}

TEST_F(MasteringMonitor, PercentAboveTheBar_StaysOnTheBar) {
  LabelAfter("999.99% done");
  EXPECT_EQ(main.BarSub_Step.value.get(), 100);
}

TEST_F(MasteringMonitor, PercentBelowTheBar_StaysOnTheBar) {
  main.BarSub_Step.value = 50;
  LabelAfter(" -7.00% done");
  EXPECT_EQ(main.BarSub_Step.value.get(), 0);
}

TEST_F(MasteringMonitor, ExtentsWritten_ShowTheSizeInEitherSpelling) {
  EXPECT_EQ(LabelAfter("12345 extents written (24 Mb)\n"), "Total ISO size : 24 MB");
  EXPECT_EQ(LabelAfter("12345 extents written (67 MB)\n"), "Total ISO size : 67 MB");
}

TEST_F(MasteringMonitor, ExtentsWrittenWithoutSize_IsIgnored) {
  EXPECT_EQ(LabelAfter("12345 extents written"), "before");
  EXPECT_EQ(LabelAfter("Mb 12345 extents written (no size)"), "before");
}

TEST_F(MasteringMonitor, UnitBeforeTheExtents_IsNotTheSizesUnit) {
  EXPECT_EQ(LabelAfter("of 650 Mb free, 12345 extents written (24 Mb)\n"), "Total ISO size : 24 MB");
  EXPECT_EQ(LabelAfter("of 650 MB free, 12345 extents written (67 MB)\n"), "Total ISO size : 67 MB");
}

// Each piece matches two neighbouring conditions, with their texts in the wrong order. The later condition decides.
TEST_F(MasteringMonitor, PieceThatFiresTwoTests_ShowsTheLaterTest) {
  EXPECT_EQ(LabelAfter("Finding duplicate files\nCalculating MD5 digests\n"), "Finding duplicate files");
  EXPECT_EQ(LabelAfter("Scanning a\nScanning Finding duplicate files"), "Scanning :  a\n");
  EXPECT_EQ(LabelAfter("Eltorito\nScanning a\n"), "Writing Booting Info");
  EXPECT_EQ(LabelAfter(" 45.67% done\nEltorito\n"), "Creating ISO File : 45.67% Done");
  EXPECT_EQ(LabelAfter("12345 extents written (24 Mb)\n 45.67% done\n"), "Total ISO size : 24 MB");
}

TEST_F(MasteringMonitor, PieceThatFiresTwoTests_FiresBoth) {
  LabelAfter("12345 extents written (24 Mb)\n 45.67% done\nNo space left on device\n");
  EXPECT_EQ(main.BarSub_Step.value.get(), 46);
  EXPECT_EQ(main.LblSub_Step.caption.get(), "Total ISO size : 24 MB");
  EXPECT_EQ(main.LblSub_Step.fore_color.get(), 255);
}

TEST_F(MasteringMonitor, FullDisk_ShowsTheReasonInRed) {
  ShowMasteringOutput(main, "genisoimage: No space left on device. cannot fwrite 2048*16\n");
  EXPECT_EQ(main.LblSub_Step.fore_color.get(), 255);
  EXPECT_TRUE(main.LblAbort.visible);
  EXPECT_EQ(main.LblAbort.caption.get(), "Not enough free space to complete the ISO file !!!");
}

TEST_F(MasteringMonitor, EmptyPiece_ChangesNothing) { EXPECT_EQ(LabelAfter(""), "before"); }

}  // namespace
}  // namespace discwright::pipeline
