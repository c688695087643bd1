// The child programs of tests/host/child_program.h: the test program itself, started with other arguments. It plays its
// part and ends before GoogleTest begins.
#include "tests/host/child_program.h"

#include <gtest/gtest.h>
#include <windows.h>
// After it, because it needs its types.
#include <tlhelp32.h>

#include <array>
#include <cstdlib>
#include <fstream>

#include "host/native_text.h"
#include "host/script.h"

namespace discwright::host::testing {
namespace {

constexpr const char* kMark = " --as-child ";

void Say(const std::string& text) {
  DWORD written = 0;
  WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

bool CanSay(const std::string& text) {
  DWORD written = 0;
  return WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written, nullptr) !=
         0;
}

bool IsThere(const std::string& path) { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

// Also ends when the test and its folder are gone.
void WaitFor(const std::string& file) {
  const std::string folder = file.substr(0, file.find_last_of("\\/"));
  while (IsThere(folder) && !IsThere(file)) Sleep(20);
}

void Make(const std::string& file) { std::ofstream(file.c_str()) << "x"; }

// In the ANSI code page, as the system's calls take it.
std::string NativeLine(const std::string& what) {
  std::array<char, MAX_PATH> path{};
  GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
  return "\"" + std::string(path.data()) + "\"" + kMark + what;
}

PROCESS_INFORMATION StartAnother(const std::string& what) {
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION started{};
  std::string line = NativeLine(what);
  CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &started);
  return started;
}

void SayLines(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) text += "line " + std::to_string(i) + "\n";
  Say(text);
}

std::string CountInput() {
  std::array<char, 100> bytes{};
  DWORD got = 0;
  ReadFile(GetStdHandle(STD_INPUT_HANDLE), bytes.data(), 100, &got, nullptr);
  return std::to_string(got) + " bytes";
}

void MakeNoise(const std::string& file) {
  Sleep(50);
  for (int i = 0; i < 20000; ++i) {
    if (!CanSay("") || !CanSay("noise noise noise\n")) return;
  }
  Make(file);
}

int Play(const std::string& part, const std::string& word) {
  const int number = std::atoi(word.c_str());
  if (part == "lines") SayLines(number);
  if (part == "mass") Say(std::string(static_cast<std::size_t>(number), 'x'));
  if (part == "say") Say(word);
  if (part == "bytes") Say("J\xFCrgen\r\n");
  if (part == "input") Say(CountInput());
  if (part == "console")
    Say(GetConsoleWindow() == nullptr ? "none" : IsWindowVisible(GetConsoleWindow()) ? "seen" : "hidden");
  if (part == "ask") Say("question");
  if (part == "close") CloseHandle(GetStdHandle(STD_OUTPUT_HANDLE));
  if (part == "wait" || part == "ask" || part == "close") {
    WaitFor(word);
    return 7;
  }
  if (part == "start" || part == "leave") {
    const PROCESS_INFORMATION started = StartAnother("wait " + word);
    Say(std::to_string(started.dwProcessId) + "\n");
    if (part == "start") WaitForSingleObject(started.hProcess, INFINITE);
  }
  if (part == "noise") StartAnother("make-noise " + word);
  if (part == "make-noise") MakeNoise(word);
  if (part == "late") {
    Sleep(100);
    Make(word);
  }
  if (part == "crash") RaiseException(EXCEPTION_ACCESS_VIOLATION, 0, 0, nullptr);
  return part == "exit" ? number : 0;
}

const bool kIsTests = [] {
  const std::string line = GetCommandLineA();
  const std::size_t mark = line.find(kMark);
  if (mark == line.npos) return true;
  SetErrorMode(SEM_NOGPFAULTERRORBOX);
  const std::string rest = line.substr(mark + std::string(kMark).size());
  const std::size_t blank = rest.find(' ');
  const std::string word = blank == rest.npos ? "" : rest.substr(blank + 1);
  ExitProcess(static_cast<UINT>(Play(rest.substr(0, blank), word)));
}();

}  // namespace

const std::string_view kCrash = "exception C0000005";
const std::string_view kEndedByUs = "Ctrl-C";

std::string ChildProgram(const std::string& what) { return TextOfCodePage(NativeLine(what)); }

std::string BatchFileBytes(const std::vector<std::string>& lines) {
  std::string text = "@echo off\r\n";
  for (const std::string& line : lines) text += line + "\r\n";
  const Result<std::string> bytes = ScriptBytes(text);  // the tests' own path in the text may have umlauts
  EXPECT_TRUE(bytes.ok());
  return bytes.value;
}

std::vector<std::string> AwkwardNames() {
  return {"with blank", "a & b", "100%", "(brackets)", "semi;colon, comma", "it's", "caret^", "Größe"};
}

void AddRubbishProgram(const TempFolder& folder, std::string_view name) { folder.Write(name, "\x01\x02\x03\x04"); }

bool IsAlive(int id) {
  const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(id));
  if (process == nullptr) return false;
  const bool is_alive = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
  CloseHandle(process);
  return is_alive;
}

int ThreadsOfThisProgram() {
  const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 thread{};
  thread.dwSize = sizeof(thread);
  int count = 0;
  for (BOOL is_there = Thread32First(snapshot, &thread); is_there != 0; is_there = Thread32Next(snapshot, &thread)) {
    if (thread.th32OwnerProcessID == GetCurrentProcessId()) ++count;
  }
  CloseHandle(snapshot);
  return count;
}

bool HasChildren() { return false; }

}  // namespace discwright::host::testing
