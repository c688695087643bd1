// Starts processes without a window, reads their output through a pipe, and ends them with everything that they have
// started.
#include "host/child.h"

#include <windows.h>
// This header must follow windows.h, because it needs its types.
#include <tlhelp32.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <mutex>
#include <string>
#include <vector>

#include "host/command_line.h"
#include "host/native_text.h"
#include "host/threads.h"
#include "host/win32/command_interpreter.h"
#include "host/win32/errors.h"
#include "host/win32/owned_handle.h"
#include "host/win32/windows_version.h"

namespace discwright::host {
namespace {

constexpr DWORD kEndedByUs = 0xC000013A;  // the exit code that the system gives to a program that Ctrl-C ends

// Whether the system has made this exit code from an exception that the program did not handle.
bool IsException(DWORD exit_code) { return exit_code >> 28 == 0xC; }

// All processes of the system. Empty where the system does not list them (Windows NT 4).
std::vector<PROCESSENTRY32> Processes() {
  static auto* const create = NewerCall<decltype(CreateToolhelp32Snapshot)>("kernel32.dll", "CreateToolhelp32Snapshot");
  static auto* const first = NewerCall<decltype(Process32First)>("kernel32.dll", "Process32First");
  static auto* const next = NewerCall<decltype(Process32Next)>("kernel32.dll", "Process32Next");
  if (create == nullptr || first == nullptr || next == nullptr) return {};
  const OwnedHandle snapshot(create(TH32CS_SNAPPROCESS, 0));
  std::vector<PROCESSENTRY32> processes;
  PROCESSENTRY32 process{};
  process.dwSize = sizeof(process);
  for (BOOL found = first(snapshot.get(), &process); found != 0; found = next(snapshot.get(), &process)) {
    processes.push_back(process);
    process.dwSize = sizeof(process);
  }
  return processes;
}

// Ends what the process `id` has started, and what these processes have started in turn. A process is found only while
// its parent still runs.
void TerminateDescendants(DWORD id) {
  const std::vector<PROCESSENTRY32> processes = Processes();
  std::vector<DWORD> family = {id};
  for (std::size_t i = 0; i < family.size(); ++i) {
    for (const PROCESSENTRY32& process : processes) {
      const bool is_known = std::find(family.begin(), family.end(), process.th32ProcessID) != family.end();
      if (process.th32ParentProcessID != family[i] || is_known) continue;
      family.push_back(process.th32ProcessID);
      const OwnedHandle descendant(OpenProcess(PROCESS_TERMINATE, FALSE, process.th32ProcessID));
      if (descendant.valid()) TerminateProcess(descendant.get(), kEndedByUs);
    }
  }
}

// Creates a job, which contains a program and everything that it starts. The result is not valid on systems without
// jobs: Windows 95 to Me, and NT 4.
OwnedHandle MakeJob() {
  static auto* const create = NewerCall<decltype(CreateJobObjectA)>("kernel32.dll", "CreateJobObjectA");
  return OwnedHandle(create == nullptr || !IsNtFamily() ? nullptr : create(nullptr, nullptr));
}

// Puts the process into the job. Returns false when this fails, as it does where this program itself is in a job that
// cannot contain another one.
bool PutIntoJob(const OwnedHandle& job, HANDLE process) {
  static auto* const assign = NewerCall<decltype(AssignProcessToJobObject)>("kernel32.dll", "AssignProcessToJobObject");
  return assign != nullptr && assign(job.get(), process) != 0;
}

bool TerminateJob(const OwnedHandle& job) {
  static auto* const terminate = NewerCall<decltype(TerminateJobObject)>("kernel32.dll", "TerminateJobObject");
  return job.valid() && terminate != nullptr && terminate(job.get(), kEndedByUs) != 0;
}

class WindowsChild : public Child {
 public:
  WindowsChild(const PROCESS_INFORMATION& started, OwnedHandle job, OwnedHandle pipe)
      : process_(started.hProcess), id_(started.dwProcessId), job_(std::move(job)), pipe_(std::move(pipe)) {}

  std::size_t Read(std::span<char> buffer, int milliseconds) override {
    // Not every Windows can wait for a pipe without a name and a process together, so the pipe is checked again and
    // again. More output often follows soon, so the first pauses are short.
    constexpr int kLongestPause = 500;
    for (int pause = 2; milliseconds >= 0 && Waiting() == 0; pause = std::min(2 * pause, kLongestPause)) {
      pause = std::min(pause, milliseconds);
      if (pause == 0 || WaitForEnd(pause)) return 0;
      milliseconds -= pause;
    }
    DWORD count = 0;
    // When a program writes zero bytes, ReadFile succeeds without any bytes.
    while (ReadFile(pipe_.get(), buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr) != 0 &&
           count == 0) {
    }
    return count;
  }

  std::size_t Waiting() override {
    DWORD count = 0;
    return PeekNamedPipe(pipe_.get(), nullptr, 0, nullptr, &count, nullptr) != 0 ? count : 0;
  }

  bool WaitForEnd(int milliseconds) override {
    const DWORD limit = milliseconds < 0 ? INFINITE : static_cast<DWORD>(milliseconds);
    return WaitForSingleObject(process_.get(), limit) == WAIT_OBJECT_0;
  }

  ProcessEnd End() override {
    DWORD code = 0;
    GetExitCodeProcess(process_.get(), &code);
    if (code == kEndedByUs) return {0, "Ctrl-C"};
    if (!IsException(code)) return {static_cast<int>(code), ""};
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "exception %08lX", static_cast<unsigned long>(code));
    return {0, name.data()};
  }

