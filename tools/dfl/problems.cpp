// Makes sentences of the problems, sorts them and prints them.
#include "tools/dfl/problems.h"

#include <algorithm>
#include <mutex>
#include <tuple>

#include "host/names.h"

namespace discwright::tools::dfl {
namespace {

// The build's progress monitor reads the output of this program together with that of the mastering. It would take the
// system's sentence for a full disk ("No space left on device") as a failure of the image, but here only a link is
// missing.
std::string CauseOf(const host::Status& status) {
  return status.error == host::ErrorClass::kDiskFull ? "the disk is full" : status.cause;
}

}  // namespace

void Problems::Add(std::size_t place, std::string_view path, std::string_view what, const host::Status& status) {
  std::string text = Shown(path).append(" ").append(what);
  if (!status.ok()) text.append(": ").append(CauseOf(status));
  const std::lock_guard lock(mutex_);
  problems_.push_back({place, std::move(text)});
}

void Problems::Print(std::ostream& output) {
  const std::lock_guard lock(mutex_);
  std::sort(problems_.begin(), problems_.end(),
            [](const Problem& a, const Problem& b) { return std::tie(a.place, a.text) < std::tie(b.place, b.text); });
  for (const Problem& problem : problems_) output << "dfl: " << problem.text << "\n";
  output.flush();
}

std::string Shown(std::string_view path) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string shown;
  for (const char character : host::PathToNative(path)) {
    const auto code = static_cast<unsigned char>(character);
    if (code >= 0x20 && code != 0x7F) {
      shown += character;
    } else {
      shown.append("\\x").append({kDigits[code >> 4], kDigits[code & 15]});
    }
  }
  return shown;
}

}  // namespace discwright::tools::dfl
