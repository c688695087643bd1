// Launchers and processes that play a FakeRun.
#include "tests/support/fake_programs.h"

namespace discwright::testing {

namespace {

class FakeLauncher : public host::Launcher {
 public:
  FakeLauncher(FakePrograms& programs, std::function<void()> wake) : programs_(programs), wake_(std::move(wake)) {
    ++programs_.launchers_alive;
  }
  ~FakeLauncher() override { --programs_.launchers_alive; }

  void Configure(int buffer_size, int poll_interval) override {
    programs_.configured.push_back(std::to_string(buffer_size) + " " + std::to_string(poll_interval));
  }

  host::Status Start(std::string_view command_line) override {
    programs_.started.emplace_back(command_line);
    if (!programs_.start_status.ok()) return programs_.start_status;
    if (programs_.run) run_ = programs_.run(programs_.started.back());
    running_ = true;
    if (wake_) wake_();
    return host::Status::Success();
  }

  void Deliver() override {
    if (!running_) return;
    if (next_piece_ < run_.pieces.size()) {
      const std::string piece = run_.pieces[next_piece_++];
      if (wake_) wake_();  // for the next piece or the end
      // Calls a copy, because the function may destroy this launcher.
      if (const auto received = data_received) received(piece);
      return;
    }
    running_ = false;
    if (run_.at_end) run_.at_end();
    if (const auto ended = process_ended) ended();
  }

  host::ProcessEnd End() const override { return run_.end; }

 private:
  FakePrograms& programs_;
  std::function<void()> wake_;
  FakeRun run_;
  std::size_t next_piece_ = 0;
  bool running_ = false;
};

class FakeProcess : public host::Process {
 public:
  explicit FakeProcess(FakePrograms& programs) : programs_(programs) {}
  bool Wait(int milliseconds, bool wait_for_idle) override {
    programs_.waits.push_back(std::to_string(milliseconds) + (wait_for_idle ? " idle" : " end"));
    return programs_.process_wait_result;
  }

 private:
  FakePrograms& programs_;
};

}  // namespace

std::unique_ptr<host::Process> FakePrograms::StartProcess(std::string_view command_line, int window_style,
                                                          int creation_flags) {
  started.emplace_back(command_line);
  window_styles.push_back(window_style);
  creation_flag_values.push_back(creation_flags);
  if (!can_create || !start_status.ok()) return nullptr;
  return std::make_unique<FakeProcess>(*this);
}

std::unique_ptr<host::Launcher> FakePrograms::CreateLauncher(std::function<void()> wake) {
  if (!can_create) return nullptr;
  return std::make_unique<FakeLauncher>(*this, std::move(wake));
}

}  // namespace discwright::testing
