// Tests of the frame of every program: its exit code, and the sentence when memory or threads run out.
#include "host/run_program.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <system_error>

namespace discwright::host {
namespace {

// What RunProgram prints on standard error while it runs `program`, which fails.
std::string SentenceOf(const std::function<int()>& program) {
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(RunProgram("maker", program), kProgramFailed);
  return ::testing::internal::GetCapturedStderr();
}

TEST(RunProgram, ProgramThatReturns_GivesItsExitCode) {
  EXPECT_EQ(RunProgram("maker", [] { return 7; }), 7);
}

TEST(RunProgram, MemoryThatRunsOut_IsASentenceAfterEverythingIsDestroyed) {
  struct Part {
    explicit Part(bool& removed) : removed_(removed) {}
    ~Part() { removed_ = true; }
    bool& removed_;
  };
  bool removed = false;
  EXPECT_EQ(SentenceOf([&]() -> int {
              const Part part(removed);
              throw std::bad_alloc();
            }),
            "maker: there is not enough memory. Close other programs, or raise the limit of this account, and try "
            "again.\n");
  EXPECT_TRUE(removed);
}

TEST(RunProgram, ThreadThatCannotStart_IsASentence) {
  const std::string sentence = SentenceOf(
      []() -> int { throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again)); });
  EXPECT_NE(sentence.find("no further thread could be started"), sentence.npos) << sentence;
}

TEST(RunProgram, OtherException_IsShownInItsOwnWords) {
  EXPECT_EQ(SentenceOf([]() -> int { throw std::runtime_error("out of luck"); }), "maker: out of luck\n");
}

}  // namespace
}  // namespace discwright::host
