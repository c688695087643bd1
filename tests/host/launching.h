// The fixture for tests of launched programs: Create() a launcher, RunToEnd() a command line, look at Output().
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <mutex>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "host/processes.h"
#include "host/threads.h"
#include "tests/host/child_program.h"
#include "tests/host/temp_folder.h"
#include "tests/host/waiting.h"

namespace discwright::host::testing {

// Sleeps until told otherwise; what a window's message loop does.
class Alarm {
 public:
  std::function<void()> Waker() {
    return [this] {
      const std::lock_guard lock(mutex_);
      ++calls_;
      is_set_ = true;
      changed_.NotifyAll();
    };
  }
  bool Wait() {
    const std::lock_guard lock(mutex_);
    while (!is_set_) {
      if (!changed_.WaitFor(mutex_, kFarTooLong)) return false;
    }
    is_set_ = false;
    return true;
  }
  int calls() {
    const std::lock_guard lock(mutex_);
    return calls_;
  }

 private:
  Mutex mutex_;
  Condition changed_;
  bool is_set_ = false;
  int calls_ = 0;
};

class Launching : public ::testing::Test {
 protected:
  ~Launching() override { runner_->EndAll(); }

  std::unique_ptr<Launcher> Create(int buffer_size = 8192, int poll_interval = 50) {
    std::unique_ptr<Launcher> launcher = runner_->CreateLauncher(alarm_.Waker());
    launcher->Configure(buffer_size, poll_interval);
    launcher->data_received = [this](std::string_view text) {
      EXPECT_EQ(ends_, 0) << "output after the end";
      pieces_.emplace_back(text);
    };
    launcher->process_ended = [this] { ++ends_; };
    return launcher;
  }

  // A batch file `name` in the test's folder; its command line.
  std::string BatchFile(const std::vector<std::string>& lines, const std::string& name = "script.bat") const {
    folder_.Write(name, BatchFileBytes(lines));
    return folder_.Core(name);
  }

  ProcessEnd RunToEnd(Launcher& launcher, const std::string& command_line) {
    const Status status = launcher.Start(command_line);
    EXPECT_TRUE(status.ok()) << status.cause;
    if (!status.ok()) return {};
    DeliverUntilEnd(launcher);
    return launcher.End();
  }

  void DeliverUntilEnd(Launcher& launcher) {
    while (ends_ == 0) {
      ASSERT_TRUE(alarm_.Wait()) << "no end came";
      launcher.Deliver();
    }
  }

  void DeliverUntilOutput(Launcher& launcher) {
    while (pieces_.empty()) {
      ASSERT_TRUE(alarm_.Wait()) << "no output came";
      launcher.Deliver();
    }
  }

  std::string Output() const {
    std::string output;
    for (const std::string& piece : pieces_) output += piece;
    return output;
  }

  // Without the line ends, which differ between systems, and blanks before these.
  std::vector<std::string> OutputLines() const {
    std::vector<std::string> lines;
    std::istringstream output(Output());
    for (std::string line; std::getline(output, line);) {
      line.erase(line.find_last_not_of(" \r") + 1);
      lines.push_back(line);
    }
    return lines;
  }

  TempFolder folder_;
  Alarm alarm_;
  std::unique_ptr<ProgramRunner> runner_ = SystemProgramRunner();
  std::vector<std::string> pieces_;
  int ends_ = 0;
};

}  // namespace discwright::host::testing
