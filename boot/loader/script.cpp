// Reads a script: its files, its lines and its settings. The words of entries are in script_entries.cpp.
#include "boot/loader/script.h"

#include "boot/loader/script_reader.h"
#include "boot/loader/text.h"

namespace discwright::loader {

namespace {

constexpr std::string_view kRequest = "PasswordRequest";

bool IsLineEnd(char byte) { return byte == '\n' || byte == '\r'; }

}  // namespace

void ReadScript(Files& files, std::string_view path, Processor processor, std::span<char> memory, Script& script) {
  ScriptReader(files, processor, memory, script).Read(path);
}

std::string_view Describe(const Mistake& mistake, std::span<char> to) {
  constexpr std::size_t kLongestDetail = 40;
  TextWriter writer(to);
  writer.Add(mistake.file);
  if (mistake.line != 0) writer.Add(", line ").Add(mistake.line);
  writer.Add(": ");
  for (const char& byte : mistake.reason) {
    if (byte != '%') {
      writer.Add(std::string_view(&byte, 1));
      continue;
    }
    writer.Add(Part(mistake.detail, 0, kLongestDetail));
    if (mistake.detail.size() > kLongestDetail) writer.Add("...");
  }
  return writer.text();
}

constinit const ScriptReader::Word ScriptReader::kWords[] = {
    {"Include", Place::kOutside, Value::kNeeded, &ScriptReader::Include},
    {"IfFile", Place::kAnywhere, Value::kNeeded, &ScriptReader::IfFile},
    {"IfProcessor", Place::kAnywhere, Value::kNeeded, &ScriptReader::IfProcessor},
    {"EndIf", Place::kOutside, Value::kNone, &ScriptReader::EndIf},
    {"Menu", Place::kOutside, Value::kNeeded, &ScriptReader::Menu},
    {"EndMenu", Place::kOutside, Value::kNone, &ScriptReader::EndMenu},
    {"Entry", Place::kOutside, Value::kNeeded, &ScriptReader::BeginEntry},
    {"EndEntry", Place::kInEntry, Value::kNone, &ScriptReader::EndEntry},
    {"Key", Place::kAnywhere, Value::kNeeded, &ScriptReader::Key},
    {"Help", Place::kAnywhere, Value::kNeeded, &ScriptReader::Help},
    {"Print", Place::kAnywhere, Value::kOptional, &ScriptReader::Print},
    {"Wait", Place::kAnywhere, Value::kOptional, &ScriptReader::Wait},
    {"Floppy", Place::kInEntry, Value::kNeeded, &ScriptReader::Floppy},
    {"CdSector", Place::kInEntry, Value::kNeeded, &ScriptReader::CdSector},
    {"Linux", Place::kInEntry, Value::kNeeded, &ScriptReader::Linux},
    {"Options", Place::kInEntry, Value::kNeeded, &ScriptReader::Options},
    {"Initrd", Place::kInEntry, Value::kNeeded, &ScriptReader::Initrd},
    {"HardDisk", Place::kInEntry, Value::kNeeded, &ScriptReader::HardDisk},
    {"NextDevice", Place::kInEntry, Value::kNone, &ScriptReader::NextDevice},
    {"Overview", Place::kInEntry, Value::kNone, &ScriptReader::Overview},
    {"Restart", Place::kInEntry, Value::kNone, &ScriptReader::Restart},
    {"PowerOff", Place::kInEntry, Value::kNone, &ScriptReader::PowerOff},
};

void ScriptReader::Say(std::string_view reason, std::string_view detail) {
  if (script_.mistake_count < kMostMistakes) script_.mistakes[script_.mistake_count] = {file_, line_, reason, detail};
  if (script_.mistake_count != UINT32_MAX) ++script_.mistake_count;
}

void ScriptReader::Read(std::string_view path) {
  file_ = path;
  Open(path);
  while (source_count_ != 0) {
    Source& source = sources_[source_count_ - 1];
    file_ = source.path;
    if (source.rest.empty()) {
      Close();
      continue;
    }
    const std::string_view line = NextLine();
    line_ = source.line;
    ReadLine(line);
  }
  AddFallback();
  FindDefault();
}

void ScriptReader::Open(std::string_view path) {
  if (opened_ == kMostScripts) return Say("this script is not read, because a menu has at most 64 scripts: %", path);
  ++opened_;
  const bool is_short = memory_.size() < kLargestScript;
  const bool is_cd = files_.medium() == Medium::kCd;
  const FileText text = files_.Read(path, is_short ? memory_ : memory_.first(kLargestScript));
  switch (text.end) {
    case ReadEnd::kNotFound:
      return Say(is_cd ? "this script is not on the CD: %" : "this script is not on the disk: %", path);
    case ReadEnd::kFailed:
      return Say(
          is_cd ? "this script could not be read from the CD: %" : "this script could not be read from the disk: %",
          path);
    case ReadEnd::kTooLarge:
      Say(is_short ? "the memory for scripts is full, so the end of this script does not count: %"
                   : "a script has at most 64 KB, so the end of this script does not count: %",
          path);
      break;
    case ReadEnd::kRead:
      break;
  }
  TakeText(path, text.size, text.end == ReadEnd::kTooLarge);
}

// A script that is cut ends with its last whole line: half a command could do something else.
void ScriptReader::TakeText(std::string_view path, std::size_t size, bool is_cut) {
  if (size > memory_.size()) size = memory_.size();
  std::string_view text(memory_.data(), size);
  memory_ = memory_.subspan(size);
  if (is_cut) {
    while (!text.empty() && !IsLineEnd(text.back())) text.remove_suffix(1);
  }
  if (Part(text, 0, 2) == "\xFF\xFE" || Part(text, 0, 2) == "\xFE\xFF") {
    Say("this script is Unicode text of two bytes per character, and does not count; save it as plain text: %", path);
    text = {};
  }
  constexpr char kEndOfFile = '\x1A';  // some editors of DOS write it at the end of a file
  while (!text.empty() && text.back() == kEndOfFile) text.remove_suffix(1);
  constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";  // some editors write it at the start of a file
  if (Part(text, 0, kUtf8Mark.size()) == kUtf8Mark) text.remove_prefix(kUtf8Mark.size());
  sources_[source_count_++] = {path, text, 0, block_count_};
}

// Ends what the file has left open, so that a mistake in one file does not change the meaning of another.
void ScriptReader::Close() {
  FinishEntry();
  const std::size_t around = sources_[source_count_ - 1].blocks;
  while (block_count_ > around) {
    if (block_count_ <= kMostBlocks) {
      const Block& block = blocks_[block_count_ - 1];
      line_ = block.line;
      Say(block.is_menu ? "this Menu is not ended with EndMenu" : "this IfFile or IfProcessor is not ended with EndIf");
    }
    Drop();
  }
  --source_count_;
}

std::string_view ScriptReader::NextLine() {
  Source& source = sources_[source_count_ - 1];
  ++source.line;
  std::size_t size = 0;
  while (size < source.rest.size() && !IsLineEnd(source.rest[size])) ++size;
  const std::string_view line = Part(source.rest, 0, size);
  const bool is_pair = Part(source.rest, size, 2) == "\r\n";
  source.rest = Part(source.rest, size + (is_pair ? 2 : 1));
  return line;
}

void ScriptReader::ReadLine(std::string_view text) {
  const ScriptLine line = SplitLine(text);
  if (line.word.empty()) return;
  if (IsSameText(line.word, "Set")) return Set(line);
  for (const Word& word : kWords) {
    if (IsSameText(word.text, line.word)) return Do(word, line);
  }
  Say("no line begins with this word: %", line.word);
}

void ScriptReader::Do(const Word& word, const ScriptLine& line) {
  if (word.place == Place::kOutside) FinishEntry();
  if (word.place == Place::kInEntry && !is_in_entry_) {
    return Say("this word belongs between Entry and EndEntry: %", word.text);
  }
  if (line.quotes == Quotes::kNotClosed) Say("the second quote of the value is missing");
  if (line.quotes == Quotes::kTextBehind) Say("something stands behind the second quote of the value");
  if (word.value == Value::kNeeded && !line.has_value) Say("this word needs a value: %", word.text);
  if (word.value == Value::kNone && line.has_value) Say("this word has no value: %", word.text);
  (this->*word.action)(line.value);
}

void ScriptReader::Set(const ScriptLine& line) {
  FinishEntry();
  // A line that names the request is meant to close the menu, even if the rest of the line is wrong.
  const bool is_request = IsSameText(Part(line.name, 0, kRequest.size()), kRequest);
  if (is_request && !(line.has_equals_sign && line.has_value)) SetPasswordRequest({});
  if (!line.has_equals_sign) return Say("Set needs a name, an equals sign and a value");
  const bool is_password = IsSameText(line.name, "PasswordString");
  if (line.quotes == Quotes::kNotClosed) Say("the second quote of the value is missing");
  if (line.quotes == Quotes::kTextBehind && !is_password) Say("something stands behind the second quote of the value");
  if (!line.has_value) return Say("Set needs a value for %, which may be \"\"", line.name);
  if (IsLeftOut()) return;
  if (is_password) return SetPassword(line.value);
  if (IsSameText(line.name, kRequest)) return SetPasswordRequest(line.value);
  if (IsSameText(line.name, "Timeout")) return SetTimeout(line.value);
  if (IsSameText(line.name, "Title")) {
    script_.title = line.value;
  } else if (IsSameText(line.name, "Default")) {
    default_ = line.value;
    default_file_ = file_;
    default_line_ = line_;
  } else {
    Say("Set knows no %, only Title, Timeout, Default, PasswordRequest and PasswordString", line.name);
  }
}

// A value with a mistake must not open a menu that was meant to be closed.
void ScriptReader::SetPasswordRequest(std::string_view value) {
  if (IsLeftOut()) return;
  if (value == "0") {
    if (script_.asks_for_password) Say("the password was requested before, and stays so");
    return;
  }
  if (value != "1") Say("PasswordRequest is 0 or 1; the menu now asks for the password: %", value);
  script_.asks_for_password = true;
}

void ScriptReader::SetPassword(std::string_view value) {
  if (!script_.password.empty()) return Say("the password was set before, and stays as it was");
  script_.password = value;
  script_.has_password = true;
}

void ScriptReader::SetTimeout(std::string_view value) {
  const std::optional<std::uint32_t> seconds = NumberIn(value);
  if (!seconds || *seconds > kLongestTime) return Say("Timeout is a number of seconds from 0 to 3600: %", value);
  script_.timeout = *seconds;
}

void ScriptReader::Include(std::string_view path) {
  if (IsLeftOut() || path.empty()) return;
  for (std::size_t i = 0; i < source_count_; ++i) {
    if (IsSamePath(sources_[i].path, path)) return Say("this script includes itself, perhaps through another: %", path);
  }
  if (source_count_ == sources_.size()) return Say("at most 8 scripts may include one another: %", path);
  Open(path);
}

// Without any entry the user could only switch the computer off.
void ScriptReader::AddFallback() {
  if (script_.entry_count != 0) return;
  const bool is_cd = files_.medium() == Medium::kCd;
  const Entry entries[] = {
      {"First hard disk",
       "Starts the first hard disk.",
       kMainMenu,
       'H',
       false,
       {CommandKind::kFirstHardDisk, {}, {}, {}}},
      {"Next boot device",
       is_cd ? "Goes on without this CD." : "Goes on without this disk.",
       kMainMenu,
       'N',
       false,
       {CommandKind::kNextDevice, {}, {}, {}}},
      {"Restart", "Restarts the computer.", kMainMenu, 'R', false, {CommandKind::kRestart, {}, {}, {}}},
      {"Power off", "Switches the computer off.", kMainMenu, 'P', false, {CommandKind::kPowerOff, {}, {}, {}}},
  };
  line_ = 0;
  Say(is_cd ? "no entry can be shown, so the menu has only those that need no file of the CD"
            : "no entry can be shown, so the menu has only those that need no file of the disk");
  for (const Entry& entry : entries) script_.entries[script_.entry_count++] = entry;
}

void ScriptReader::FindDefault() {
  const std::optional<std::uint32_t> wanted = NumberIn(default_.empty() ? "1" : default_);
  const char key = default_.size() == 1 ? UpperOf(default_.front()) : '\0';
  std::uint32_t number = 0;
  for (std::uint16_t i = 0; i < script_.entry_count; ++i) {
    const Entry& entry = script_.entries[i];
    if (entry.menu != kMainMenu) continue;
    ++number;
    if (wanted ? number == *wanted : IsLetter(key) && entry.key == key) script_.default_entry = i;
  }
  file_ = default_file_;
  line_ = default_line_;
  if (script_.default_entry == kNoEntry) {
    const bool is_hidden = IsLetter(key) && (hidden_keys_ >> (key - 'A') & 1) != 0;
    if (!is_hidden) Say("no entry of the main menu has this place or hot key: %", default_);
  } else if (script_.entries[script_.default_entry].is_menu) {
    script_.default_entry = kNoEntry;
    if (!default_.empty()) Say("a submenu cannot be the default: %", default_);
  }
}

}  // namespace discwright::loader
