// A console of the host in memory: keeps what is printed, and returns from every wait at once.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace discwright::testing {

// Construct one at the start of each test. It replaces the functions of host/console.h until it is destroyed.
class FakeConsole {
 public:
  FakeConsole();
  ~FakeConsole();
  FakeConsole(const FakeConsole&) = delete;
  FakeConsole& operator=(const FakeConsole&) = delete;

  std::string error;  // standard error; "<erased>" stands for EraseRestOfLine()
  std::string output;
  std::vector<int> sleeps;         // milliseconds of each wait
  std::function<void()> on_sleep;  // called during each wait
  int wake_ups = 0;
  int interrupts = 0;
  int width = 80;

  // Returns what was printed on standard error since the last call.
  std::string TakeError();
};

}  // namespace discwright::testing
