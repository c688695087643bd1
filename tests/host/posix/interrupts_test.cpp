// Tests of Ctrl-C and of requests to terminate.
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <sstream>

#include "host/console.h"
#include "host/threads.h"
#include "tests/host/launching.h"
#include "tests/host/waking.h"

namespace discwright::host {
namespace {

using testing::EndsEarly;
using testing::kFarTooLong;

constexpr int kExitCode = 42;

// Every test catches signals in a process of its own, because the second signal would end the test program.
class Interrupts : public testing::Waking {
 protected:
  // Runs `body` in a process of its own. It succeeds when `body` returns true.
  static void ExpectTrueInAProcess(bool (*body)()) {
    const auto run = [&] {
      CatchInterrupts(kExitCode);
      std::_Exit(body() ? 0 : 1);
    };
    EXPECT_EXIT(run(), ::testing::ExitedWithCode(0), "");
  }
};

TEST_F(Interrupts, TheFirstOfEachKind_IsCountedAndWakes) {
  ExpectTrueInAProcess([] { return std::raise(SIGINT) == 0 && EndsEarly(kFarTooLong) && InterruptCount() == 1; });
  ExpectTrueInAProcess([] { return std::raise(SIGTERM) == 0 && EndsEarly(kFarTooLong) && InterruptCount() == 1; });
  ExpectTrueInAProcess([] { return std::raise(SIGHUP) == 0 && EndsEarly(kFarTooLong) && InterruptCount() == 1; });
}

TEST_F(Interrupts, DuringAWait_EndsIt) {
  ExpectTrueInAProcess([] {
    Thread other([] {
      testing::Pause(20);
      kill(getpid(), SIGINT);
    });
    const bool ends_early = EndsEarly(kFarTooLong);
    other.Join();
    return ends_early;
  });
}

TEST_F(Interrupts, TheSecond_EndsALoopAtOnceWithTheExitCode) {
  const auto run = [] {
    CatchInterrupts(kExitCode);
    std::raise(SIGTERM);
    kill(getpid(), SIGINT);
    for (;;) {
    }
  };
  EXPECT_EXIT(run(), ::testing::ExitedWithCode(kExitCode), "");
}

using InterruptedLaunching = testing::Launching;

TEST_F(InterruptedLaunching, TheSecond_EndsTheStartedProgramsWithAllThatTheyStarted) {
  const std::string ids = folder_.Native("ids");
  const auto run = [&] {
    CatchInterrupts(kExitCode);
    const auto launcher = runner_->CreateLauncher([] {});
    const std::string line = BatchFile({"trap '' HUP", "sleep 600 &", "echo $$ $! > '" + ids + ".part'",
                                        "mv '" + ids + ".part' '" + ids + "'", "wait"});
    if (!launcher->Start(line).ok()) std::_Exit(1);
    if (!testing::Eventually([&] { return !folder_.Read("ids").starts_with('<'); })) std::_Exit(2);
    std::raise(SIGINT);
    std::raise(SIGINT);
    std::_Exit(3);
  };
  EXPECT_EXIT(run(), ::testing::ExitedWithCode(kExitCode), "");
  std::istringstream text(folder_.Read("ids"));
  int id = 0;
  int count = 0;
  for (; text >> id; ++count) EXPECT_TRUE(testing::Eventually([&] { return !testing::IsAlive(id); })) << id;
  EXPECT_EQ(count, 2);
}

}  // namespace
}  // namespace discwright::host
