// Writes the log of the mastering.
#include "pipeline/mastering_log.h"

#include <span>
#include <utility>

#include "host/native_text.h"
#include "util/program_folder.h"

namespace discwright::pipeline {

MasteringLog::MasteringLog(util::Notes& notes) : path_(util::PathOf(util::Item::kMasteringLog)), notes_(notes) {
  auto file = host::OpenBinary(path_, host::OpenMode::kCreateEmpty);
  file_ = std::move(file.value);
  notes_.Check(file.status, path_, "the mastering log could not be created");
}

void MasteringLog::AddLine(std::string_view text) {
  if (!file_) return;
  const std::string line = WithLineEnds(host::TextToNative(text));
  const host::Status status = file_->WriteAt(position_, std::as_bytes(std::span(line)));
  position_ += static_cast<std::int64_t>(line.size());
  // After the first failure the log is closed. Otherwise a full disk would cause a note for every further line.
  if (!notes_.Check(status, path_, "the mastering log is incomplete")) file_.reset();
}

// Every LF becomes CR LF, and a piece that does not end in a line end gets one. If a piece ends between the CR and
// the LF of a line end, the LF is written at once, and the LF at the start of the next piece is dropped.
std::string MasteringLog::WithLineEnds(std::string_view piece) {
  if (ends_in_cr_ && piece.starts_with('\n')) {
    ends_in_cr_ = false;
    piece.remove_prefix(1);
    if (piece.empty()) return {};
  }
  std::string lines;
  for (const char character : piece) {
    if (character == '\n' && !lines.ends_with('\r')) lines += '\r';
    lines += character;
  }
  ends_in_cr_ = piece.ends_with('\r');
  if (lines.ends_with('\n')) return lines;
  return lines + (ends_in_cr_ ? "\n" : "\r\n");
}

}  // namespace discwright::pipeline
