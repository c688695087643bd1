// Runs lines in the shell of the Linux that runs Wine. Wine can start the shell but cannot wait for its end, so the
// shell makes a file "end" when it has ended.
#include "tests/support/shell.h"

#include <windows.h>

#include <fstream>
#include <iterator>
#include <random>

namespace discwright::testing {
namespace {

namespace fs = std::filesystem;
using UnixName = char* CDECL(const WCHAR* name);

UnixName* WineUnixName() {
  static UnixName* const unix_name = reinterpret_cast<UnixName*>(
      reinterpret_cast<void (*)()>(GetProcAddress(GetModuleHandleA("kernel32.dll"), "wine_get_unix_file_name")));
  return unix_name;
}

std::string UnixPath(const fs::path& path) {
  char* const name = WineUnixName()(path.c_str());
  if (name == nullptr) return "";
  const std::string copy = name;
  HeapFree(GetProcessHeap(), 0, name);
  return copy;
}

std::string ReadAll(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool StartShell(const fs::path& script) {
  const std::string line = "sh \"" + UnixPath(script) + "\"";
  // The path is in UTF-8, which is not the code page of the narrow calls. So this uses the wide ones.
  std::wstring command = fs::path(std::u8string(line.begin(), line.end())).wstring();
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started{};
  return CreateProcessW(L"\\\\?\\unix\\bin\\sh", command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &started) != 0;
}

}  // namespace

bool HasShell() { return WineUnixName() != nullptr; }

ShellEnd RunShell(const std::string& line) {
  const fs::path folder = fs::temp_directory_path() / ("shell " + std::to_string(std::random_device()()));
  fs::create_directory(folder);
  const std::string place = Quote(UnixPath(folder));
  std::ofstream(folder / "line", std::ios::binary)
      << "cd " << place << "\n( " << line << "\n) >output 2>&1\necho $? >code\nmv code end\n";
  ShellEnd end;
  if (StartShell(folder / "line")) {
    while (!fs::exists(folder / "end")) Sleep(2);
    end.exit_code = std::stoi(ReadAll(folder / "end"));
    end.output = ReadAll(folder / "output");
  }
  fs::remove_all(folder);
  return end;
}

std::string ShellPath(const fs::path& path) { return Quote(UnixPath(path)); }
std::string ShellProgram(const fs::path& program) { return "wine " + ShellPath(program); }

}  // namespace discwright::testing
