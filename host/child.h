// A program that this one has started and whose output it reads: what each system does in its own way.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

#include "host/processes.h"

namespace discwright::host {

// All functions but Read and Waiting may be called by several threads at once. The owner calls WaitForEnd until it is
// true; otherwise some systems keep an entry for the ended program.
class Child {
 public:
  using Clock = std::chrono::steady_clock;

  virtual ~Child() = default;

  // Waits for output and reads it; returns the number of bytes. 0 when the time is over or the program has ended first.
  // A time below 0 has no limit and outlasts the end of the program: then 0 says that no program can write any more.
  virtual std::size_t Read(std::span<char> buffer, int milliseconds) = 0;
  virtual std::size_t Waiting() = 0;  // bytes of output that can be read at once

  virtual bool WaitForEnd(int milliseconds) = 0;  // whether it has ended; a time below 0 has no limit
  virtual ProcessEnd End() = 0;                   // valid once it has ended

  // Asks or makes the program end with all that it has started; false when it has ended already. What is still running
  // at `last_moment` is ended by force.
  virtual bool RequestEnd() = 0;
  virtual void WaitUntilGone(Clock::time_point last_moment) = 0;
};

// Starts a command line, see Launcher::Start: without a window, with standard input from nothing, and with standard
// output and error to the pipe that Read reads.
Result<std::shared_ptr<Child>> StartCaptured(std::string_view command_line);

// Ends every program that StartCaptured has started and that still runs, with all that these have started. Returns when
// they have gone, after two seconds at the latest. A signal handler may call it.
void EndStartedPrograms();

// See ProgramRunner::StartProcess.
std::unique_ptr<Process> StartUncaptured(std::string_view command_line, int window_style, int creation_flags);

}  // namespace discwright::host
