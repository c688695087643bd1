// Starts other programs, reads their output, waits for their ends and ends them. Each system has its own
// implementation. Call StartCaptured or StartUncaptured; a build uses host/processes.h instead.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

#include "host/processes.h"

namespace discwright::host {

// A running program. Several threads may call its functions at once, except Read and Waiting. The owner must call
// WaitForEnd until it returns true; otherwise some systems keep an entry for the ended program.
class Child {
 public:
  using Clock = std::chrono::steady_clock;

  virtual ~Child() = default;

  // Waits for output, reads it, and returns the number of bytes. Returns 0 when the time is over, or when the program
  // has ended before there was output. A negative time means no limit; Read then waits even after the program has
  // ended, and 0 means that no program can write to the pipe any more.
  virtual std::size_t Read(std::span<char> buffer, int milliseconds) = 0;
  virtual std::size_t Waiting() = 0;  // the number of bytes that Read returns without waiting

  virtual bool WaitForEnd(int milliseconds) = 0;  // whether the program has ended; a negative time means no limit
  virtual ProcessEnd End() = 0;                   // valid once the program has ended

  // RequestEnd asks or forces the program to end, with everything that it has started. It returns false when the
  // program has already ended. WaitUntilGone waits for the end; programs that still run at `last_moment` are ended by
  // force.
  virtual bool RequestEnd() = 0;
  virtual void WaitUntilGone(Clock::time_point last_moment) = 0;
};

// Starts a command line (see Launcher::Start) without a window. The program's standard input is empty. Its standard
// output and standard error go to the pipe that Read reads.
Result<std::shared_ptr<Child>> StartCaptured(std::string_view command_line);

// Ends every program that StartCaptured has started and that still runs, with everything that these have started.
// Returns when they are gone, but after two seconds at the latest. A signal handler may call it.
void EndStartedPrograms();

// See ProgramRunner::StartProcess.
std::unique_ptr<Process> StartUncaptured(std::string_view command_line, int window_style, int creation_flags);

}  // namespace discwright::host
