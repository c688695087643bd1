// A program that keeps a file open, so that no other program can open it. Run "hold_file.exe FILE READY STOP": it makes
// the file READY once FILE is open, and ends when the file STOP exists.
#include <windows.h>

#include <fstream>

int main(int count, char** arguments) {
  if (count != 4) return 1;
  const HANDLE held = CreateFileA(arguments[1], GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  if (held == INVALID_HANDLE_VALUE) return 2;
  std::ofstream(arguments[2]) << "ready";
  while (GetFileAttributesA(arguments[3]) == INVALID_FILE_ATTRIBUTES) Sleep(20);
  CloseHandle(held);
  return 0;
}
