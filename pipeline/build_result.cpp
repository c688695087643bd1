// Determines the result of a build.
#include "pipeline/build_result.h"

#include <algorithm>
#include <span>

#include "host/files.h"
#include "host/names.h"
#include "host/native_text.h"
#include "host/system.h"
#include "pipeline/mastering.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::pipeline {

namespace {

constexpr std::size_t kLogLines = 20;

std::vector<std::string> LastLines(const std::string& text, std::size_t count) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    std::string line = text.substr(start, end - start);
    if (line.ends_with('\r')) line.pop_back();
    if (!line.empty()) lines.push_back(line);
    start = end + 1;
  }
  lines.erase(lines.begin(), lines.end() - static_cast<std::ptrdiff_t>(std::min(count, lines.size())));
  return lines;
}

// Reads the end of a file, which may be of any size.
host::Result<std::string> EndOf(const std::string& path) {
  constexpr std::int64_t kMost = 65536;  // bytes
  const auto file = host::OpenBinary(path, host::OpenMode::kRead);
  if (!file.ok()) return file.status;
  const host::Result<std::int64_t> length = file.value->Length();
  if (!length.ok()) return length.status;
  std::string end(static_cast<std::size_t>(std::min(length.value, kMost)), '\0');
  host::Status status =
      file.value->ReadAt(length.value - static_cast<std::int64_t>(end.size()), std::as_writable_bytes(std::span(end)));
  if (!status.ok()) return status;
  return end;
}

void AddLog(steps::BuildResult& result) {
  const std::string path = util::PathOf(util::Item::kMasteringLog);
  const host::Result<std::string> end = EndOf(path);
  if (!end.ok()) return;
  result.log = path;
  result.log_tail = LastLines(host::TextFromNative(end.value), kLogLines);
}

steps::BuildResult Failed(steps::BuildResult result, const std::string& why) {
  result.end = steps::BuildEnd::kFailed;
  result.why = why;
  return result;
}

// The file at the path of the image may be missing, incomplete, or an image of an earlier build. The message therefore
// warns against using it.
steps::BuildResult MasteringFailed(const steps::Context& context, steps::BuildResult result) {
  const forms::FrmDiscwright& main = context.main();
  AddLog(result);
  if (main.LblAbort.visible) {
    return Failed(result, util::Trim(main.LblFinish.caption.get()) + ": " + main.LblAbort.caption.get());
  }
  const std::string end =
      context.mastering_end.Succeeded() ? "did not say that the image is complete" : context.mastering_end.Text();
  return Failed(result, "The mastering " + end + ". Do not use the file at " + host::PathToNative(result.image) +
                            ": this build did not make it, or did not finish it.");
}

steps::BuildResult Made(steps::Context& context, steps::BuildResult result) {
  host::Status status;
  if (context.wants_digest) {
    const host::Result<std::string> digest = host::Sha256OfFile(result.image, [&context] {
      context.user.DoEvents(0);
      return !context.cancelled_by_user;
    });
    result.sha256 = digest.value;
    status = digest.status;
  }
  if (context.cancelled_by_user) {
    result.end = steps::BuildEnd::kCancelled;
    return result;
  }
  const host::Result<host::Entry> entry = host::Look(result.image);
  if (status.ok() && !entry.ok()) {
    status = entry.status;
    if (status.error == host::ErrorClass::kNotFound) status.cause = "the file no longer exists";
  }
  if (!status.ok()) {
    return Failed(result, host::PathToNative(result.image) + ": the image cannot be read back: " + status.cause);
  }
  result.size = entry.value.size;
  result.end = context.notes.all().empty() ? steps::BuildEnd::kMade : steps::BuildEnd::kMadeWithNotes;
  return result;
}

}  // namespace

steps::BuildResult ResultOf(steps::Context& context) {
  context.user.DoEvents(0);  // handles a click on Cancel that is still waiting
  const forms::FrmDiscwright& main = context.main();
  steps::BuildResult result;
  result.image = util::NamedFile(main.TxtISOLoc.text.get());
  // A step may fail because the user has cancelled. Such a build counts as cancelled, not as failed.
  const bool has_failed = !context.failure.empty() && !context.cancelled_by_user;
  if (has_failed) return Failed(result, context.failure);
  if (main.CancelCopy) {
    result.end = steps::BuildEnd::kCancelled;
    return result;
  }
  if (main.LblAbort.visible || !context.mastering_end.Succeeded() || !context.image_was_written)
    return MasteringFailed(context, result);
  return Made(context, result);
}

}  // namespace discwright::pipeline
