// Checks and pads names for a FAT disk.
#include "tools/createdsk/short_name.h"

#include <algorithm>

namespace discwright::tools {
namespace {

constexpr std::string_view kDevices[] = {"CON",  "PRN",  "AUX",  "NUL",  "CLOCK$", "COM1", "COM2",
                                         "COM3", "COM4", "LPT1", "LPT2", "LPT3",   "LPT4"};

char ToCapital(char character) {
  return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

// Bytes above 7Fh stand for different letters in different DOS code pages, so names in a profile must not have them.
bool IsPlain(char character) {
  constexpr std::string_view kForbidden = "\"*+,./:;<=>?[\\]|";
  return character >= ' ' && character <= '~' && kForbidden.find(character) == std::string_view::npos;
}

bool IsNamePart(std::string_view part) {
  return std::all_of(part.begin(), part.end(), [](char character) { return IsPlain(character) && character != ' '; });
}

void Put(std::string_view part, ShortName& name, std::size_t offset) {
  for (const char character : part) name[offset++] = static_cast<std::uint8_t>(ToCapital(character));
}

ShortName Blank() {
  ShortName name;
  name.fill(' ');
  return name;
}

std::string Trimmed(const ShortName& name, std::size_t offset, std::size_t length) {
  std::string text;
  for (std::size_t i = offset; i < offset + length; ++i) {
    const char character = static_cast<char>(name[i]);
    text += character >= ' ' && character <= '~' ? character : '?';
  }
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

}  // namespace

std::optional<ShortName> ToShortName(std::string_view text) {
  const std::size_t dot = text.find('.');
  const bool has_extension = dot != std::string_view::npos;
  const std::string_view stem = text.substr(0, dot);
  const std::string_view extension = has_extension ? text.substr(dot + 1) : "";
  if (stem.empty() || stem.size() > 8 || extension.size() > 3 || has_extension == extension.empty()) return {};
  if (!IsNamePart(stem) || !IsNamePart(extension)) return {};

  ShortName name = Blank();
  Put(stem, name, 0);
  if (std::ranges::find(kDevices, Trimmed(name, 0, 8)) != std::end(kDevices)) return {};
  Put(extension, name, 8);
  return name;
}

std::string ToText(const ShortName& name) {
  const std::string extension = Trimmed(name, 8, 3);
  return Trimmed(name, 0, 8) + (extension.empty() ? "" : "." + extension);
}

Result ToLabel(std::string_view text, ShortName& label) {
  if (text.size() > label.size()) return Result::Failure("is longer than 11 characters; shorten it");
  if (text.empty() || text.front() == ' ') return Result::Failure("must begin with a letter or digit; change it");
  if (!std::ranges::all_of(text, IsPlain)) {
    return Result::Failure("has a character that a volume label cannot have; use letters, digits, blanks, - and _");
  }
  label = Blank();
  Put(text, label, 0);
  return Result::Success();
}

}  // namespace discwright::tools
