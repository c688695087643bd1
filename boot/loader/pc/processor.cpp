// Asks the processor by its instruction CPUID, which a 386 and most 486 lack.
#include "boot/loader/pc/processor.h"

#include <cstdint>

namespace discwright::loader {

namespace {

constexpr std::uint32_t kIdFlag = 1U << 21;  // a flag that programs can change only if the processor has CPUID
constexpr std::uint32_t kHighestExtended = 0x80000000;
constexpr std::uint32_t kExtendedFeatures = 0x80000001;
constexpr std::uint32_t kLastExtended = 0x8000FFFF;
constexpr std::uint32_t kLongMode = 1U << 29;  // of EDX of the extended features

bool HasCpuid() {
  std::uint32_t before = 0;
  std::uint32_t after = 0;
  __asm__ volatile(
      "pushfl\n\t"
      "popl %0\n\t"
      "movl %0, %1\n\t"
      "xorl %2, %1\n\t"
      "pushl %1\n\t"
      "popfl\n\t"
      "pushfl\n\t"
      "popl %1\n\t"
      "pushl %0\n\t"
      "popfl"
      : "=&r"(before), "=&r"(after)
      : "i"(kIdFlag)
      : "cc");
  return ((before ^ after) & kIdFlag) != 0;
}

struct Answer {
  std::uint32_t eax = 0;
  std::uint32_t edx = 0;
};

// CPUID is written as bytes, because the assembler refuses instructions that a 386 lacks.
Answer Cpuid(std::uint32_t function) {
  Answer answer;
  __asm__ volatile(".byte 0x0F, 0xA2" : "=a"(answer.eax), "=d"(answer.edx) : "a"(function) : "ebx", "ecx");
  return answer;
}

}  // namespace

Processor ReadProcessor() {
  if (!HasCpuid()) return Processor::k32Bit;
  // A processor without extended functions answers with a number outside of their range.
  const std::uint32_t highest = Cpuid(kHighestExtended).eax;
  if (highest < kExtendedFeatures || highest > kLastExtended) return Processor::k32Bit;
  return (Cpuid(kExtendedFeatures).edx & kLongMode) != 0 ? Processor::k64Bit : Processor::k32Bit;
}

}  // namespace discwright::loader
