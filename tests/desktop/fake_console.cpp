// The functions of host/console.h, on the FakeConsole of the running test.
#include "tests/desktop/fake_console.h"

#include <stdexcept>
#include <utility>

#include "host/console.h"

namespace discwright {

namespace {

testing::FakeConsole* current_console = nullptr;

testing::FakeConsole& Fake() {
  if (current_console == nullptr) throw std::logic_error("this test has no FakeConsole");
  return *current_console;
}

}  // namespace

namespace testing {

FakeConsole::FakeConsole() { current_console = this; }
FakeConsole::~FakeConsole() { current_console = nullptr; }

std::string FakeConsole::TakeError() { return std::exchange(error, ""); }

}  // namespace testing

namespace host {

void SetWakeUp() { ++Fake().wake_ups; }
void WaitForWakeUp(int milliseconds) {
  Fake().sleeps.push_back(milliseconds);
  if (Fake().on_sleep) Fake().on_sleep();
}
void CatchInterrupts(int) {}
int InterruptCount() { return Fake().interrupts; }
bool StandardErrorIsTerminal() { return true; }
int TerminalWidth() { return Fake().width; }
void EraseRestOfLine() { Fake().error += "<erased>"; }
void Print(Stream stream, std::string_view text) {
  (stream == Stream::kError ? Fake().error : Fake().output).append(text);
}

}  // namespace host

}  // namespace discwright
