// Makes the line and its bar. It counts in kilobytes, because a hundred times a size in bytes can exceed 32 bits, and
// the loader has no 64-bit division.
#include "boot/loader/progress.h"

#include <algorithm>
#include <cstddef>

#include "boot/loader/text.h"

namespace discwright::loader {

namespace {

constexpr std::uint32_t kCells = 20;
constexpr std::string_view kFull = "\xDB";
constexpr std::string_view kEmpty = "\xB0";
constexpr std::size_t kLongestName = 40;

}  // namespace

std::string_view ProgressLine(std::string_view name, std::uint32_t done, std::uint32_t size, std::span<char> to) {
  const std::uint32_t total = std::max<std::uint32_t>(size >> 10, 1);
  const std::uint32_t loaded = std::min(size == 0 || done == size ? total : done >> 10, total);
  const std::uint32_t percent = loaded * 100 / total;
  TextWriter line(to);
  line.Add("Loading ");
  const bool is_long = name.size() > kLongestName;
  line.Add(is_long ? "..." : "").Add(is_long ? Part(name, name.size() - kLongestName + 3) : name).Add(" ");
  for (std::uint32_t cell = 1; cell <= kCells; ++cell) line.Add(percent >= cell * 100 / kCells ? kFull : kEmpty);
  line.Add(percent < 10 ? "   " : percent < 100 ? "  " : " ").Add(percent).Add(" %");
  return line.text();
}

}  // namespace discwright::loader
