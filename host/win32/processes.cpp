// Runs other programs.
#include "host/processes.h"

#include <windows.h>

#include "host/native_text.h"
#include "host/running_children.h"
#include "host/win32/launcher.h"

namespace discwright::host {
namespace {

class WindowsProcess : public Process {
 public:
  explicit WindowsProcess(HANDLE process) : process_(process) {}

  // WaitForInputIdle fails for programs without windows; that is no readiness.
  bool Wait(int milliseconds, bool wait_for_idle) override {
    const DWORD limit = milliseconds >= 1 ? static_cast<DWORD>(milliseconds) : INFINITE;
    const DWORD result =
        wait_for_idle ? WaitForInputIdle(process_.get(), limit) : WaitForSingleObject(process_.get(), limit);
    return result == 0;
  }

 private:
  OwnedHandle process_;
};

class WindowsProgramRunner : public ProgramRunner {
 public:
  std::unique_ptr<Process> StartProcess(std::string_view command_line, int window_style, int creation_flags) override {
    std::optional<std::string> native = CodePageBytes(command_line);
    if (!native) return nullptr;
    STARTUPINFOA startup{};
    startup.cb = sizeof(startup);
    if (window_style != 0) {
      startup.dwFlags = STARTF_USESHOWWINDOW;
      startup.wShowWindow = static_cast<WORD>(window_style);
    }
    PROCESS_INFORMATION started{};
    if (CreateProcessA(nullptr, native->data(), nullptr, nullptr, TRUE, static_cast<DWORD>(creation_flags), nullptr,
                       nullptr, &startup, &started) == 0)
      return nullptr;
    CloseHandle(started.hThread);
    return std::make_unique<WindowsProcess>(started.hProcess);
  }

  std::unique_ptr<Launcher> CreateLauncher(std::function<void()> wake) override {
    return MakeLauncher(std::move(wake), [running = running_](const auto& child) { running->Add(child); });
  }

  void EndAll() override {
    constexpr DWORD kPatience = 2000;  // milliseconds; the system ends a program that still writes a little later
    for (const auto& child : running_->EndEach([](Child& each) { return each.Terminate(); }))
      child->WaitForEnd(kPatience);
  }

 private:
  std::shared_ptr<RunningChildren<Child>> running_ = std::make_shared<RunningChildren<Child>>();
};

}  // namespace

std::unique_ptr<ProgramRunner> SystemProgramRunner() { return std::make_unique<WindowsProgramRunner>(); }

}  // namespace discwright::host
