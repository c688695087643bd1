// What most tests of whole builds begin with: a folder of their own with a program folder and a place for the image.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "tests/end_to_end/program_copy.h"
#include "tests/end_to_end/running_program.h"
#include "tests/end_to_end/trees.h"
#include "tests/end_to_end/waiting.h"

namespace discwright::testing {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class BuildTest : public ::testing::Test {
 protected:
  // Builds into `image`, with further arguments.
  Outcome Build(const std::vector<std::string>& arguments = {}, const Surroundings& surroundings = {}) const {
    return program.Build(Join(Output(image), arguments), surroundings);
  }
  std::vector<std::string> Command(const std::vector<std::string>& arguments = {}) const {
    return program.Command(Join(Output(image), arguments));
  }

  // Surroundings in which `genisoimage` is a shell script; it stands alone in the folder "bin".
  Surroundings WithGenisoimage(const std::string& lines) const {
    const fs::path script = place / "bin" / "genisoimage";
    WriteFile(script, "#!/bin/sh\n" + lines);
    fs::permissions(script, fs::perms::owner_all);
    return {.environment = {{"PATH", script.parent_path().string() + ":" + std::getenv("PATH")}}};
  }

  // For such a script: begins an image, says so (see HasBegun), and never ends by itself.
  static std::string BeginAndHang() {
    return "while [ \"$1\" != -output ]; do shift; done\n"
           "echo begun > \"$2\"\n"
           ": > \"${0%/*}/begun\"\n"
           "sleep 600\n";
  }
  bool HasBegun() const { return fs::exists(place / "bin" / "begun"); }

  TemporaryFolder place;
  ProgramCopy program{place / "program"};
  fs::path image = place / "rescue.iso";
};

}  // namespace discwright::testing
