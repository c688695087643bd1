// Computes the digests on several threads and groups the files by them.
#include "tools/dfl/digest.h"

#include <algorithm>
#include <span>

#define XXH_INLINE_ALL
#include <xxhash.h>

#include "tools/dfl/parallel.h"

namespace discwright::tools::dfl {
namespace {

struct DigestedFile {
  std::size_t group;
  File* file;
  std::optional<Digest> digest;
};

// Splits the files of one group by their digests and appends the new groups. The order of the files stays.
void AppendGroups(std::span<DigestedFile> files, std::vector<Group>& groups) {
  std::stable_sort(files.begin(), files.end(),
                   [](const DigestedFile& a, const DigestedFile& b) { return a.digest < b.digest; });
  for (std::size_t start = 0; start < files.size();) {
    std::size_t end = start + 1;
    while (end < files.size() && files[end].digest == files[start].digest) ++end;
    if (files[start].digest && end - start > 1) {
      Group& group = groups.emplace_back();
      for (const DigestedFile& found : files.subspan(start, end - start)) group.push_back(std::move(*found.file));
    }
    start = end;
  }
}

// One round of digests: over the first `length` bytes of files of more than `known` bytes. Smaller files need no
// digest, because an earlier round has digested all of them.
struct Round {
  std::int64_t length;
  std::int64_t known;
};

std::vector<Group> Split(std::vector<Group> groups, Round round, std::size_t few, const Tree& tree, unsigned threads,
                         Problems& problems) {
  std::vector<Group> split;
  std::vector<DigestedFile> files;
  for (std::size_t index = 0; index < groups.size(); ++index) {
    if (groups[index].size() > few && groups[index][0].facts.size > round.known) {
      for (File& file : groups[index]) files.push_back({index, &file, std::nullopt});
    } else {
      split.push_back(std::move(groups[index]));
    }
  }
  ForEach(files.size(), threads, [&](std::size_t index) {
    Reader reader(tree, *files[index].file);
    files[index].digest = DigestOf(reader, round.length, problems);
  });
  for (std::span<DigestedFile> rest = files; !rest.empty();) {
    std::size_t count = 1;
    while (count < rest.size() && rest[count].group == rest[0].group) ++count;
    AppendGroups(rest.first(count), split);
    rest = rest.subspan(count);
  }
  return split;
}

}  // namespace

std::optional<Digest> DigestOf(Reader& reader, std::int64_t length, Problems& problems) {
  XXH3_state_t state;
  XXH3_128bits_reset(&state);
  for (std::int64_t position = 0;;) {
    const std::span<const std::byte> bytes = reader.Read(position, length, 0);
    if (!reader.Check(problems)) return std::nullopt;
    if (bytes.empty()) break;
    XXH3_128bits_update(&state, bytes.data(), bytes.size());
    position += static_cast<std::int64_t>(bytes.size());
  }
  const XXH128_hash_t hash = XXH3_128bits_digest(&state);
  return Digest{hash.high64, hash.low64};
}

std::vector<Group> SplitByDigest(std::vector<Group> groups, std::size_t few, const Tree& tree, unsigned threads,
                                 Problems& problems) {
  groups = Split(std::move(groups), {kStart, 0}, few, tree, threads, problems);
  return Split(std::move(groups), {INT64_MAX, kStart}, few, tree, threads, problems);
}

}  // namespace discwright::tools::dfl
