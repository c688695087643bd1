// The list of the failures that did not stop the build, and of the remarks.
#include "util/notes.h"

#include <utility>

namespace discwright::util {

void Notes::Add(std::string place, std::string cause) {
  const Note note{std::move(place), std::move(cause)};
  if (!known_.emplace(note.place, note.cause).second) return;
  all_.push_back(note);
  if (added) added(note);
}

void Notes::Remark(std::string place, std::string what) {
  remarks_.push_back({std::move(place), std::move(what)});
  if (remarked) remarked(remarks_.back());
}

bool Notes::Check(const host::Status& status, const std::string& place, const std::string& what) {
  if (status.ok()) return true;
  Add(place, status.cause.empty() ? what : what + ": " + status.cause);
  return false;
}

}  // namespace discwright::util