  bool RequestEnd() override {
    if (WaitForEnd(0)) return false;
    if (TerminateJob(job_)) return true;
    // The program itself is ended first: a script would otherwise go on with its next line when the program that it
    // runs ends.
    TerminateProcess(process_.get(), kEndedByUs);
    // A process that was being started during one look is only found by the next one.
    for (int look = 0; look < 3; ++look) TerminateDescendants(id_);
    return true;
  }

  // The system may end a program that is writing a little later, so its end is awaited.
  void WaitUntilGone(Clock::time_point last_moment) override {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(last_moment - Clock::now());
    WaitForEnd(static_cast<int>(std::max<std::chrono::milliseconds::rep>(left.count(), 0)));
  }

 private:
  OwnedHandle process_;
  DWORD id_;
  OwnedHandle job_;  // not valid on systems without jobs
  OwnedHandle pipe_;
};

// The captured programs; some of them may have ended. A lock protects them, because the system calls the handler of
// Ctrl-C on a thread of its own.
class StartedChildren {
 public:
  void Add(const std::shared_ptr<WindowsChild>& child) {
    const std::lock_guard lock(mutex_);
    std::erase_if(children_, [](const std::weak_ptr<WindowsChild>& known) { return known.expired(); });
    children_.push_back(child);
  }

  void End() {
    const std::lock_guard lock(mutex_);
    std::vector<std::shared_ptr<WindowsChild>> ending;
    for (const std::weak_ptr<WindowsChild>& known : children_) {
      std::shared_ptr<WindowsChild> child = known.lock();
      if (child && child->RequestEnd()) ending.push_back(std::move(child));
    }
    const Child::Clock::time_point last_moment = Child::Clock::now() + std::chrono::seconds(2);
    for (const auto& child : ending) child->WaitUntilGone(last_moment);
  }

 private:
  Mutex mutex_;
  std::vector<std::weak_ptr<WindowsChild>> children_;
};

StartedChildren& Started() {
  static StartedChildren started;
  return started;
}

class WindowsProcess : public Process {
 public:
  explicit WindowsProcess(HANDLE process) : process_(process) {}

  // WaitForInputIdle fails for programs without windows. These count as not ready.
  bool Wait(int milliseconds, bool wait_for_idle) override {
    const DWORD limit = milliseconds >= 1 ? static_cast<DWORD>(milliseconds) : INFINITE;
    return (wait_for_idle ? WaitForInputIdle(process_.get(), limit) : WaitForSingleObject(process_.get(), limit)) == 0;
  }

 private:
  OwnedHandle process_;
};

// Starts a native command line. Both standard handles must be inheritable. `pipe` is the end from which the output is
// read.
Result<std::shared_ptr<Child>> Start(std::string line, HANDLE input, HANDLE output, OwnedHandle pipe) {
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESHOWWINDOW | STARTF_USESTDHANDLES;
  startup.wShowWindow = SW_HIDE;
  startup.hStdInput = input;
  startup.hStdOutput = output;
  startup.hStdError = output;
  OwnedHandle job = MakeJob();
  // Windows 95 to Me cannot start a program without a window. There the program gets a console of its own, which
  // STARTUPINFO hides. A program that gets a job must not start anything before it is in the job, so it starts
  // suspended.
  const DWORD window = IsNtFamily() ? CREATE_NO_WINDOW : CREATE_NEW_CONSOLE;
  const DWORD flags = window | (job.valid() ? CREATE_SUSPENDED : 0);
  PROCESS_INFORMATION started{};
  const Status status = StatusOfResult(
      CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, flags, nullptr, nullptr, &startup, &started));
  if (!status.ok()) return status;
  const OwnedHandle thread(started.hThread);
  if (job.valid()) {
    if (!PutIntoJob(job, started.hProcess)) job.Close();
    ResumeThread(thread.get());
  }
  const auto child = std::make_shared<WindowsChild>(started, std::move(job), std::move(pipe));
  Started().Add(child);
  return child;
}

}  // namespace

Result<std::shared_ptr<Child>> StartCaptured(std::string_view command_line) {
  const std::optional<std::string> native = CodePageBytes(command_line);
  if (!native) return NameNotInCodePage();
  SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
  HANDLE reading = nullptr;
  HANDLE writing = nullptr;
  constexpr DWORD kRoom = 65536;  // bytes; so much that a program seldom waits for its reader
  if (CreatePipe(&reading, &writing, &inherited, kRoom) == 0) return LastFailure();
  const OwnedHandle output(writing);
  // The program must not inherit the reading end. Otherwise, when this program has ended, it would wait for ever on a
  // full pipe.
  HANDLE own = nullptr;
  const HANDLE self = GetCurrentProcess();
  DuplicateHandle(self, reading, self, &own, 0, FALSE, DUPLICATE_SAME_ACCESS | DUPLICATE_CLOSE_SOURCE);
  const OwnedHandle input(
      CreateFileA("NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0, nullptr));
  Result<std::shared_ptr<Child>> child = Start(RunnableLine(*native), input.get(), output.get(), OwnedHandle(own));
  if (!child.ok()) child.status.cause.append(": ").append(LeadingParts(command_line).front().program);
  return child;
}

void EndStartedPrograms() { Started().End(); }

std::unique_ptr<Process> StartUncaptured(std::string_view command_line, int window_style, int creation_flags) {
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

// Paths with blanks are not quoted: Windows looks for the shortest leading part that names a file, and the program
// takes all text after its option as one path.
std::optional<std::string> WindowsProgramLine(std::string_view program, std::string_view option,
                                              std::string_view path) {
  return std::string(program).append(" ").append(option).append(path);
}

}  // namespace discwright::host
