// Replaces bytes or text in files.
#include "integration/patching.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <optional>

#include "host/files.h"
#include "host/names.h"
#include "host/native_text.h"
#include "host/system.h"
#include "util/paths.h"

namespace discwright::integration {

namespace {

// Shows the busy pointer during its lifetime.
class BusyPointer {
 public:
  explicit BusyPointer(forms::Form& form) : form_(form) { form_.busy = true; }
  ~BusyPointer() { form_.busy = false; }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  forms::Form& form_;
};

// The text to find and its replacement, in bytes of the code page.
struct Pattern {
  std::string find;
  std::string replace;
};

std::optional<Pattern> InCodePage(std::string_view FindText, std::string_view ReplaceText) {
  const std::optional<std::string> find = host::CodePageBytes(FindText);
  const std::optional<std::string> replace = host::CodePageBytes(ReplaceText);
  return find && replace ? std::optional(Pattern{*find, *replace}) : std::nullopt;
}

host::Status PastTheEnd() {
  return host::Status::Failure(host::ErrorClass::kOther, "the bytes to replace reach past the end of the file");
}

host::Status NotInCodePage() {
  return host::Status::Failure(host::ErrorClass::kOther,
                               "the text to find or its replacement has characters that the system's code page lacks");
}

// Whether `find` occurs at this position. Returns nothing when the file ends before the comparison is decided.
std::optional<bool> OccursAt(std::string_view bytes, std::size_t place, std::string_view find) {
  const std::string_view here = bytes.substr(place, find.size());
  if (!find.starts_with(here)) return false;
  return here.size() == find.size() ? std::optional(true) : std::nullopt;
}

// Two rules are kept as they have always been. The search continues at the byte after the start of a replacement, so it
// also examines bytes that were just written. And if the search or a replacement would reach past the end of the file,
// the whole patch fails.
host::Status ReplaceBytes(std::string& bytes, const Pattern& pattern, bool& replaced) {
  if (pattern.find.empty()) return host::Status::Failure(host::ErrorClass::kOther, "the text to find is empty");
  for (std::size_t place = 0; place < bytes.size(); ++place) {
    const std::optional<bool> found = OccursAt(bytes, place, pattern.find);
    if (!found) return PastTheEnd();
    if (!*found) continue;
    if (pattern.replace.size() > bytes.size() - place) return PastTheEnd();
    bytes.replace(place, pattern.replace.size(), pattern.replace);
    replaced = true;
  }
  return host::Status::Success();
}

// For each byte the first byte whose character differs from its own in letter case only.
std::array<char, 256> FirstBytesOfLetters() {
  std::array<std::string, 256> folded;
  std::array<char, 256> first{};
  for (std::size_t i = 0; i < folded.size(); ++i) {
    const char byte = static_cast<char>(i);
    folded[i] = host::FoldCase(host::TextOfCodePage({&byte, 1}));
    first[i] = static_cast<char>(std::ranges::find(folded, folded[i]) - folded.begin());
  }
  return first;
}

// Each byte replaced by the first one of its letter. Characters of two bytes, which some code pages have, are compared
// byte by byte; equal characters have equal bytes.
std::string WithoutLetterCase(std::string_view bytes) {
  const std::array<char, 256> first = FirstBytesOfLetters();
  std::string text(bytes);
  for (char& character : text) character = first[static_cast<unsigned char>(character)];
  return text;
}

std::string WithReplacements(const std::string& bytes, const Pattern& pattern) {
  if (pattern.find.empty()) return bytes;
  const std::string text = WithoutLetterCase(bytes);
  const std::string find = WithoutLetterCase(pattern.find);
  std::string result;
  auto start = text.begin();
  for (;;) {
    const auto found = std::search(start, text.end(), find.begin(), find.end());
    result.append(bytes, static_cast<std::size_t>(start - text.begin()), static_cast<std::size_t>(found - start));
    if (found == text.end()) return result;
    result += pattern.replace;
    start = found + static_cast<std::ptrdiff_t>(find.size());
  }
}

// The largest program that is patched; the loaders of Windows Setup are far smaller.
constexpr std::int64_t kLargestProgram = std::int64_t{64} << 20;  // bytes

// Reads a file of at most `most` bytes, passes them to `change`, and writes them back. If `change` leaves no bytes,
// nothing is written.
host::Status Rewrite(const std::string& file, std::int64_t most,
                     const std::function<host::Status(std::string& bytes)>& change) {
  if (host::Status status = host::ClearAttributes(file); !status.ok()) return status;
  host::Result<std::string> bytes = host::ReadWholeFile(file, most);
  if (!bytes.ok()) return bytes.status;
  if (host::Status status = change(bytes.value); !status.ok() || bytes.value.empty()) return status;
  return host::WriteWholeFile(file, bytes.value, host::FileTimes::kKept);
}

void ShowPatchingError(steps::Context& context, const std::string& file, const std::string& mode,
                       const host::Status& status) {
  context.notes.Check(status, file, "could not be patched");
  context.user.ShowMessage(
      {"Error while patching " + host::PathToNative(file) + mode, "Patching Error", host::MessageIcon::kNone});
}

}  // namespace

bool PatchBinaryFile(steps::Context& context, const std::string& FileName, std::string_view FindText,
                     std::string_view ReplaceText) {
  if (!util::FileExists(context.notes, FileName)) return false;
  bool replaced = false;
  host::Status status;
  {
    const BusyPointer hourglass(context.main());
    status = Rewrite(FileName, kLargestProgram, [&](std::string& bytes) {
      const std::optional<Pattern> pattern = InCodePage(FindText, ReplaceText);
      if (bytes.empty()) return host::Status::Success();
      return pattern ? ReplaceBytes(bytes, *pattern, replaced) : NotInCodePage();
    });
  }
  if (!status.ok()) ShowPatchingError(context, FileName, " in Hex mode", status);
  // Also true when bytes were replaced in memory but the file could not be written. Kept as it has always been.
  return replaced;
}

bool PatchTextFile(steps::Context& context, const std::string& FileName, std::string_view FindText,
                   std::string_view ReplaceText) {
  if (!util::FileExists(context.notes, FileName)) return false;
  host::Status status;
  {
    const BusyPointer hourglass(context.main());
    status = Rewrite(FileName, host::kLargestText, [&](std::string& bytes) {
      const std::optional<Pattern> pattern = InCodePage(FindText, ReplaceText);
      if (!pattern) return NotInCodePage();
      bytes = WithReplacements(bytes, *pattern) + "\r\n";
      return host::Status::Success();
    });
  }
  if (!status.ok()) ShowPatchingError(context, FileName, "", status);
  return false;
}

}  // namespace discwright::integration
