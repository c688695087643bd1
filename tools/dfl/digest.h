// Sorting many files by digests of their content.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <tuple>
#include <vector>

#include "tools/dfl/problems.h"
#include "tools/dfl/reader.h"
#include "tools/dfl/tree.h"

namespace discwright::tools::dfl {

inline constexpr std::int64_t kStart = 4096;  // bytes that tell most files apart

struct Digest {
  std::uint64_t high = 0;
  std::uint64_t low = 0;
  bool operator==(const Digest&) const = default;
  bool operator<(const Digest& other) const { return std::tie(high, low) < std::tie(other.high, other.low); }
};

// Of the first `length` bytes; nothing when they cannot be read, which becomes a problem.
std::optional<Digest> DigestOf(Reader& reader, std::int64_t length, Problems& problems);

// Splits groups of more than `few` files by digests, first of the files' starts, then of what is still alike as a
// whole. What cannot be read becomes a problem and leaves its group; groups of one disappear.
std::vector<Group> SplitByDigest(std::vector<Group> groups, std::size_t few, const Tree& tree, unsigned threads,
                                 Problems& problems);

}  // namespace discwright::tools::dfl
