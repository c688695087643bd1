// What went wrong without stopping the build: copies, deletions and moves that a step passes over.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "host/status.h"

namespace discwright::util {

struct Note {
  std::string place;  // the file, folder or program, in the core's spelling
  std::string cause;  // what happened to it, to be read behind the place and a colon
};

// A build's notes in the order they came. Nothing may be missing from a CD without a note here.
class Notes {
 public:
  // What is noted already is not noted again: several steps read the same answers.
  void Add(std::string place, std::string cause);
  // Adds a note unless the status is a success; returns whether it was.
  bool Check(const host::Status& status, const std::string& place, const std::string& what);

  const std::vector<Note>& all() const { return all_; }
  std::function<void(const Note&)> added;  // hears every new note; may be empty

 private:
  std::vector<Note> all_;
  std::set<std::pair<std::string, std::string>> known_;  // place and cause
};

}  // namespace discwright::util
