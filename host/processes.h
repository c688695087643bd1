// Starting other programs; the system's own runner and a recording test double stand behind it.
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
  std::string killed_by;  // the signal's name when a signal ended it
  bool Succeeded() const { return exit_code == 0 && killed_by.empty(); }
  std::string Text() const {
    return killed_by.empty() ? "ended with exit code " + std::to_string(exit_code) : "was killed by " + killed_by;
  }
};

// One program run without a window, its standard output and standard error captured together. Events come only from
// Deliver, on the thread that calls it. Destroying the launcher releases it: the program goes on, no event follows.
class Launcher {
 public:
  virtual ~Launcher() = default;

  // `buffer_size` is the largest piece of output per event, in bytes; `poll_interval` in milliseconds is how long an
  // unfinished line of output may be held back and how often the program's state is looked at.
  virtual void Configure(int buffer_size, int poll_interval) = 0;

  // Starts a command line as the Windows process call reads it: the program is the shortest leading part that names
  // an existing file, with or without ".exe"; a ".bat" is run by the system's shell. Called once.
  virtual Status Start(std::string_view command_line) = 0;

  // Hands what has arrived to the two functions below, in order, the end once and last. Either may destroy the
  // launcher.
  virtual void Deliver() = 0;

  virtual ProcessEnd End() const = 0;  // how it ended; valid once process_ended was called

  std::function<void(std::string_view text_pipe)> data_received;
  std::function<void()> process_ended;
};

// A program started without capturing its output; destroying it only closes the handle.
class Process {
 public:
  virtual ~Process() = default;
  // True when the program ended (or, with `wait_for_idle`, is ready for input) within the time; below 1 waits without
  // limit.
  virtual bool Wait(int milliseconds, bool wait_for_idle) = 0;
};

// Used by one thread, with all that it gives.
class ProgramRunner {
 public:
  virtual ~ProgramRunner() = default;

  // Null when the command line names no program that can be started. `window_style` 0 leaves the style to the
  // program; both numbers mean nothing off Windows.
  virtual std::unique_ptr<Process> StartProcess(std::string_view command_line, int window_style,
                                                int creation_flags) = 0;

  // A fresh launcher; `wake` is called from another thread whenever there is something to deliver, and must not use the
  // launcher. Null when the system cannot run programs.
  virtual std::unique_ptr<Launcher> CreateLauncher(std::function<void()> wake) = 0;

  // Ends every launched program that still runs, with all that it started.
  virtual void EndAll() = 0;
};

// The running system's own.
std::unique_ptr<ProgramRunner> SystemProgramRunner();

// The command line that starts the Windows program at the core path `program` with one argument: `option` and, without
// a blank between, the core path `path` as that program spells it. On Windows nothing is quoted; elsewhere the command
// "wine" starts it. Nothing when the system has no such command.
std::optional<std::string> WindowsProgramLine(std::string_view program, std::string_view option, std::string_view path);

}  // namespace discwright::host
