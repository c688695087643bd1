// Implements threads, locks and conditions with those of the C++ library.
#include "host/threads.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace discwright::host {

struct Mutex::State {
  std::mutex mutex;
};

Mutex::Mutex() : state_(std::make_unique<State>()) {}
Mutex::~Mutex() = default;
void Mutex::lock() { state_->mutex.lock(); }
void Mutex::unlock() { state_->mutex.unlock(); }

struct Condition::State {
  std::condition_variable condition;
};

Condition::Condition() : state_(std::make_unique<State>()) {}
Condition::~Condition() = default;

void Condition::Wait(Mutex& mutex) {
  std::unique_lock lock(mutex.state_->mutex, std::adopt_lock);
  state_->condition.wait(lock);
  lock.release();
}

bool Condition::WaitFor(Mutex& mutex, int milliseconds) {
  std::unique_lock lock(mutex.state_->mutex, std::adopt_lock);
  const std::cv_status status = state_->condition.wait_for(lock, std::chrono::milliseconds(milliseconds));
  lock.release();
  return status == std::cv_status::no_timeout;
}

void Condition::NotifyOne() { state_->condition.notify_one(); }
void Condition::NotifyAll() { state_->condition.notify_all(); }

struct Thread::State {
  std::thread thread;
};

Thread::Thread(std::function<void()> work) : state_(std::make_unique<State>()) {
  state_->thread = std::thread(std::move(work));  // last, so that no running thread is lost for lack of memory
}
Thread::Thread() = default;
Thread::Thread(Thread&& other) noexcept = default;
Thread& Thread::operator=(Thread&& other) noexcept = default;
Thread::~Thread() = default;
void Thread::Join() { state_->thread.join(); }
void Thread::Detach() { state_->thread.detach(); }

unsigned ProcessorCount() { return std::max(1u, std::thread::hardware_concurrency()); }

}  // namespace discwright::host
