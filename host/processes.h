// Starts other programs. SystemProgramRunner() returns the runner of the system; tests use one that only records.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/status.h"

namespace discwright::host {

// How a launched program ended.
struct ProcessEnd {
  int exit_code = 0;
  std::string killed_by;  // the signal, exception or Ctrl-C that ended the program; empty if none of them did
  bool Succeeded() const { return exit_code == 0 && killed_by.empty(); }
  std::string Text() const {
    return killed_by.empty() ? "ended with exit code " + std::to_string(exit_code) : "was killed by " + killed_by;
  }
};

// Runs one program without a window and captures its standard output and standard error together. Events come only from
// Deliver, on the thread that calls it. When the launcher is destroyed, the program goes on and no event follows.
class Launcher {
 public:
  virtual ~Launcher() = default;

  // `buffer_size` is the largest piece of output per event, in bytes. `poll_interval`, in milliseconds, is how long an
  // unfinished line of output may be held back, and how often the program's state is checked.
  virtual void Configure(int buffer_size, int poll_interval) = 0;

  // Starts a command line in the way in which the Windows process call reads it: the program is the shortest leading
  // part that names an existing file, with or without ".exe". The system's shell runs a ".bat" file. Call this once.
  virtual Status Start(std::string_view command_line) = 0;

  // Passes everything that has arrived to the two functions below, in order; the end comes last and only once. Either
  // function may destroy the launcher.
  virtual void Deliver() = 0;

  virtual ProcessEnd End() const = 0;  // how the program ended; valid once process_ended was called

  std::function<void(std::string_view text_pipe)> data_received;
  std::function<void()> process_ended;
};

// A program whose output is not captured. Destroying this object only closes the handle; the program goes on.
class Process {
 public:
  virtual ~Process() = default;
  // Returns true when the program ends within the time or, with `wait_for_idle`, is ready for input within the time. A
  // time below 1 means no limit.
  virtual bool Wait(int milliseconds, bool wait_for_idle) = 0;
};

// Starts programs. Only one thread may use a runner, its processes and its launchers.
class ProgramRunner {
 public:
  virtual ~ProgramRunner() = default;

  // Returns null when the command line names no program that can be started. A `window_style` of 0 leaves the style to
  // the program. Both numbers have a meaning only on Windows.
  virtual std::unique_ptr<Process> StartProcess(std::string_view command_line, int window_style,
                                                int creation_flags) = 0;

  // Returns a new launcher, or null when the system cannot run programs. `wake` is called from another thread whenever
  // there is something to deliver. It must not use the launcher.
  virtual std::unique_ptr<Launcher> CreateLauncher(std::function<void()> wake) = 0;

  // Ends every launched program that still runs, with everything that it has started.
  virtual void EndAll() = 0;
};

// The runner of the system on which this program runs.
std::unique_ptr<ProgramRunner> SystemProgramRunner();

// The command line that starts the Windows program at the core path `program` with one argument: `option` and, without
// a blank between them, the core path `path` in the spelling of that program. On Windows nothing is quoted; on other
// systems the command "wine" starts the program. Returns std::nullopt when the system has no such command.
std::optional<std::string> WindowsProgramLine(std::string_view program, std::string_view option, std::string_view path);

}  // namespace discwright::host
