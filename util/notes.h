// The notes of a build: every failure that does not stop it, for example a file that could not be copied. Call Check
// with the status of an operation, or Add. A remark is no failure, but something that the user may not expect.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "host/status.h"

namespace discwright::util {

struct Note {
  std::string place;  // the file, folder or command line, as the core spells it
  std::string cause;  // what happened to it; shown after the place and a colon
};

// The notes of one build in the order in which they were added. If anything is missing from the CD, there must be a
// note that says so.
class Notes {
 public:
  // Adds a note, unless the same note exists: several steps read the same values and would note them again.
  void Add(std::string place, std::string cause);
  // Returns whether the status is a success. Otherwise adds a note: `what` happened (for example "could not be
  // copied"), and the reason that the status gives.
  bool Check(const host::Status& status, const std::string& place, const std::string& what);

  // Adds a remark: the build is complete, but what happened to `place` may surprise the user.
  void Remark(std::string place, std::string what);

  const std::vector<Note>& all() const { return all_; }  // the failures
  const std::vector<Note>& remarks() const { return remarks_; }
  std::function<void(const Note&)> added;     // is called with every new note; may be empty
  std::function<void(const Note&)> remarked;  // is called with every remark; may be empty

 private:
  std::vector<Note> all_;
  std::vector<Note> remarks_;
  std::set<std::pair<std::string, std::string>> known_;  // the place and the cause of every note
};

}  // namespace discwright::util
