// Runs the calls of a loop on several threads, which take the numbers of their calls from one counter. The first
// exception on any of the threads reaches the caller.
#include "tools/dfl/parallel.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <vector>

#include "host/threads.h"

namespace discwright::tools::dfl {
namespace {

bool StartThread(std::vector<host::Thread>& threads, const std::function<void()>& work) {
  try {
    threads.emplace_back(work);
    return true;
  } catch (const std::exception&) {  // the system has no thread or no memory left
    return false;                    // the threads that could be started do all the work
  }
}

}  // namespace

void ForEach(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& work) {
  std::atomic<std::size_t> next = 0;
  host::Mutex mutex;
  std::exception_ptr failure;
  const auto run = [&] {
    try {
      for (std::size_t index = next++; index < count; index = next++) work(index);
    } catch (...) {
      next = count;  // makes the other threads stop after the calls that they are running
      const std::lock_guard lock(mutex);
      if (!failure) failure = std::current_exception();
    }
  };
  const std::size_t helpers = std::min<std::size_t>(threads, count);
  std::vector<host::Thread> started;
  while (started.size() + 1 < helpers && StartThread(started, run)) {
  }
  run();
  for (host::Thread& thread : started) thread.Join();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace discwright::tools::dfl
