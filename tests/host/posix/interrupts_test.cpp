// Tests of Ctrl-C and of requests to terminate.
#include <unistd.h>

#include <csignal>

#include "host/console.h"
#include "host/threads.h"
#include "tests/host/waking.h"

namespace discwright::host {
namespace {

using testing::EndsEarly;
using testing::kFarTooLong;
using Interrupts = testing::Waking;

TEST_F(Interrupts, AndRequestsToTerminate_AreCountedAndWake) {
  CatchInterrupts();
  const int before = InterruptCount();
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    std::raise(signal);
    EXPECT_TRUE(EndsEarly(kFarTooLong)) << signal;
  }
  EXPECT_EQ(InterruptCount(), before + 3);
}

TEST_F(Interrupts, DuringAWait_EndIt) {
  CatchInterrupts();
  Thread other([] {
    testing::Pause(20);
    kill(getpid(), SIGINT);
  });
  EXPECT_TRUE(EndsEarly(kFarTooLong));
  other.Join();
}

}  // namespace
}  // namespace discwright::host
