// The interface through which a copy shows its progress, so that util/ knows no window. The copy calls Prepare first
// and End last; steps::StepProgress shows it on the progress page.
#pragma once

#include <cstdint>
#include <string_view>

namespace discwright::util {

class Progress {
 public:
  virtual ~Progress() = default;

  virtual void Prepare() = 0;  // called before the files are counted
  virtual void SetTotal(std::int64_t bytes) = 0;
  virtual void ShowFile(std::string_view name) = 0;  // the current file's name, without its folder
  virtual void ShowBytes(std::int64_t bytes) = 0;    // the bytes copied so far, at most the total
  // The bytes that are shown now. They may be those of an earlier copy: nothing resets them, and a new copy adds its
  // bytes to them.
  virtual std::int64_t ShownBytes() const = 0;
  virtual void End() = 0;  // called at the end of every copy, also of one that failed
};

}  // namespace discwright::util
