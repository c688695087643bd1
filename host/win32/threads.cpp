// Implements threads, locks and conditions with critical sections, semaphores and threads of the system, which every
// Windows since 95 has.
#include "host/threads.h"

#include <process.h>
#include <windows.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <system_error>
#include <utility>

namespace discwright::host {

struct Mutex::State {
  CRITICAL_SECTION section;
};

Mutex::Mutex() : state_(std::make_unique<State>()) { InitializeCriticalSection(&state_->section); }
Mutex::~Mutex() { DeleteCriticalSection(&state_->section); }
void Mutex::lock() { EnterCriticalSection(&state_->section); }
void Mutex::unlock() { LeaveCriticalSection(&state_->section); }

// The condition counts the waiting threads under its own lock. A notification takes one thread off the count and
// releases the semaphore once. So no notification is lost, and none is kept for a thread that comes later.
struct Condition::State {
  CRITICAL_SECTION section;
  HANDLE semaphore = nullptr;
  int waiting = 0;
};

Condition::Condition() : state_(std::make_unique<State>()) {
  InitializeCriticalSection(&state_->section);
  state_->semaphore = CreateSemaphoreA(nullptr, 0, LONG_MAX, nullptr);
  if (state_->semaphore == nullptr)
    throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
}

Condition::~Condition() {
  CloseHandle(state_->semaphore);
  DeleteCriticalSection(&state_->section);
}

void Condition::Wait(Mutex& mutex) { WaitFor(mutex, -1); }

bool Condition::WaitFor(Mutex& mutex, int milliseconds) {
  EnterCriticalSection(&state_->section);
  ++state_->waiting;
  LeaveCriticalSection(&state_->section);
  mutex.unlock();
  const DWORD limit = milliseconds < 0 ? INFINITE : static_cast<DWORD>(milliseconds);
  bool noticed = WaitForSingleObject(state_->semaphore, limit) == WAIT_OBJECT_0;
  if (!noticed) {
    EnterCriticalSection(&state_->section);
    // A notification may have come after the time was over. Then this thread must take its release of the semaphore.
    if (WaitForSingleObject(state_->semaphore, 0) == WAIT_OBJECT_0) {
      noticed = true;
    } else {
      --state_->waiting;
    }
    LeaveCriticalSection(&state_->section);
  }
  mutex.lock();
  return noticed;
}

void Condition::NotifyOne() {
  EnterCriticalSection(&state_->section);
  if (state_->waiting > 0) {
    --state_->waiting;
    ReleaseSemaphore(state_->semaphore, 1, nullptr);
  }
  LeaveCriticalSection(&state_->section);
}

void Condition::NotifyAll() {
  EnterCriticalSection(&state_->section);
  if (state_->waiting > 0) ReleaseSemaphore(state_->semaphore, state_->waiting, nullptr);
  state_->waiting = 0;
  LeaveCriticalSection(&state_->section);
}

namespace {

unsigned __stdcall RunThread(void* argument) {
  const std::unique_ptr<std::function<void()>> work(static_cast<std::function<void()>*>(argument));
  (*work)();
  return 0;
}

}  // namespace

struct Thread::State {
  HANDLE handle = nullptr;
};

Thread::Thread(std::function<void()> work) : state_(std::make_unique<State>()) {
  auto own = std::make_unique<std::function<void()>>(std::move(work));
  unsigned id = 0;  // Windows 95 does not accept a null pointer for it
  // _beginthreadex is the C library's own call. It prepares the data that the library keeps for each thread.
  const std::uintptr_t handle = _beginthreadex(nullptr, 0, RunThread, own.get(), 0, &id);
  state_->handle = reinterpret_cast<HANDLE>(handle);  // NOLINT(performance-no-int-to-ptr): the call returns a number
  if (state_->handle == nullptr)
    throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
  static_cast<void>(own.release());
}

Thread::Thread() = default;
Thread::Thread(Thread&& other) noexcept = default;
Thread& Thread::operator=(Thread&& other) noexcept = default;
Thread::~Thread() = default;

void Thread::Join() {
  WaitForSingleObject(state_->handle, INFINITE);
  Detach();
}

void Thread::Detach() {
  CloseHandle(state_->handle);
  state_->handle = nullptr;
}

unsigned ProcessorCount() {
  SYSTEM_INFO facts{};
  GetSystemInfo(&facts);
  return std::max<unsigned>(1, facts.dwNumberOfProcessors);
}

}  // namespace discwright::host
