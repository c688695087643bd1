// The functions that the compiler and its headers call by themselves. There is no C library in the loader.
#include <cstddef>
#include <cstdint>

// The instructions of the processor are used, because the compiler would turn a loop into a call of the same function.
extern "C" {

void* memset(void* to, int value, std::size_t size);
void* memcpy(void* to, const void* from, std::size_t size);
void* memmove(void* to, const void* from, std::size_t size);
int memcmp(const void* left, const void* right, std::size_t size);
const void* memchr(const void* in, int value, std::size_t size);
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

const void* memchr(const void* in, int value, std::size_t size) {
  const auto* byte = static_cast<const std::uint8_t*>(in);
  for (const std::uint8_t* end = byte + size; byte != end; ++byte) {
    if (*byte == static_cast<std::uint8_t>(value)) return byte;
  }
  return nullptr;
}

std::size_t strlen(const char* text) {
  std::size_t left = SIZE_MAX;
  __asm__ volatile("repne scasb" : "+D"(text), "+c"(left) : "a"(0) : "memory");
  return SIZE_MAX - left - 1;
}

}  // extern "C"
