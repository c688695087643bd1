// Tests of the command line.
#include "tools/mkisofs/options.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace discwright::tools::mkisofs {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Words = std::vector<std::string>;

Options Parsed(const Words& words) {
  Options options;
  EXPECT_EQ(ParseOptions(words, options).failure, "");
  return options;
}

std::string Problem(const Words& words) {
  Options options;
  return ParseOptions(words, options).failure;
}

Words With(Words words) {
  words.insert(words.end(), {"-o", "image.iso", "tree"});
  return words;
}

void ExpectScriptOptions(const Options& options) {
  EXPECT_EQ(options.volume_id, "VEXA_RESCUE");
  EXPECT_EQ(options.preparer, "Brennick");
  EXPECT_EQ(options.publisher, "KORVANE LTD");
  EXPECT_EQ(options.application_id, "Vexa CD Creator");
  EXPECT_EQ(options.boot_image, "boot/loader.bin");
  EXPECT_EQ(options.boot_catalogue, "boot.catalog");
  EXPECT_EQ(options.boot_load_sectors, 4);
  EXPECT_THAT(options.hidden, ElementsAre("loader.bin", "boot.catalog"));
  EXPECT_TRUE(options.follow_links);
  EXPECT_TRUE(options.store_links_once);
  EXPECT_EQ(options.output, "out.iso");
  EXPECT_EQ(options.tree, "vexacd");
}

// The words of the build's mastering script, each option together with its value.
const std::vector<Words> kScriptParts = {{"-volid", "VEXA_RESCUE"},
                                         {"-preparer", "Brennick"},
                                         {"-publisher", "KORVANE LTD"},
                                         {"-appid", "Vexa CD Creator"},
                                         {"-iso-level", "4"},
                                         {"-omit-period"},
                                         {"-no-emul-boot"},
                                         {"-boot-load-size", "4"},
                                         {"-eltorito-boot", "boot/loader.bin"},
                                         {"-hide", "loader.bin", "-hide", "boot.catalog"},
                                         {"-follow-links"},
                                         {"-cache-inodes"},
                                         {"-output", "out.iso"},
                                         {"vexacd"}};

TEST(Options, OfTheScript_AreTakenInAnyOrder) {
  std::vector<Words> parts = kScriptParts;
  for (std::size_t turn = 0; turn < parts.size(); ++turn) {
    std::rotate(parts.begin(), parts.begin() + 1, parts.end());
    Words words;
    for (const Words& part : parts) words.insert(words.end(), part.begin(), part.end());
    ExpectScriptOptions(Parsed(words));
    std::reverse(parts.begin(), parts.end());
  }
}

TEST(Options, ShortForms_MeanTheSame) {
  const Options options = Parsed({"-V", "volume", "-p", "preparer", "-A", "application", "-b", "b.bin", "-no-emul-boot",
                                  "-c", "boot/b.cat", "-o", "o.iso", "t"});
  EXPECT_EQ(options.volume_id, "volume");
  EXPECT_EQ(options.preparer, "preparer");
  EXPECT_EQ(options.application_id, "application");
  EXPECT_EQ(options.boot_image, "b.bin");
  EXPECT_EQ(options.boot_catalogue, "boot/b.cat");
  EXPECT_EQ(options.boot_load_sectors, std::nullopt);
  EXPECT_EQ(options.output, "o.iso");
}

TEST(Options, NoneGiven_LeaveTextsEmptyAndTheDiscUnbootable) {
  const Options options = Parsed({"-o", "o.iso", "t"});
  EXPECT_EQ(options.volume_id, "");
  EXPECT_EQ(options.boot_image, "");
  EXPECT_FALSE(options.follow_links);
  EXPECT_FALSE(options.store_links_once);
  EXPECT_FALSE(options.leave_system_area_empty);
  EXPECT_THAT(options.hidden, IsEmpty());
}

