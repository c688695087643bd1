// Runs programs for tests: RunProgram() to the end, RunningProgram with signals meanwhile.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace discwright::testing {

struct Outcome {
  int exit_code = -1;  // -1: a signal ended the program
  int killed_by = 0;   // number of the signal that ended the program; 0 when none did
  std::string out;
  std::string err;  // of a program on a terminal: everything that the terminal got
};

// How a program is started, besides its arguments.
struct Surroundings {
  std::filesystem::path working_folder = "/";
  std::vector<std::pair<std::string, std::string>> environment = {};  // added to the test's own
  std::string standard_input = {};
  bool on_terminal = false;        // standard output and standard error are one terminal of 80 columns
  bool obeys_permissions = false;  // permission bits stop the program, also when the tests run as an administrator
};

// The program has a process group of its own. The destructor kills the whole group.
class RunningProgram {
 public:
  // `command` has the path of the program, or its name in PATH, and its arguments.
  explicit RunningProgram(const std::vector<std::string>& command, const Surroundings& surroundings = {});
  ~RunningProgram();
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  pid_t id() const { return id_; }
  void Send(int signal) const;         // to the program alone
  void SendToGroup(int signal) const;  // as a terminal does on Ctrl-C
  std::string ErrorText();             // its standard error so far

  bool HasEnded();
  // Waits for the end of the program. Fails the test and kills the program when it does not end.
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

// One line for each process whose current folder, program or arguments are below `folder`.
std::vector<std::string> ProcessesIn(const std::filesystem::path& folder);

// Waits until ProcessesIn(folder) is empty; false when that takes too long.
bool AllProcessesEnd(const std::filesystem::path& folder);

}  // namespace discwright::testing
