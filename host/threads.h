// Provides threads, locks and conditions, but no more than the program needs. Use these classes instead of those of the
// C++ library, which for Windows has none that run on every Windows.
#pragma once

#include <functional>
#include <memory>

namespace discwright::host {

// Protects data. Hold it through std::lock_guard or std::unique_lock. Not recursive.
class Mutex {
 public:
  Mutex();
  ~Mutex();
  Mutex(const Mutex&) = delete;
  Mutex& operator=(const Mutex&) = delete;
  void lock();
  void unlock();

 private:
  friend class Condition;
  struct State;
  std::unique_ptr<State> state_;
};

// Lets threads wait until data that a mutex protects has changed. A wait may also end without a notification, so wait
// in a loop.
class Condition {
 public:
  Condition();
  ~Condition();
  Condition(const Condition&) = delete;
  Condition& operator=(const Condition&) = delete;

  // The caller must hold `mutex`. It is released during the wait.
  void Wait(Mutex& mutex);
  // Like Wait, but for at most this many milliseconds. Returns false when the time is over.
  bool WaitFor(Mutex& mutex, int milliseconds);
  void NotifyOne();
  void NotifyAll();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

class Thread {
 public:
  Thread();  // creates no thread
  // Starts the thread at once. Throws std::system_error when the system cannot start another thread.
  explicit Thread(std::function<void()> work);
  Thread(Thread&& other) noexcept;
  Thread& operator=(Thread&& other) noexcept;
  ~Thread();  // Join or Detach must have been called before

  void Join();    // waits until the work is done
  void Detach();  // the thread goes on by itself

 private:
  struct State;
  std::unique_ptr<State> state_;
};

unsigned ProcessorCount();  // at least 1

}  // namespace discwright::host
