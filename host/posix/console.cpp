// Waits, handles Ctrl-C, and writes to the terminal.
#include "host/console.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>

#include "host/child.h"

namespace discwright::host {
namespace {

using Clock = std::chrono::steady_clock;

static_assert(std::atomic<int>::is_always_lock_free, "a signal handler counts with it");
std::atomic<int> interrupts = 0;
std::atomic<int> exit_code_of_second = 0;

// The descriptor that is readable while the wake-up flag is set. It stays open until the program ends.
int WakeFd() {
  static const int fd = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  return fd;
}

void OnInterrupt(int) {
  const int error = errno;
  if (++interrupts > 1) {
    EndStartedPrograms();
    _exit(exit_code_of_second);
  }
  SetWakeUp();
  errno = error;
}

int MillisecondsUntil(Clock::time_point end) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
  return static_cast<int>(std::max<std::int64_t>(left, 0));
}

}  // namespace

void SetWakeUp() {
  const std::uint64_t one = 1;
  // The call fails only after a very large number of calls without a wait, and the flag is set then, too.
  [[maybe_unused]] const ssize_t written = write(WakeFd(), &one, sizeof one);
}

void WaitForWakeUp(int milliseconds) {
  const auto end = Clock::now() + std::chrono::milliseconds(std::max(milliseconds, 0));
  pollfd waiting{WakeFd(), POLLIN, 0};
  // A signal that does not set the flag, for example for a resized terminal, must not end the wait.
  while (poll(&waiting, 1, MillisecondsUntil(end)) < 0 && errno == EINTR) {
  }
  std::uint64_t count = 0;
  [[maybe_unused]] const ssize_t got = read(WakeFd(), &count, sizeof count);
}

void CatchInterrupts(int exit_code) {
  exit_code_of_second = exit_code;
  WakeFd();  // created here, because the signal handler must not create it
  struct sigaction action {};
  action.sa_handler = OnInterrupt;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
}

int InterruptCount() { return interrupts; }

bool StandardErrorIsTerminal() { return isatty(STDERR_FILENO) == 1; }

int TerminalWidth() {
  winsize size{};
  const bool known = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : 80;
}

void EraseRestOfLine() { Print(Stream::kError, "\x1b[K"); }

void Print(Stream stream, std::string_view text) {
  std::FILE* const file = stream == Stream::kOutput ? stdout : stderr;
  std::fwrite(text.data(), 1, text.size(), file);
  std::fflush(file);
}

}  // namespace discwright::host
