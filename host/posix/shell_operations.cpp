// Moves and renames like the shell's file-operation service of Windows, but without windows and questions.
#include "host/shell_operations.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "base/wildcard.h"
#include "host/files.h"
#include "host/names.h"
#include "host/posix/case_lookup.h"
#include "host/posix/errors.h"
#include "host/posix/folder_reader.h"
#include "host/posix/move_path.h"
#include "host/posix/native_path.h"

namespace discwright::host {
namespace {

// The service's error number for a path that it cannot use.
constexpr int kInvalidFiles = 0x7C;
// The system's own error number for a new name that exists already: the service replaces nothing when it renames.
constexpr int kAlreadyThere = 183;

struct Number {
  ErrorClass error;
  int number;
};

// The error numbers that the service documents, and the system's own where it documents none. Wine reports fewer
// failures.
constexpr std::array<Number, 10> kNumbers{{
    {ErrorClass::kNone, 0},
    {ErrorClass::kNotFound, 2},         // the system's own; Windows before Vista says 0x402
    {ErrorClass::kAccessDenied, 0x78},  // the documented one; the system's own is 5
    {ErrorClass::kDiskFull, 112},       // the system's own
    {ErrorClass::kTooLarge, 223},       // the system's own
    {ErrorClass::kNotReady, 21},        // the system's own
    {ErrorClass::kExists, 0x7E},        // a file is where a folder is needed
    {ErrorClass::kLoop, 0x76},          // the destination is in the source
    {ErrorClass::kWrongKind, 0x80},     // a folder is where a file is needed
    {ErrorClass::kOther, 0x402},        // an unknown failure
}};

int NumberOf(ErrorClass error) {
  return std::find_if(kNumbers.begin(), kNumbers.end(), [&](const Number& row) { return row.error == error; })->number;
}

Status MoveMatches(std::string_view folder, std::string_view pattern, std::string_view destination) {
  const Result<std::string> found = RealPath(folder.empty() ? "." : folder);
  if (!found.ok()) return found.status;
  const std::string& from = found.value;
  // The names are listed first, so that a destination that is created inside the folder is not moved itself.
  Result<std::vector<std::string>> names = NamesIn(from);
  if (!names.ok()) return names.status;
  const std::string folded = FoldCase(pattern);
  std::erase_if(names.value,
                [&](const std::string& name) { return !base::MatchesWildcard(FoldCase(CoreName(name)), folded); });
  if (names.value.empty()) return StatusOf(ENOENT);
  Status made = MakeFolders(destination);
  if (!made.ok()) return made;
  const Result<std::string> to = RealPathOfNew(destination);
  return to.ok() ? MoveNames(from, names.value, to.value) : to.status;
}

// Moves into an existing folder, or otherwise to a new name.
Status MoveOne(std::string_view source, std::string_view destination) {
  const Result<std::string> from = RealPath(source);
  const Result<std::string> to = RealPathOfNew(destination);
  if (!from.ok()) return from.status;
  if (!to.ok()) return to.status;
  if (!IsFolder(to.value)) return MovePath(from.value, to.value);
  return MoveNames(NativeFolder(from.value), {std::string(NativeName(from.value))}, to.value);
}

int Move(std::string_view source, std::string_view destination) {
  const std::size_t name = source.find_last_of("\\/") + 1;
  const bool has_wildcards = source.find_first_of("*?", name) != source.npos;
  if (!has_wildcards) return NumberOf(MoveOne(source, destination).error);
  return NumberOf(MoveMatches(source.substr(0, name), source.substr(name), destination).error);
}

bool IsThere(const std::string& native) {
  struct stat facts {};
  return lstat(native.c_str(), &facts) == 0;
}

int Rename(std::string_view source, std::string_view destination) {
  const Result<std::string> real_source = RealPath(source);
  const Result<std::string> real_destination = RealPathOfNew(destination);
  if (!real_source.ok()) return NumberOf(real_source.status.error);
  if (!real_destination.ok()) return NumberOf(real_destination.status.error);
  const std::string& from = real_source.value;
  std::string to = real_destination.value;
  if (!IsThere(from) || !IsFolder(NativeFolder(to))) return NumberOf(ErrorClass::kNotFound);
  if (to != from && IsThere(to)) return kAlreadyThere;
  // The destination was found under its old name, so only the letter case changes.
  if (to == from) to = NativeJoin(NativeFolder(to), NativeName(NativePath(destination)));
  return NumberOf(MovePath(from, to).error);
}

}  // namespace

ShellAnswer RunShellOperation(const ShellOperation& operation) {
  if (NativePath(operation.source).empty() || NativePath(operation.destination).empty()) return {kInvalidFiles, false};
  const auto run = operation.verb == ShellVerb::kMove ? Move : Rename;
  return {run(operation.source, operation.destination), false};
}

}  // namespace discwright::host
