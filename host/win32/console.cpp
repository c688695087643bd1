// Sleeping, waking, Ctrl-C and the console.
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

// The event that is set while the flag is; there as long as the program runs.
HANDLE WakeEvent() {
  static const HANDLE event = CreateEventA(nullptr, FALSE, FALSE, nullptr);
  return event;
}

// On a thread of the system's own.
BOOL WINAPI OnInterrupt(DWORD event) {
  if (++interrupts > 1) {
    EndStartedPrograms();
    // ExitProcess might wait for what the threads of the program hold.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exit_code_of_second.load()));
  }
  SetWakeUp();
  // A closed window or a logoff ends the program as soon as this returns. Until then it can end by itself.
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
  WakeEvent();  // made here, not by two threads at once
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

// No console before Windows 10 knows escape sequences.
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
