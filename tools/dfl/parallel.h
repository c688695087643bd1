// One loop on several threads.
#pragma once

#include <cstddef>
#include <functional>

namespace discwright::tools::dfl {

// Calls work(0) to work(count - 1), each once, from up to `threads` threads; returns when all are done. They are begun
// in this order, so the largest piece of work belongs first.
void ForEach(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& work);

}  // namespace discwright::tools::dfl
