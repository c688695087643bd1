// Fake programs for tests: FakePrograms records each command line that is started and plays the FakeRun for it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/processes.h"

namespace discwright::testing {

// What a started program does. Each Deliver gives one piece of output. The Deliver after the last piece calls `at_end`,
// which can change the disk, and ends the program.
struct FakeRun {
  std::vector<std::string> pieces;
  std::function<void()> at_end;
  host::ProcessEnd end;
};

class FakePrograms : public host::ProgramRunner {
 public:
  std::unique_ptr<host::Process> StartProcess(std::string_view command_line, int window_style,
                                              int creation_flags) override;
  std::unique_ptr<host::Launcher> CreateLauncher(std::function<void()> wake) override;
  void EndAll() override { ++end_all_calls; }

  std::vector<std::string> started;     // command lines, in order
  std::vector<std::string> configured;  // "buffer interval" of each launcher
  int end_all_calls = 0;
  int launchers_alive = 0;  // created and not yet released

  std::function<FakeRun(const std::string& command_line)> run;  // without it every program ends at once
  host::Status start_status;                                    // the result of every start
  bool can_create = true;                                       // false: CreateLauncher and StartProcess return null
  bool process_wait_result = true;
  std::vector<int> window_styles;         // of each StartProcess
  std::vector<int> creation_flag_values;  // of each StartProcess
  std::vector<std::string> waits;         // "milliseconds idle" of each Process::Wait
};

}  // namespace discwright::testing
