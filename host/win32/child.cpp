// Starts, watches and ends processes.
#include "host/win32/child.h"

#include <array>
#include <cstdio>
#include <mutex>

#include "host/threads.h"
#include "host/win32/errors.h"
#include "host/win32/process_tree.h"
#include "host/win32/windows_version.h"

namespace discwright::host {
namespace {

constexpr DWORD kEndedByUs = 0xC000013A;  // what the system gives a program that Ctrl-C ends

// Of an exception that nobody caught the system makes such an exit code.
bool IsException(DWORD exit_code) { return exit_code >> 28 == 0xC; }

// A copy of a handle that programs started next inherit.
OwnedHandle Inheritable(const OwnedHandle& handle) {
  HANDLE copy = nullptr;
  const HANDLE self = GetCurrentProcess();
  DuplicateHandle(self, handle.get(), self, &copy, 0, TRUE, DUPLICATE_SAME_ACCESS);
  return OwnedHandle(copy);
}

// A pipe's two ends, neither inherited.
bool MakePipe(OwnedHandle& read_end, OwnedHandle& write_end) {
  constexpr DWORD kRoom = 65536;  // bytes; a program that writes much seldom waits for its reader
  HANDLE reading = nullptr;
  HANDLE writing = nullptr;
  if (CreatePipe(&reading, &writing, nullptr, kRoom) == 0) return false;
  read_end = OwnedHandle(reading);
  write_end = OwnedHandle(writing);
  return true;
}

// None on systems without jobs: Windows 95 to Me, and NT 4.
OwnedHandle MakeJob() {
  static auto* const create = NewerCall<decltype(CreateJobObjectA)>("kernel32.dll", "CreateJobObjectA");
  return OwnedHandle(create == nullptr || !IsNtFamily() ? nullptr : create(nullptr, nullptr));
}

// Whether the process is in the job now; not where this program itself is in one that cannot be divided.
bool PutIntoJob(const OwnedHandle& job, HANDLE process) {
  static auto* const assign = NewerCall<decltype(AssignProcessToJobObject)>("kernel32.dll", "AssignProcessToJobObject");
  return assign != nullptr && assign(job.get(), process) != 0;
}

// Windows 95 to Me know no program without a window: there it gets a console of its own, and the start-up record hides
// that.
DWORD CreationFlags(bool has_job) {
  const DWORD window = IsNtFamily() ? CREATE_NO_WINDOW : CREATE_NEW_CONSOLE;
  // It must not start anything before it is in its job.
  return window | (has_job ? CREATE_SUSPENDED : 0);
}

// Ends what a program that was just ended has left; what it was starting at that moment is only seen by another look.
void TerminateDescendants(DWORD id) {
  constexpr int kLooks = 3;
  for (int look = 0; look < kLooks; ++look) {
    for (const DWORD descendant : DescendantsOf(id)) {
      const OwnedHandle process(OpenProcess(PROCESS_TERMINATE, FALSE, descendant));
      if (process.valid()) TerminateProcess(process.get(), kEndedByUs);
    }
  }
}

}  // namespace

std::shared_ptr<Child> Child::Start(std::string command_line, OwnedHandle& output, Status& status) {
  // No other program that is started at the same time may inherit this one's end of the pipe.
  static Mutex starting;
  const std::lock_guard lock(starting);
  OwnedHandle write_end;
  if (!MakePipe(output, write_end)) {
    status = LastFailure();
    return nullptr;
  }
  const OwnedHandle nothing(
      CreateFileA("NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
  const OwnedHandle in = Inheritable(nothing);
  const OwnedHandle out = Inheritable(write_end);
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESHOWWINDOW | STARTF_USESTDHANDLES;
  startup.wShowWindow = SW_HIDE;
  startup.hStdInput = in.get();
  startup.hStdOutput = out.get();
  startup.hStdError = out.get();
  OwnedHandle job = MakeJob();
  PROCESS_INFORMATION started{};
  const BOOL result = CreateProcessA(nullptr, command_line.data(), nullptr, nullptr, TRUE, CreationFlags(job.valid()),
                                     nullptr, nullptr, &startup, &started);
  status = StatusOfResult(result);
  if (result == 0) return nullptr;
  const OwnedHandle thread(started.hThread);
  if (job.valid()) {
    if (!PutIntoJob(job, started.hProcess)) job.Close();
    ResumeThread(thread.get());
  }
  return std::make_shared<Child>(started, std::move(job));
}

bool Child::WaitForEnd(DWORD milliseconds) const {
  return WaitForSingleObject(process_.get(), milliseconds) == WAIT_OBJECT_0;
}

ProcessEnd Child::End() const {
  DWORD code = 0;
  GetExitCodeProcess(process_.get(), &code);
  if (code == kEndedByUs) return {0, "Ctrl-C"};
  if (!IsException(code)) return {static_cast<int>(code), ""};
  std::array<char, 32> name{};
  std::snprintf(name.data(), name.size(), "exception %08lX", static_cast<unsigned long>(code));
  return {0, name.data()};
}

bool Child::Terminate() const {
  static auto* const terminate_job = NewerCall<decltype(TerminateJobObject)>("kernel32.dll", "TerminateJobObject");
  if (WaitForEnd(0)) return false;
  if (job_.valid() && terminate_job(job_.get(), kEndedByUs) != 0) return true;
  // The program itself first: a script would go on with its next line when what it runs ends.
  TerminateProcess(process_.get(), kEndedByUs);
  TerminateDescendants(id_);
  return true;
}

}  // namespace discwright::host
