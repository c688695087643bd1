// The rules for computer and workgroup names. They come from Microsoft's articles Q188997 (names up to Windows 98 and
// NT 4.0), Q170846 (MSBATCH.INF), Q204032 and Q244412 (blanks and digits in Windows 2000), and 909264 (names since
// Windows 2000).
#include "settings/computer_name.h"

#include <algorithm>

#include "base/utf8.h"
#include "host/native_text.h"
#include "util/paths.h"

namespace discwright::settings {

namespace {

constexpr std::size_t kLongestName = 15;
constexpr std::string_view kDigits = "0123456789";

// Every system refuses these in computer and workgroup names.
constexpr std::string_view kRefusedCharacters = "\"/\\[]:|<>+=;,?*";
// The article on Windows 98 lists the characters that are accepted. This is the only ASCII character in neither list.
constexpr std::string_view kRefusedBy9x = "`";

enum class Blanks { kRefused, kAccepted };

bool IsControlCharacter(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte < 0x20 || byte == 0x7F;
}

std::string WithCause(std::string_view kind, std::string_view name, std::string_view cause) {
  return std::string(kind).append(" '").append(name).append("' ").append(cause);
}

// The rules that both kinds of names share. `kind` is "the computer name" or "the workgroup name"; `name` is trimmed.
std::string WhyNoName(std::string_view kind, std::string_view name, SetupFamily family, Blanks blanks) {
  if (base::FirstCharacters(name, kLongestName).size() < name.size()) {
    return WithCause(kind, name, "is longer than 15 characters");
  }
  if (std::ranges::any_of(name, IsControlCharacter)) {
    return WithCause(kind, name, "contains a character that cannot be printed");
  }
  if (blanks == Blanks::kRefused && name.find(' ') != std::string_view::npos) {
    return WithCause(kind, name, "contains a blank");
  }
  const std::string refused = std::string(kRefusedCharacters).append(family == SetupFamily::kWin9x ? kRefusedBy9x : "");
  const std::size_t position = name.find_first_of(refused);
  if (position != std::string_view::npos) {
    return WithCause(kind, name, std::string("contains a character that Windows Setup refuses: ") + name[position]);
  }
  return "";
}

}  // namespace

std::string WhyNoComputerName(std::string_view name, SetupFamily family) {
  constexpr std::string_view kind = "the computer name";
  const std::string trimmed = util::Trim(name);
  const bool is_2k = family == SetupFamily::kWin2K;
  if (trimmed.empty() || (is_2k && trimmed == "*")) return "";
  std::string why = WhyNoName(kind, trimmed, family, Blanks::kRefused);
  if (!why.empty() || !is_2k) return why;
  if (trimmed.starts_with('.')) return WithCause(kind, trimmed, "begins with a period");
  if (trimmed.find_first_not_of(kDigits) == std::string::npos) {
    return WithCause(kind, trimmed, "consists of digits only, which Windows 2000 and later refuse");
  }
  return "";
}

std::string WhyNoWorkgroupName(std::string_view name, SetupFamily family) {
  const Blanks blanks = family == SetupFamily::kWin9x ? Blanks::kRefused : Blanks::kAccepted;
  return WhyNoName("the workgroup name", util::Trim(name), family, blanks);
}

}  // namespace discwright::settings
