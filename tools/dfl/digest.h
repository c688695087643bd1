// Splits groups of many files by digests of their content, so that fewer files must be compared byte by byte.
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

inline constexpr std::int64_t kStart = 4096;  // the first bytes, in which most files differ

struct Digest {
  std::uint64_t high = 0;
  std::uint64_t low = 0;
  bool operator==(const Digest&) const = default;
  bool operator<(const Digest& other) const { return std::tie(high, low) < std::tie(other.high, other.low); }
};

// Returns the digest of the first `length` bytes. When they cannot be read, adds a problem and returns no value.
std::optional<Digest> DigestOf(Reader& reader, std::int64_t length, Problems& problems);

// Splits every group of more than `few` files: first by the digest of the first bytes, then by that of the whole
// content. A file that cannot be read becomes a problem and leaves its group. Groups of one file are removed.
std::vector<Group> SplitByDigest(std::vector<Group> groups, std::size_t few, const Tree& tree, unsigned threads,
                                 Problems& problems);

}  // namespace discwright::tools::dfl
