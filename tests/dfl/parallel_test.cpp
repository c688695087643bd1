// Tests of the loop on several threads.
#include "tools/dfl/parallel.h"

#include <gtest/gtest.h>

#include <atomic>
#include <new>

namespace discwright::tools::dfl {
namespace {

TEST(ForEach, EveryNumber_IsTakenOnce) {
  std::atomic<std::size_t> calls = 0;
  std::atomic<std::size_t> sum = 0;
  ForEach(100, 4, [&](std::size_t index) {
    ++calls;
    sum += index;
  });
  EXPECT_EQ(calls, 100u);
  EXPECT_EQ(sum, 4950u);
}

TEST(ForEach, ExceptionOnAnyThread_ReachesTheCaller) {
  for (const unsigned threads : {1u, 4u}) {
    EXPECT_THROW(ForEach(100, threads, [](std::size_t) { throw std::bad_alloc(); }), std::bad_alloc) << threads;
  }
}

TEST(ForEach, AfterAnException_NoFurtherCallsBegin) {
  std::size_t calls = 0;
  EXPECT_THROW(ForEach(100, 1,
                       [&](std::size_t) {
                         ++calls;
                         throw std::bad_alloc();
                       }),
               std::bad_alloc);
  EXPECT_EQ(calls, 1u);
}

}  // namespace
}  // namespace discwright::tools::dfl
