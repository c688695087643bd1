// Threads take the numbers of their calls from one counter.
#include "tools/dfl/parallel.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <vector>

#include "host/threads.h"

namespace discwright::tools::dfl {
namespace {

bool StartThread(std::vector<host::Thread>& threads, const std::function<void()>& work) {
  try {
    threads.emplace_back(work);
    return true;
  } catch (const std::system_error&) {
    return false;  // the threads that could be started do all the work
  }
}

}  // namespace

void ForEach(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& work) {
  std::atomic<std::size_t> next = 0;
  const auto run = [&] {
    for (std::size_t index = next++; index < count; index = next++) work(index);
  };
  const std::size_t helpers = std::min<std::size_t>(threads, count);
  std::vector<host::Thread> started;
  while (started.size() + 1 < helpers && StartThread(started, run)) {
  }
  run();
  for (host::Thread& thread : started) thread.Join();
}

}  // namespace discwright::tools::dfl
