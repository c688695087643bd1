// The fixture for tests of whole builds: a temporary folder with a copy of the program folder, and Build() to run it.
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

// The last line of standard error after wrong usage.
inline constexpr const char* kTryHelp = "Try 'discwright-build --help'.\n";

class BuildTest : public ::testing::Test {
 protected:
  // Runs a build of `image` with further arguments.
  Outcome Build(const std::vector<std::string>& arguments = {}, const Surroundings& surroundings = {}) const {
    return program.Build(Join(Output(image), arguments), surroundings);
  }
  std::vector<std::string> Command(const std::vector<std::string>& arguments = {}) const {
    return program.Command(Join(Output(image), arguments));
  }

  // Replaces mkisofs by a script that begins an image, makes HasBegun() true, and runs until it gets a signal.
  void MasteringBeginsAndHangs() const {
    program.ReplaceProgram("mkisofs",
                           "while [ \"$1\" != -output ]; do shift; done\n"
                           "part=${2%/*}/.discwright-${2##*/}.part\n"
                           "trap 'rm -f \"$part\"; exit 1' TERM\n"
                           "echo begun > \"$part\"\n"
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
