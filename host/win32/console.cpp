// Waits, handles Ctrl-C, and writes to the console.
#include "host/console.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <string>

#include "host/child.h"
#include "host/win32/native_text.h"

namespace discwright::host {
namespace {

std::atomic<int> interrupts = 0;
std::atomic<int> exit_code_of_second = 0;

// The event that is set while the wake-up flag is set. It exists until the program ends.
HANDLE WakeEvent() {
  static const HANDLE event = CreateEventA(nullptr, FALSE, FALSE, nullptr);
  return event;
}

// The system calls this function on a thread of its own.
BOOL WINAPI OnInterrupt(DWORD event) {
  if (++interrupts > 1) {
    EndStartedPrograms();
    // ExitProcess could wait for a lock that another thread of the program holds.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exit_code_of_second.load()));
  }
  SetWakeUp();
  // After a closed window or a logoff, the system ends the program as soon as this function returns. So it does not
  // return, and the program can end by itself.
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
  return TRUE;
}

bool IsConsole(HANDLE handle) {
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != 0;
}

}  // namespace

void SetWakeUp() { SetEvent(WakeEvent()); }

void WaitForWakeUp(int milliseconds) {
  WaitForSingleObject(WakeEvent(), static_cast<DWORD>(std::max(milliseconds, 0)));
}

void CatchInterrupts(int exit_code) {
  exit_code_of_second = exit_code;
  WakeEvent();  // created here, so that two threads cannot create it at once
  static const BOOL caught = SetConsoleCtrlHandler(OnInterrupt, TRUE);
  static_cast<void>(caught);
}

int InterruptCount() { return interrupts; }

bool StandardErrorIsTerminal() { return IsConsole(GetStdHandle(STD_ERROR_HANDLE)); }

int TerminalWidth() {
  CONSOLE_SCREEN_BUFFER_INFO facts{};
  const bool known = GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &facts) != 0;
  const int width = facts.srWindow.Right - facts.srWindow.Left + 1;
  return known && width > 0 ? width : 80;
}

// This writes blanks, because no console before Windows 10 supports escape sequences.
void EraseRestOfLine() {
  const HANDLE console = GetStdHandle(STD_ERROR_HANDLE);
  CONSOLE_SCREEN_BUFFER_INFO facts{};
  if (GetConsoleScreenBufferInfo(console, &facts) == 0) return;
  const int rest = facts.dwSize.X - facts.dwCursorPosition.X;
  DWORD written = 0;
  FillConsoleOutputCharacterA(console, ' ', static_cast<DWORD>(std::max(rest, 0)), facts.dwCursorPosition, &written);
}

void Print(Stream stream, std::string_view text) {
  const bool is_output = stream == Stream::kOutput;
  std::FILE* const file = is_output ? stdout : stderr;
  const bool is_console = IsConsole(GetStdHandle(is_output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE));
  const std::string native = NearestInCodePage(text, is_console ? GetConsoleOutputCP() : CP_ACP);
  std::fwrite(native.data(), 1, native.size(), file);
  std::fflush(file);
}

}  // namespace discwright::host
