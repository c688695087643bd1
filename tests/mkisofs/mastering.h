// The fixture for tests of whole runs: write files below "tree", call Master() or MasteredImage(), look at the image.
#pragma once

#include <gmock/gmock.h>

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "tests/host/temp_folder.h"
#include "tests/mkisofs/iso_reader.h"
#include "tools/mkisofs/master.h"

namespace discwright::testing {

inline constexpr std::int64_t kNow = 1000000000;  // 2001-09-09 01:46:40 UTC

class Mastering : public ::testing::Test {
 protected:
  Mastering() { folder.MakeFolder("tree"); }

  // The options of the build's mastering script, without -output and the tree.
  static std::vector<std::string> ScriptWords() {
    return {"-volid",          "VEXA_RESCUE",   "-preparer",       "Brennick",   "-publisher",
            "KORVANE LTD",     "-appid",        "Vexa CD Creator", "-iso-level", "4",
            "-omit-period",    "-no-emul-boot", "-boot-load-size", "4",          "-eltorito-boot",
            "boot/loader.bin", "-hide",         "loader.bin",      "-hide",      "boot.catalog",
            "-follow-links",   "-cache-inodes"};
  }

  int Master(std::vector<std::string> words = {"-follow-links", "-cache-inodes"}) {
    words.insert(words.end(), {"-output", folder.Native("image.iso"), folder.Native("tree")});
    std::ostringstream said;
    const int result = tools::mkisofs::Master(words, {source_date, kNow, stopped}, said);
    messages = said.str();
    return result;
  }

  // Masters the tree and reads the image; expects that the strict reader finds no problem.
  IsoImage MasteredImage(const std::vector<std::string>& words = {"-follow-links", "-cache-inodes"}) {
    EXPECT_EQ(Master(words), 0) << messages;
    image = folder.Read("image.iso");
    IsoImage iso = ReadIso({reinterpret_cast<const std::uint8_t*>(image.data()), image.size()});
    EXPECT_THAT(iso.problems, ::testing::IsEmpty());
    return iso;
  }

  // The bytes of a file in the last image.
  std::string Content(const IsoEntry* entry) const {
    return entry == nullptr ? "<missing>" : image.substr(std::size_t{entry->extent} * 2048, entry->size);
  }

  static std::vector<std::string> Paths(const IsoImage& iso) {
    std::vector<std::string> paths;
    for (const IsoEntry& entry : iso.entries) paths.push_back(entry.path);
    return paths;
  }

  // Expects that neither an image nor a part of one was left.
  void ExpectNoImage() const { EXPECT_THAT(folder.Names(), ::testing::ElementsAre("tree")); }

  host::testing::TempFolder folder;
  const char* source_date = nullptr;
  std::function<bool()> stopped = [] { return false; };
  std::string messages;
  std::string image;
};

}  // namespace discwright::testing
