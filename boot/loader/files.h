// How the script gets at files: those of a volume, or those of the tests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace discwright::loader {

// What the loader was started from. Messages name it "CD" or "disk". An image of a CD on a stick or a hard disk is kCd.
enum class Medium : std::uint8_t { kCd, kFloppy };

enum class ReadEnd { kRead, kNotFound, kTooLarge, kFailed };

struct FileText {
  ReadEnd end = ReadEnd::kNotFound;
  std::size_t size = 0;  // bytes that were put into memory: of a file that is too large, as many as there was room for
};

// Paths begin at the root of the volume. Between names stands "/" or "\"; the letter case does not matter.
class Files {
 public:
  [[nodiscard]] virtual Medium medium() const = 0;
  // A folder does not count as a file.
  virtual bool Exists(std::string_view path) = 0;
  // Reads a whole file into `to`.
  virtual FileText Read(std::string_view path, std::span<char> to) = 0;

 protected:
  ~Files() = default;
};

}  // namespace discwright::loader
