// Reads the files of a group at the same time, piece by piece, for as long as their bytes are equal.
#include "tools/dfl/compare.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <span>

#include "tools/dfl/digest.h"
#include "tools/dfl/reader.h"

namespace discwright::tools::dfl {
namespace {

struct Candidate {
  File* file;
  Reader reader;
  bool differs = false;
};
using Candidates = std::vector<Candidate>;

class Comparison {
 public:
  explicit Comparison(Problems& problems) : problems_(problems) {}

  // Splits the files into sets with equal first bytes. Opens all files and leaves them open.
  std::vector<Candidates> SplitByStart(Candidates files) {
    std::map<Digest, Candidates> sets;
    for (Candidate& file : files) {
      const std::optional<Digest> digest = DigestOf(file.reader, kStart, problems_);
      if (digest) sets[*digest].push_back(std::move(file));
    }
    std::vector<Candidates> split;
    split.reserve(sets.size());
    for (auto& [digest, set] : sets) split.push_back(std::move(set));
    return split;
  }

  void AppendEqual(Candidates files, std::vector<Group>& groups) {
    while (files.size() > 1) {
      CompareWithFirst(files);
      const auto readable = [&](Candidate& file) { return file.reader.Check(problems_); };
      if (!readable(files[0])) {
        files.erase(files.begin());
        continue;
      }
      Group equal;
      Candidates rest;
      for (Candidate& file : files) {
        if (!readable(file)) continue;
        if (file.differs) {
          rest.push_back({file.file, std::move(file.reader)});
        } else {
          equal.push_back(std::move(*file.file));
        }
      }
      if (equal.size() > 1) groups.push_back(std::move(equal));
      files = std::move(rest);
    }
  }

 private:
  void CompareWithFirst(Candidates& files) {
    Candidate& first = files[0];
    for (std::span<Candidate> others = std::span(files).subspan(1); !others.empty();) {
      const std::span<Candidate> batch = others.first(std::min(others.size(), kSideBySide));
      for (Candidate& other : batch) other.differs = false;
      CompareSideBySide(first, batch);
      others = others.subspan(batch.size());
      if (files.size() <= kSideBySide) continue;
      for (Candidate& other : batch) other.reader.Close();
    }
  }

  void CompareSideBySide(Candidate& first, std::span<Candidate> others) {
    std::size_t alike = others.size();
    for (std::int64_t position = 0; alike > 0;) {
      const std::span<const std::byte> bytes = first.reader.Read(position, INT64_MAX, 0);
      if (bytes.empty()) return;  // the file has ended, or reading it has failed; the caller checks for a failure
      for (Candidate& other : others) {
        if (other.differs) continue;
        const std::span<const std::byte> theirs = other.reader.Read(position, INT64_MAX, 1);
        other.differs = theirs.size() != bytes.size() || std::memcmp(bytes.data(), theirs.data(), bytes.size()) != 0;
        alike -= other.differs ? 1 : 0;
      }
      position += static_cast<std::int64_t>(bytes.size());
    }
  }

  Problems& problems_;
};

}  // namespace

std::vector<Group> EqualFiles(Group group, const Tree& tree, Problems& problems) {
  Candidates files;
  files.reserve(group.size());
  for (File& file : group) files.push_back({&file, Reader(tree, file)});
  Comparison comparison(problems);
  std::vector<Group> equal;
  // Two files need no splitting by their first bytes. More than kSideBySide files are too many to be open at once, and
  // SplitByDigest has digested their first bytes already.
  if (files.size() == 2 || files.size() > kSideBySide) {
    comparison.AppendEqual(std::move(files), equal);
    return equal;
  }
  for (Candidates& set : comparison.SplitByStart(std::move(files))) comparison.AppendEqual(std::move(set), equal);
  return equal;
}

}  // namespace discwright::tools::dfl
