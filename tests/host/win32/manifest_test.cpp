// Tests of the manifest, by which a program declares to newer systems what it supports.
#include <gmock/gmock.h>
#include <windows.h>

#include <string_view>

namespace discwright::host {
namespace {

TEST(Manifest, EveryProgram_RunsWithTheRightsOfItsUserAndWithoutRedirectedFolders) {
  const HRSRC found = FindResourceA(nullptr, MAKEINTRESOURCEA(1), MAKEINTRESOURCEA(24));
  ASSERT_NE(found, nullptr);
  const std::string_view text(static_cast<const char*>(LockResource(LoadResource(nullptr, found))),
                              SizeofResource(nullptr, found));
  EXPECT_THAT(text, ::testing::HasSubstr("level=\"asInvoker\""));
}

}  // namespace
}  // namespace discwright::host
