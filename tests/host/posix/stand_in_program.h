// A program that a test puts into PATH in place of an installed one, and the arguments that it gets.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/processes.h"
#include "tests/host/launching.h"
#include "tests/host/temp_folder.h"

namespace discwright::host::testing {

// A variable of the environment, changed as long as this lives; null: it is not set.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    const char* const before = std::getenv(name);
    if (before != nullptr) before_ = before;
    Set(value);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { Set(before_ ? before_->c_str() : nullptr); }

 private:
  void Set(const char* value) const {
    if (value == nullptr) {
      unsetenv(name_);
    } else {
      setenv(name_, value, 1);
    }
  }

  const char* name_;
  std::optional<std::string> before_;
};

// The folders where programs are looked for, as long as it lives.
class SearchPath : public Variable {
 public:
  explicit SearchPath(const std::string& folders) : Variable("PATH", folders.c_str()) {}
};

// Runs a line with the system's own launcher to its end.
inline void RunToEnd(const std::string& line) {
  Alarm alarm;
  const std::unique_ptr<ProgramRunner> runner = SystemProgramRunner();
  const std::unique_ptr<Launcher> launcher = runner->CreateLauncher(alarm.Waker());
  bool ended = false;
  launcher->process_ended = [&] { ended = true; };
  const Status status = launcher->Start(line);
  ASSERT_TRUE(status.ok()) << status.cause;
  while (!ended) {
    ASSERT_TRUE(alarm.Wait()) << "no end came";
    launcher->Deliver();
  }
  EXPECT_TRUE(launcher->End().Succeeded()) << launcher->End().Text();
}

// A program that writes each of its arguments into the file "arguments" of a folder, with a NUL behind each.
inline void AddStandIn(const TempFolder& folder, const std::string& name) {
  folder.Write(name, "#!/bin/sh\nprintf '%s\\0' \"$@\" > '" + folder.Native("arguments") + "'\n");
  folder.SetMode(name, 0755);
}

inline std::vector<std::string> ArgumentsOfStandIn(const TempFolder& folder) {
  const std::string text = folder.Read("arguments");
  std::vector<std::string> arguments;
  for (std::size_t start = 0; start < text.size(); start = text.find('\0', start) + 1) {
    arguments.emplace_back(text.c_str() + start);
  }
  return arguments;
}

}  // namespace discwright::host::testing
