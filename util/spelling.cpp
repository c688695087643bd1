// Compares names by their optimal string alignment distance: the number of insertions, deletions, replacements and
// swaps of neighbouring characters that turn one name into the other.
#include "util/spelling.h"

#include <algorithm>
#include <string>
#include <vector>

#include "host/names.h"

namespace discwright::util {

namespace {

constexpr std::size_t kVeryShort = 4;

std::size_t MostChanges(std::string_view word) {
  return word.size() <= kVeryShort ? 1 : std::max<std::size_t>(2, word.size() / 3);
}

bool AreTooFarApart(std::string_view a, std::string_view b, std::size_t most) {
  return std::max(a.size(), b.size()) - std::min(a.size(), b.size()) > most;
}

// Row i of the distance table belongs to the first i characters of `a`. Each row needs only the two rows before it, so
// only these are kept.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> before_last;
  std::vector<std::size_t> last(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) last[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::vector<std::size_t> row(b.size() + 1, i);
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (swapped) row[j] = std::min(row[j], before_last[j - 2] + 1);
    }
    before_last = std::move(last);
    last = std::move(row);
  }
  return last.back();
}

}  // namespace

std::optional<std::string_view> Closest(std::string_view word, std::span<const std::string_view> candidates) {
  const std::string folded = host::FoldCase(word);
  std::size_t most = MostChanges(folded);
  std::optional<std::string_view> closest;
  for (const std::string_view candidate : candidates) {
    const std::string name = host::FoldCase(candidate);
    if (AreTooFarApart(folded, name, most)) continue;
    const std::size_t distance = Distance(folded, name);
    if (distance > most || (closest && distance == most)) continue;
    closest = candidate;
    most = distance;
  }
  return closest;
}

}  // namespace discwright::util
