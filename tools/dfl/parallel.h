// Runs the calls of a loop on several threads. Call ForEach.
#pragma once

#include <cstddef>
#include <functional>

namespace discwright::tools::dfl {

// Calls work(0) to work(count - 1) once each, from up to `threads` threads, and returns when all calls have ended. The
// calls begin in this order, so the longest call should come first. When a call throws, no further calls begin, and its
// exception is thrown again here.
void ForEach(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& work);

}  // namespace discwright::tools::dfl
