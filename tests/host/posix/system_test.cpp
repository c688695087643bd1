// Tests of facts about a POSIX machine.
#include "host/system.h"
#include "host/names.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace discwright::host {
namespace {

TEST(ProgramFolder, HoldsTheRunningProgram) {
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_EQ(ProgramFolder(), PathFromNative(program.parent_path().string()));
}

TEST(CurrentFolder, IsAbsoluteInTheCoresSpelling) {
  EXPECT_EQ(CurrentFolder(), PathFromNative(std::filesystem::current_path().string()));
  EXPECT_EQ(CurrentFolder().front(), '\\');
}

TEST(PlatformId, IsTheNtFamily) { EXPECT_EQ(PlatformId(), 2); }

}  // namespace
}  // namespace discwright::host
