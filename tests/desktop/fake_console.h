// The console of the host for tests: what is printed is kept, and nobody sleeps.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace discwright::testing {

// Construct one at the start of each test.
class FakeConsole {
 public:
  FakeConsole();
  ~FakeConsole();
  FakeConsole(const FakeConsole&) = delete;
  FakeConsole& operator=(const FakeConsole&) = delete;

  std::string error;  // on standard error; "<erased>" where the rest of a line was
  std::string output;
  std::vector<int> sleeps;         // the milliseconds of each
  std::function<void()> on_sleep;  // what happens meanwhile
  int wake_ups = 0;
  int interrupts = 0;
  int width = 80;

  // What was printed on standard error since the last call.
  std::string TakeError();
};

}  // namespace discwright::testing
