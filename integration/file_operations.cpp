// Copies files by pattern, moves and renames them, and ends the build when an integration step fails.
#include "integration/file_operations.h"

#include "host/files.h"
#include "host/shell_operations.h"
#include "util/copy_entries.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::integration {

namespace {

std::string Answer(const host::ShellAnswer& answer) {
  if (answer.number != 0) return std::to_string(answer.number);
  return answer.aborted ? "Aborted" : "";
}

constexpr std::uint16_t kWithoutQuestions = host::kShellSilent + host::kShellNoConfirmation;

}  // namespace

bool CopyMatchingFiles(steps::Context& context, const std::string& SourceSpec, const std::string& DestSpec,
                       util::CopiedNames names) {
  util::Notes& notes = context.notes;
  std::string from;
  std::string pattern;
  std::string to;
  std::string ignored;
  util::SplitPath(SourceSpec, from, pattern);
  util::SplitPath(DestSpec, to, ignored);
  util::AddBackslash(from);
  util::AddBackslash(to);
  util::EntryFilter filter(notes, from);
  const host::Listing listing = host::ListFolder(from, pattern);
  // A missing folder contains no such files. If a caller needs one, it notes the missing file itself.
  const bool is_missing = listing.status.error == host::ErrorClass::kNotFound;
  if (!is_missing &&
      !notes.Check(listing.status, from, "could not be listed, so files that match " + pattern + " may be missing")) {
    return false;
  }
  for (const host::Entry& entry : listing.value) {
    const util::Verdict verdict = filter.Decide(entry);
    if (verdict == util::Verdict::kStop) return false;
    if (verdict == util::Verdict::kSkip) continue;
    const host::Status status = host::CopyFileWithProgress(from + entry.name, to + util::NameInCopy(entry.name, names),
                                                           [&context](host::CopyEvent, std::int64_t) {
                                                             context.user.DoEvents(0);
                                                             return true;
                                                           });
    const bool is_last = &entry == &listing.value.back();
    const std::string what =
        is_last ? "could not be copied" : "could not be copied, nor were the files after it that match " + pattern;
    if (!notes.Check(status, from + entry.name, what) || !context.GoOn()) return false;
  }
  return true;
}

std::string MoveWithShell(void* OwnerWindow, const std::string& Source, const std::string& Destination,
                          std::uint16_t Flags, const std::string& Title) {
  // The flags are added and not combined with "|", so a flag that is given twice becomes another one. Kept as it has
  // always been.
  const auto flags = static_cast<std::uint16_t>(Flags + kWithoutQuestions);
  return Answer(host::RunShellOperation({host::ShellVerb::kMove, OwnerWindow, Source, Destination, flags, Title}));
}

std::string RenameWithShell(void* OwnerWindow, const std::string& OldName, const std::string& NewName,
                            const std::string& Title) {
  return Answer(
      host::RunShellOperation({host::ShellVerb::kRename, OwnerWindow, OldName, NewName, kWithoutQuestions, Title}));
}

void CopyBootSector(steps::Context& context, const std::string& name) {
  const std::string source = util::PathOf(util::Item::kBootSectors) + "\\" + name;
  CopyMatchingFiles(context, source, util::PathOf(util::Item::kWorkspace) + "\\boot\\images\\" + name);
  if (host::CheckReadable(source).error != host::ErrorClass::kNotFound) return;
  context.notes.Add(source, "is missing: the system that this boot sector starts cannot be started from the CD");
}

void HaltIntegration(steps::Context& context, const std::string& what) {
  if (context.main().CancelCopy) return;
  context.Halt({"A fatal Error occured while integrating the " + what + ", operation halted", "Fatal Error",
                host::MessageIcon::kCritical});
}

}  // namespace discwright::integration
