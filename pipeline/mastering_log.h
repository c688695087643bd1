// The log of the mastering, "mkisofs.log". Make one when the mastering has started, give it each piece of output, and
// close it at the end.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "host/files.h"
#include "util/notes.h"

namespace discwright::pipeline {

class MasteringLog {
 public:
  // Empties the log of an earlier build. A log that cannot be created or written is noted, once.
  explicit MasteringLog(util::Notes& notes);

  // Each piece becomes at least one line; every line end is CR LF.
  void AddLine(std::string_view text);
  void Close() { file_.reset(); }
  const std::string& path() const { return path_; }

 private:
  std::string WithLineEnds(std::string_view piece);

  bool ends_in_cr_ = false;  // whether the last piece ended between the CR and the LF of a line end
  std::string path_;
  util::Notes& notes_;
  std::unique_ptr<host::BinaryFile> file_;
  std::int64_t position_ = 0;  // bytes
};

}  // namespace discwright::pipeline
