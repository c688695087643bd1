// Patching files in place.
#include "integration/patching.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <vector>

#include "host/files.h"
#include "host/names.h"
#include "host/native_text.h"
#include "host/system.h"
#include "util/paths.h"

namespace discwright::integration {

namespace {

// The hourglass, for as long as it lives.
class BusyPointer {
 public:
  explicit BusyPointer(forms::Form& form) : form_(form) { form_.busy = true; }
  ~BusyPointer() { form_.busy = false; }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  forms::Form& form_;
};

// Find and replacement in bytes, one for each character.
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
  return host::Status::Failure(host::ErrorClass::kOther, "the place to patch reaches past the end of the file");
}

host::Status NotInCodePage() {
  return host::Status::Failure(host::ErrorClass::kOther,
                               "a text to find or to write has characters that the system's code page lacks");
}

// Whether the pattern stands at a place; nothing when only the end of the file stops the comparison.
std::optional<bool> StandsAt(std::string_view bytes, std::size_t place, std::string_view find) {
  const std::string_view here = bytes.substr(place, find.size());
  if (!find.starts_with(here)) return false;
  return here.size() == find.size() ? std::optional(true) : std::nullopt;
}

// Goes on behind the first byte of what it has just written, and fails where it would have to look or write beyond the
// end: both are meant.
host::Status ReplaceBytes(std::string& bytes, const Pattern& pattern, bool& replaced) {
  if (pattern.find.empty()) return host::Status::Failure(host::ErrorClass::kOther, "there is nothing to find");
  for (std::size_t place = 0; place < bytes.size(); ++place) {
    const std::optional<bool> found = StandsAt(bytes, place, pattern.find);
    if (!found) return PastTheEnd();
    if (!*found) continue;
    if (pattern.replace.size() > bytes.size() - place) return PastTheEnd();
    bytes.replace(place, pattern.replace.size(), pattern.replace);
    replaced = true;
  }
  return host::Status::Success();
}

// Every character as it is compared. Each byte is one: where the code page has characters of two bytes, equal ones have
// equal bytes all the same.
std::vector<std::string> WithoutLetterCase(std::string_view bytes) {
  std::vector<std::string> characters;
  characters.reserve(bytes.size());
  for (const char& byte : bytes) characters.push_back(host::FoldCase(host::TextOfCodePage({&byte, 1})));
  return characters;
}

std::string WithReplacements(const std::string& bytes, const Pattern& pattern) {
  if (pattern.find.empty()) return bytes;
  const std::vector<std::string> text = WithoutLetterCase(bytes);
  const std::vector<std::string> find = WithoutLetterCase(pattern.find);
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

// Reads a file, lets `change` work on its bytes and writes them back. `change` clears them to have nothing written.
host::Status Rewrite(const std::string& file, const std::function<host::Status(std::string& bytes)>& change) {
  if (host::Status status = host::ClearAttributes(file); !status.ok()) return status;
  host::Result<std::string> bytes = host::ReadWholeFile(file);
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
  if (!util::FileExists(FileName)) return false;
  bool replaced = false;
  host::Status status;
  {
    const BusyPointer hourglass(context.main());
    status = Rewrite(FileName, [&](std::string& bytes) {
      const std::optional<Pattern> pattern = InCodePage(FindText, ReplaceText);
      if (bytes.empty()) return host::Status::Success();
      return pattern ? ReplaceBytes(bytes, *pattern, replaced) : NotInCodePage();
    });
  }
  if (!status.ok()) ShowPatchingError(context, FileName, " in Hex mode", status);
  // True after a replacement in memory even when nothing was written: meant.
  return replaced;
}

bool PatchTextFile(steps::Context& context, const std::string& FileName, std::string_view FindText,
                   std::string_view ReplaceText) {
  if (!util::FileExists(FileName)) return false;
  host::Status status;
  {
    const BusyPointer hourglass(context.main());
    status = Rewrite(FileName, [&](std::string& bytes) {
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