TEST(Options, NoStick_LeavesTheSystemAreaEmpty) {
  EXPECT_TRUE(Parsed(With({"-no-stick"})).leave_system_area_empty);
  EXPECT_THAT(UsageText(), HasSubstr("\n  -no-stick "));
}

TEST(Options, TextsOfFullLength_AreTaken) {
  const Options options = Parsed(With({"-V", std::string(32, 'v'), "-p", std::string(128, 'p'), "-publisher",
                                       std::string(128, 'u'), "-A", std::string(128, 'a')}));
  EXPECT_EQ(options.volume_id.size(), 32u);
  EXPECT_EQ(options.publisher.size(), 128u);
  EXPECT_EQ(Parsed(With({"-V", ""})).volume_id, "");
}

TEST(Options, PathsBelowTheTree_LoseEmptyAndSelfParts) {
  EXPECT_EQ(Parsed(With({"-b", "./boot//x/./loader.bin", "-no-emul-boot"})).boot_image, "boot/x/loader.bin");
  EXPECT_EQ(Parsed(With({"-b", "/boot/loader.bin", "-no-emul-boot"})).boot_image, "boot/loader.bin");
}

struct Wrong {
  Words words;
  std::string problem;  // a part of the expected sentence
};

class WrongOptions : public ::testing::TestWithParam<Wrong> {};

TEST_P(WrongOptions, AreRefusedWithTheReason) { EXPECT_THAT(Problem(GetParam().words), HasSubstr(GetParam().problem)); }

INSTANTIATE_TEST_SUITE_P(
    All, WrongOptions,
    ::testing::Values(Wrong{{}, "-output is missing"}, Wrong{{"tree"}, "-output is missing"},
                      Wrong{{"-o", "x.iso"}, "the folder to master is missing"},
                      Wrong{With({"other"}), "more than one folder to master: other and tree"},
                      Wrong{{"-o", "", "tree"}, "-o: the name is empty"}, Wrong{{"-o", "x", ""}, "is empty"},
                      Wrong{With({"-joliet"}), "unknown option -joliet"}, Wrong{With({"-"}), "unknown option -"},
                      Wrong{With({"--volid", "X"}), "unknown option --volid"},
                      Wrong{{"tree", "-output"}, "-output needs a value"},
                      Wrong{With({"-iso-level", "3"}), "-iso-level: only level 4 is supported, not 3"},
                      Wrong{With({"-V", std::string(33, 'v')}), "-V: the text is longer than 32 bytes"},
                      Wrong{With({"-p", std::string(129, 'p')}), "-p: the text is longer than 128 bytes"},
                      Wrong{With({"-publisher", std::string(129, 'p')}), "longer than 128 bytes"},
                      Wrong{With({"-A", std::string(129, 'a')}), "longer than 128 bytes"},
                      Wrong{With({"-boot-load-size", "0"}), "not a number from 1 to 65535: 0"},
                      Wrong{With({"-boot-load-size", "65536"}), "not a number from 1 to 65535"},
                      Wrong{With({"-boot-load-size", "4x"}), "not a number from 1 to 65535"},
                      Wrong{With({"-boot-load-size", ""}), "not a number from 1 to 65535"},
                      Wrong{With({"-b", "b.bin"}), "needs -no-emul-boot"},
                      Wrong{With({"-no-emul-boot"}), "need -eltorito-boot"},
                      Wrong{With({"-c", "b.cat"}), "need -eltorito-boot"},
                      Wrong{With({"-boot-load-size", "4"}), "need -eltorito-boot"},
                      Wrong{With({"-b", "../b.bin", "-no-emul-boot"}), "the path leads out of the tree"},
                      Wrong{With({"-b", "/", "-no-emul-boot"}), "the path names no file"}));

TEST(Usage, ListsEveryOption) {
  for (const Words& part : kScriptParts) {
    if (!part.front().starts_with("-")) continue;
    EXPECT_THAT(UsageText(), HasSubstr("\n  " + part.front()));
  }
}

}  // namespace
}  // namespace discwright::tools::mkisofs
