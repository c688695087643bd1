// Runs a program and prints the failures that nothing else handles.
#include "host/run_program.h"

#include <cstdlib>
#include <exception>
#include <new>
#include <string_view>
#include <system_error>

#include "host/console.h"
#include "host/system.h"

namespace discwright::host {
namespace {

// The texts are printed one by one, because joining them would need memory.
int Fail(std::string_view name, std::string_view cause, std::string_view remedy = "") {
  for (const std::string_view text : {name, std::string_view(": "), cause, remedy, std::string_view("\n")}) {
    Print(Stream::kError, text);
  }
  return kProgramFailed;
}

int FailForMemory(std::string_view name) {
  return Fail(name, "there is not enough memory. Close other programs, or raise the limit of this account, ",
              "and try again.");
}

std::string_view running_program;

// When there is hardly any memory at the start of the program, not even the exception that reports this can be created.
// Then nothing can be destroyed, but nothing was begun either.
void EndWithoutException() {
  if (!std::current_exception()) std::_Exit(FailForMemory(running_program));
  std::abort();
}

}  // namespace

int RunProgram(std::string_view name, const std::function<int()>& program) {
  running_program = name;
  std::set_terminate(EndWithoutException);
  SetUpSignals();
  try {
    return program();
  } catch (const std::bad_alloc&) {
    return FailForMemory(name);
  } catch (const std::system_error& failure) {  // thrown by host::Thread
    return Fail(name, failure.what(),
                ": no further thread could be started. Close other programs, or raise the limit of this account, and "
                "try again.");
  } catch (const std::exception& failure) {
    return Fail(name, failure.what());
  }
}

}  // namespace discwright::host
