// Threads, locks and conditions, as few as the program needs: the C++ library for Windows has none that would run on
// every Windows.
#pragma once

#include <functional>
#include <memory>

namespace discwright::host {

// Guards data; to be held through std::lock_guard or std::unique_lock. Not recursive.
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

// Lets threads wait for a change of what a mutex guards. It may wake without one: wait in a loop.
class Condition {
 public:
  Condition();
  ~Condition();
  Condition(const Condition&) = delete;
  Condition& operator=(const Condition&) = delete;

  // Called with `mutex` held; lets go of it while waiting.
  void Wait(Mutex& mutex);
  // The same for at most so many milliseconds; false when they are over.
  bool WaitFor(Mutex& mutex, int milliseconds);
  void NotifyOne();
  void NotifyAll();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

class Thread {
 public:
  Thread();  // none
  // Starts at once. Throws std::system_error when the system has no thread left.
  explicit Thread(std::function<void()> work);
  Thread(Thread&& other) noexcept;
  Thread& operator=(Thread&& other) noexcept;
  ~Thread();  // joined or detached before

  void Join();    // returns when the work is done
  void Detach();  // it goes on by itself

 private:
  struct State;
  std::unique_ptr<State> state_;
};

unsigned ProcessorCount();  // at least 1

}  // namespace discwright::host
