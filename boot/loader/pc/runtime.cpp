// The functions of the C library that the compiler and the headers of C++ call by themselves. There is no C library in
// the loader.
#include <cstddef>
#include <cstdint>

// The instructions of the processor are used, because the compiler would turn a loop into a call of the same function.
extern "C" {

void* memset(void* to, int value, std::size_t size);
void* memcpy(void* to, const void* from, std::size_t size);
void* memmove(void* to, const void* from, std::size_t size);
int memcmp(const void* left, const void* right, std::size_t size);
std::size_t strlen(const char* text);

void* memset(void* to, int value, std::size_t size) {
  void* at = to;
  __asm__ volatile("rep stosb" : "+D"(at), "+c"(size) : "a"(value) : "memory");
  return to;
}

void* memcpy(void* to, const void* from, std::size_t size) {
  void* at = to;
  std::size_t words = size / 4;
  __asm__ volatile("rep movsl" : "+D"(at), "+S"(from), "+c"(words) : : "memory");
  std::size_t bytes = size % 4;
  __asm__ volatile("rep movsb" : "+D"(at), "+S"(from), "+c"(bytes) : : "memory");
  return to;
}

void* memmove(void* to, const void* from, std::size_t size) {
  if (reinterpret_cast<std::uintptr_t>(to) <= reinterpret_cast<std::uintptr_t>(from) || size == 0) {
    return memcpy(to, from, size);
  }
  void* last = static_cast<std::uint8_t*>(to) + size - 1;
  const void* last_from = static_cast<const std::uint8_t*>(from) + size - 1;
  __asm__ volatile("std\n\trep movsb\n\tcld" : "+D"(last), "+S"(last_from), "+c"(size) : : "memory");
  return to;
}

int memcmp(const void* left, const void* right, std::size_t size) {
  const auto* one = static_cast<const std::uint8_t*>(left);
  const auto* other = static_cast<const std::uint8_t*>(right);
  for (std::size_t at = 0; at < size; ++at) {
    if (one[at] != other[at]) return one[at] < other[at] ? -1 : 1;
  }
  return 0;
}

std::size_t strlen(const char* text) {
  std::size_t size = 0;
  while (text[size] != '\0') ++size;
  return size;
}

}  // extern "C"
