// A program that a test has started: its output, its end, and what else runs in a folder.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace discwright::testing {

struct Outcome {
  int exit_code = -1;  // -1: it did not end by itself
  int killed_by = 0;   // the signal's number; 0 when none did
  std::string out;
  std::string err;  // what a terminal showed, when the program ran on one
};

// How a program is started, apart from its arguments.
struct Surroundings {
  std::filesystem::path working_folder = "/";
  std::vector<std::pair<std::string, std::string>> environment = {};  // added to the test's own
  std::string standard_input = {};
  bool on_terminal = false;  // 80 columns wide; standard error and standard output are the same then
};

// Started in a process group of its own; ended with everything in that group when the object goes.
class RunningProgram {
 public:
  // `command`: the program's path (or its name in PATH) and its arguments.
  explicit RunningProgram(const std::vector<std::string>& command, const Surroundings& surroundings = {});
  ~RunningProgram();
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  pid_t id() const { return id_; }
  void Send(int signal) const;         // to the program alone
  void SendToGroup(int signal) const;  // as a terminal does on Ctrl-C
  std::string ErrorText();             // what it has written to standard error so far

  bool HasEnded();
  // Waits for the end; a program that does not end is a failure of the test, and is killed.
  Outcome Wait();

 private:
  void StartOnFiles(const std::vector<std::string>& command, const Surroundings& surroundings);
  void StartOnTerminal(const std::vector<std::string>& command, const Surroundings& surroundings);
  void ReadTerminal();

  pid_t id_ = -1;
  int out_ = -1;
  int err_ = -1;
  int terminal_ = -1;
  std::string terminal_text_;
  bool ended_ = false;
  int wait_status_ = 0;
};

Outcome RunProgram(const std::vector<std::string>& command, const Surroundings& surroundings = {});

// One line for each process that works in, was started from, or was given a path below `folder`.
std::vector<std::string> ProcessesIn(const std::filesystem::path& folder);

// Whether all of them end by themselves.
bool AllProcessesEnd(const std::filesystem::path& folder);

}  // namespace discwright::testing
