// What a copy shows of its progress. The copy calls Prepare first and End last; the bar of a window, a line on a
// terminal or nothing at all stands behind it.
#pragma once

#include <cstdint>
#include <string_view>

namespace discwright::util {

class Progress {
 public:
  virtual ~Progress() = default;

  virtual void Prepare() = 0;  // the bytes of the copy are about to be counted
  virtual void SetTotal(std::int64_t bytes) = 0;
  virtual void ShowFile(std::string_view name) = 0;  // the name, without a folder, of the file that is copied now
  virtual void ShowBytes(std::int64_t bytes) = 0;    // copied so far, at most the total
  // The bytes that are shown now. An earlier copy may have left some there, and a new one counts on from them.
  virtual std::int64_t ShownBytes() const = 0;
  virtual void End() = 0;  // also after a copy that failed
};

}  // namespace discwright::util
