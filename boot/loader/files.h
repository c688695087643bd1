// How the script gets at files. The reader of the CD and of the floppy implements it, and so do the tests.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace discwright::loader {

enum class ReadEnd { kRead, kNotFound, kTooLarge, kFailed };

struct FileText {
  ReadEnd end = ReadEnd::kNotFound;
  std::size_t size = 0;  // bytes that were put into memory: of a file that is too large, as many as there was room for
};

// Paths begin at the root of the CD. Between names stands "/" or "\"; the letter case does not matter.
class Files {
 public:
  // A folder does not count as a file.
  virtual bool Exists(std::string_view path) = 0;
  // Reads a whole file into `to`.
  virtual FileText Read(std::string_view path, std::span<char> to) = 0;

 protected:
  ~Files() = default;
};

}  // namespace discwright::loader
