// Implements calls that the compiler's runtime imports, but that are missing or always fail on Windows 95 and 98. They
// are made from older calls.
//
// The runtime makes these calls through pointers with the names below. The linker takes such a pointer from an import
// library only when no object file defines it. Each function does only what the runtime needs.
#include <sys/stat.h>
#include <windows.h>

#include <array>

#ifdef _WIN64
#define POINTER_TO(name, size) __asm__("__imp_" name)
#else
#define POINTER_TO(name, size) __asm__("__imp__" name size)
#endif

namespace discwright::host {
namespace {

// Converts the name of a library, which is plain ASCII.
class NarrowName {
 public:
  explicit NarrowName(const wchar_t* wide) : is_null_(wide == nullptr) {
    for (std::size_t i = 0; !is_null_ && i + 1 < text_.size() && wide[i] != 0; ++i)
      text_[i] = static_cast<char>(wide[i]);
  }
  const char* get() const { return is_null_ ? nullptr : text_.data(); }

 private:
  std::array<char, MAX_PATH> text_{};
  bool is_null_;
};

HMODULE WINAPI ModuleHandle(const wchar_t* name) { return GetModuleHandleA(NarrowName(name).get()); }

HMODULE WINAPI Load(const wchar_t* name) { return LoadLibraryA(NarrowName(name).get()); }

// The runtime asks for the library to which a thread's objects belong, to keep it loaded. Here this is the program
// itself, which always stays loaded. The runtime releases nothing when it gets null.
BOOL WINAPI ModuleOfAddress(DWORD, const wchar_t*, HMODULE* module) {
  *module = nullptr;
  return TRUE;
}

// The runtime's semaphores have no names. If this call failed, every lock that two threads want at once would fail.
HANDLE WINAPI Semaphore(SECURITY_ATTRIBUTES* security, LONG first, LONG most, const wchar_t*) {
  return CreateSemaphoreA(security, first, most, nullptr);
}

#ifndef _WIN64  // every 64-bit Windows has it
// The C++ streams ask for the size of a file with this call.
int __cdecl FileFacts(int file, struct _stat64* facts) {
  struct _stati64 old {};
  const int result = _fstati64(file, &old);
  if (result != 0) return result;
  *facts = {};
  facts->st_dev = old.st_dev;
  facts->st_mode = old.st_mode;
  facts->st_nlink = old.st_nlink;
  facts->st_rdev = old.st_rdev;
  facts->st_size = old.st_size;
  facts->st_atime = old.st_atime;
  facts->st_mtime = old.st_mtime;
  facts->st_ctime = old.st_ctime;
  return 0;
}
#endif

}  // namespace

extern "C" {
extern decltype(&ModuleHandle) const get_module_handle POINTER_TO("GetModuleHandleW", "@4");
extern decltype(&ModuleOfAddress) const get_module_handle_ex POINTER_TO("GetModuleHandleExW", "@12");
extern decltype(&Load) const load_library POINTER_TO("LoadLibraryW", "@4");
extern decltype(&Semaphore) const create_semaphore POINTER_TO("CreateSemaphoreW", "@16");

decltype(&ModuleHandle) const get_module_handle = ModuleHandle;
decltype(&ModuleOfAddress) const get_module_handle_ex = ModuleOfAddress;
decltype(&Load) const load_library = Load;
decltype(&Semaphore) const create_semaphore = Semaphore;

#ifndef _WIN64
extern decltype(&FileFacts) const fstat_64 POINTER_TO("_fstat64", "");
decltype(&FileFacts) const fstat_64 = FileFacts;
#endif
}

}  // namespace discwright::host
