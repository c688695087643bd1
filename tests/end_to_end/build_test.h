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

  // A mastering tool that begins an image, says so (see HasBegun), and goes on until it is told to end.
  void MasteringBeginsAndHangs() const {
    program.ReplaceProgram("mkisofs",
                           "while [ \"$1\" != -output ]; do shift; done\n"
                           "trap 'rm -f \"$2.part\"; exit 1' TERM\n"
                           "echo begun > \"$2.part\"\n"
                           ": > begun\n"
                           "sleep 600 &\n"
                           "wait\n");
  }
  bool HasBegun() const { return fs::exists(program / "begun"); }

  TemporaryFolder place;
  ProgramCopy program{place / "program"};
  fs::path image = place / "rescue.iso";
};

}  // namespace discwright::testing
