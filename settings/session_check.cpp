// Compares each line of a session file with the table of session keys.
#include "settings/session_check.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "base/ini_text.h"
#include "base/utf8.h"
#include "host/files.h"
#include "host/names.h"
#include "host/native_text.h"
#include "settings/session_table.h"
#include "util/paths.h"
#include "util/spelling.h"

namespace discwright::settings {

namespace {

bool SameName(std::string_view a, std::string_view b) { return host::FoldCase(a) == host::FoldCase(b); }

std::string InBrackets(std::string_view section) { return "[" + std::string(section) + "]"; }

std::string InQuotes(std::string_view text) { return "'" + std::string(text) + "'"; }

bool IsNumber(std::string_view text) {
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// 2 is a greyed check box, which the program itself can save.
bool IsCheckBoxState(std::string_view text) { return text == "0" || text == "1" || text == "2"; }

bool IsJoinDomain(std::string_view text) { return SameName(text, "True") || SameName(text, "False") || IsNumber(text); }

bool IsAccepted(ValueEncoding encoding, std::string_view value) {
  switch (encoding) {
    case ValueEncoding::kCheckBox:
    case ValueEncoding::kQuotedCheckBox:
      return IsCheckBoxState(value);
    case ValueEncoding::kJoinDomain:
      return IsJoinDomain(value);
    case ValueEncoding::kText:
    case ValueEncoding::kQuotedText:
    case ValueEncoding::kNone:
      break;
  }
  return true;
}

class Check {
 public:
  std::vector<SessionProblem> Run(std::string_view text) {
    for (const base::IniLine& line : base::IniLines(text)) {
      ++line_;
      if (line.kind == base::IniLineKind::kSection) CheckSectionLine(line.name);
      if (line.kind == base::IniLineKind::kKey) CheckKeyLine(line.name, line.value);
      if (line.kind == base::IniLineKind::kOther) {
        Add(InQuotes(line.name) + " is neither a section nor a key with a value; a comment begins with ';'");
      }
    }
    return std::move(problems_);
  }

 private:
  enum class Place { kBeforeAnySection, kKnownSection, kUnknownSection };

  void Add(std::string cause) { problems_.push_back({line_, std::move(cause)}); }

  void CheckSectionLine(std::string_view name) {
    const auto key = std::find_if(keys_.begin(), keys_.end(),
                                  [&](const SessionKey& known) { return SameName(known.section, name); });
    place_ = key == keys_.end() ? Place::kUnknownSection : Place::kKnownSection;
    if (place_ == Place::kUnknownSection) {
      Add("there is no section " + InBrackets(name) + DidYouMean(InBrackets(name), SectionsInBrackets()));
      return;
    }
    section_ = key->section;
    if (!sections_seen_.insert(section_).second) {
      Add("section " + InBrackets(section_) + " appears again; only the first one is read");
    }
  }

  // The keys of an unknown section are not reported, because the section has been.
  void CheckKeyLine(std::string_view name, std::string_view value) {
    if (place_ == Place::kUnknownSection) return;
    if (place_ == Place::kBeforeAnySection) {
      Add("the key " + std::string(name) + " comes before the first section");
      return;
    }
    const auto key = std::find_if(keys_.begin(), keys_.end(), [&](const SessionKey& known) {
      return known.section == section_ && SameName(known.key, name);
    });
    if (key == keys_.end()) {
      AddUnknownKey(name);
    } else if (!keys_seen_.insert(&*key).second) {
      Add("the key " + std::string(key->key) + " appears again; only the first one is read");
    } else {
      CheckValue(*key, util::Trim(value));
    }
  }

  void CheckValue(const SessionKey& key, std::string_view value) {
    const ValueEncoding encoding = key.line->encoding;
    if (IsAccepted(encoding, value)) return;
    const std::string_view accepted = AcceptedValues(encoding);
    Add(std::string(key.key).append(" takes ").append(accepted).append(", not ").append(InQuotes(value)));
  }

  void AddUnknownKey(std::string_view name) {
    std::string cause = "there is no key " + std::string(name) + " in section " + InBrackets(section_);
    const auto elsewhere =
        std::find_if(keys_.begin(), keys_.end(), [&](const SessionKey& key) { return SameName(key.key, name); });
    if (elsewhere == keys_.end()) {
      cause += DidYouMean(name, KeysOfSection());
    } else {
      cause += "; it belongs in section " + InBrackets(elsewhere->section);
    }
    Add(std::move(cause));
  }

  static std::string DidYouMean(std::string_view name, const std::vector<std::string>& candidates) {
    const std::vector<std::string_view> names(candidates.begin(), candidates.end());
    const std::optional<std::string_view> closest = util::Closest(name, names);
    return closest ? "; did you mean " + std::string(*closest) + "?" : "";
  }

  std::vector<std::string> SectionsInBrackets() const {
    std::vector<std::string> sections;
    for (const SessionKey& key : keys_) {
      const std::string section = InBrackets(key.section);
      if (sections.empty() || sections.back() != section) sections.push_back(section);
    }
    return sections;
  }

  std::vector<std::string> KeysOfSection() const {
    std::vector<std::string> keys;
    for (const SessionKey& key : keys_) {
      if (key.section == section_) keys.emplace_back(key.key);
    }
    return keys;
  }

  const std::vector<SessionKey> keys_ = SessionKeys();
  std::vector<SessionProblem> problems_;
  std::size_t line_ = 0;
  Place place_ = Place::kBeforeAnySection;
  std::string_view section_;  // as the table spells it
  std::set<std::string_view> sections_seen_;
  std::set<const SessionKey*> keys_seen_;
};

}  // namespace

std::string SessionProblem::Sentence() const {
  return line == 0 ? cause : "line " + std::to_string(line) + ": " + cause;
}

std::vector<SessionProblem> CheckSession(const std::string& file_name) {
  const host::Result<std::string> bytes = host::ReadWholeFile(file_name);
  if (!bytes.ok()) return {{0, "the file could not be read: " + bytes.status.cause}};
  if (base::IsUtf16File(bytes.value)) {
    return {{0, "the file is Unicode text of two bytes per character; please save it as plain text"}};
  }
  return Check().Run(host::DecodeText(bytes.value));
}

}  // namespace discwright::settings
