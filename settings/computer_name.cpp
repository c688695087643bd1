// The rules stand in Microsoft's articles Q188997 (names up to Windows 98 and NT 4.0), Q170846 (MSBATCH.INF), Q204032
// and Q244412 (blanks and digits in Windows 2000) and 909264 (names from Windows 2000 on). No Setup was tried.
#include "settings/computer_name.h"

#include <algorithm>

#include "base/utf8.h"
#include "host/native_text.h"
#include "util/paths.h"

namespace discwright::settings {

namespace {

constexpr std::size_t kLongestName = 15;
constexpr std::string_view kDigits = "0123456789";

// Refused in every kind of name by every system.
constexpr std::string_view kRefusedSigns = "\"/\\[]:|<>+=;,?*";
// Windows 98 lists the signs that it takes; of ASCII this is the one that is left.
constexpr std::string_view kRefusedBy9x = "`";

enum class Blanks { kRefused, kTaken };

bool IsControlCharacter(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte < 0x20 || byte == 0x7F;
}

std::string WithCause(std::string_view kind, std::string_view name, std::string_view cause) {
  return std::string(kind).append(" '").append(name).append("' ").append(cause);
}

// Why a name cannot stand as what `kind` calls it; empty when it can. `name` is trimmed.
std::string WhyNotNamed(std::string_view kind, std::string_view name, SetupFamily family, Blanks blanks) {
  if (base::FirstCharacters(name, kLongestName).size() < name.size()) {
    return WithCause(kind, name, "is longer than 15 characters");
  }
  if (std::ranges::any_of(name, IsControlCharacter)) {
    return WithCause(kind, name, "has a character in it that cannot be printed");
  }
  if (blanks == Blanks::kRefused && name.find(' ') != std::string_view::npos) {
    return WithCause(kind, name, "has a blank in it");
  }
  const std::string refused = std::string(kRefusedSigns).append(family == SetupFamily::kWin9x ? kRefusedBy9x : "");
  const std::size_t sign = name.find_first_of(refused);
  if (sign != std::string_view::npos) {
    return WithCause(kind, name, std::string("has a sign in it that Windows Setup refuses: ") + name[sign]);
  }
  return "";
}

}  // namespace

std::string WhyNoComputerName(std::string_view name, SetupFamily family) {
  constexpr std::string_view kind = "the computer name";
  const std::string trimmed = util::Trim(name);
  const bool is_2k = family == SetupFamily::kWin2K;
  if (trimmed.empty() || (is_2k && trimmed == "*")) return "";
  std::string why = WhyNotNamed(kind, trimmed, family, Blanks::kRefused);
  if (!why.empty() || !is_2k) return why;
  if (trimmed.starts_with('.')) return WithCause(kind, trimmed, "begins with a period");
  if (trimmed.find_first_not_of(kDigits) == std::string::npos) {
    return WithCause(kind, trimmed, "consists of digits only, which Windows 2000 and later refuse");
  }
  return "";
}

std::string WhyNoWorkgroupName(std::string_view name, SetupFamily family) {
  const Blanks blanks = family == SetupFamily::kWin9x ? Blanks::kRefused : Blanks::kTaken;
  return WhyNotNamed("the workgroup name", util::Trim(name), family, blanks);
}

}  // namespace discwright::settings
