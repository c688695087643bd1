// Reads the blocks of a script: its submenus, its entries, and what depends on a file or on the processor.
#include "boot/loader/script_reader.h"
#include "boot/loader/text.h"

namespace discwright::loader {

namespace {

std::uint32_t BitOf(char key) { return IsLetter(key) ? std::uint32_t{1} << (UpperOf(key) - 'A') : 0; }

}  // namespace

bool ScriptReader::IsLeftOut() const {
  if (block_count_ == 0) return false;
  return block_count_ > kMostBlocks || blocks_[block_count_ - 1].is_left_out;
}

std::uint16_t ScriptReader::MenuHere() const {
  return block_count_ == 0 || block_count_ > kMostBlocks ? kMainMenu : blocks_[block_count_ - 1].menu;
}

// Opens a block that is like the one around it. Returns a null pointer when there is no room for it.
ScriptReader::Block* ScriptReader::Push(bool is_menu) {
  const Block inner = {line_, is_menu, IsLeftOut(), MenuHere()};
  if (++block_count_ > kMostBlocks) {
    if (block_count_ == kMostBlocks + 1) Say("at most 16 Menu, IfFile and IfProcessor may stand inside one another");
    return nullptr;
  }
  blocks_[block_count_ - 1] = inner;
  return &blocks_[block_count_ - 1];
}

void ScriptReader::Pop(bool is_menu) {
  const bool is_open = block_count_ > sources_[source_count_ - 1].blocks;
  const bool is_known = is_open && block_count_ <= kMostBlocks;
  if (!is_open || (is_known && blocks_[block_count_ - 1].is_menu != is_menu)) {
    return Say(is_menu ? "EndMenu stands here without its Menu"
                       : "EndIf stands here without its IfFile or IfProcessor");
  }
  Drop();
}

// An empty menu, which is the last entry then, disappears.
void ScriptReader::Drop() {
  if (block_count_-- > kMostBlocks) return;
  const Block& block = blocks_[block_count_];
  if (!block.is_menu || block.is_left_out) return;
  if (block.menu + 1 != script_.entry_count) return;
  const Entry& menu = script_.entries[block.menu];
  if (menu.menu == kMainMenu) hidden_keys_ |= BitOf(menu.key);
  --script_.entry_count;
}

bool ScriptReader::AddEntry(const Entry& entry) {
  if (script_.entry_count == kMostEntries) {
    if (!is_full_) Say("the menu has room for 256 entries; this one and all behind it are left out: %", entry.text);
    is_full_ = true;
    return false;
  }
  script_.entries[script_.entry_count++] = entry;
  return true;
}

// Reads a condition. Outside of entries it opens a block; in an entry it decides about the entry.
void ScriptReader::If(bool is_met) {
  if (is_in_entry_) {
    is_entry_hidden_ = is_entry_hidden_ || !is_met;
    return;
  }
  Block* block = Push(false);
  if (block && !is_met) block->is_left_out = true;
}

void ScriptReader::IfFile(std::string_view path) { If(!path.empty() && files_.Exists(path)); }

void ScriptReader::IfProcessor(std::string_view bits) {
  const bool is_64 = bits == "64";
  if (!is_64 && bits != "32" && !bits.empty()) Say("IfProcessor has the number 64 or 32: %", bits);
  If(is_64 ? processor_ == Processor::k64Bit : bits == "32" && processor_ == Processor::k32Bit);
}

void ScriptReader::EndIf(std::string_view) { Pop(false); }

void ScriptReader::Menu(std::string_view text) {
  Entry menu;
  menu.text = text;
  menu.menu = MenuHere();
  menu.is_menu = true;
  Block* block = Push(true);
  if (!block || block->is_left_out) return;
  if (AddEntry(menu)) {
    block->menu = static_cast<std::uint16_t>(script_.entry_count - 1);
  } else {
    block->is_left_out = true;
  }
}

void ScriptReader::EndMenu(std::string_view) { Pop(true); }

void ScriptReader::BeginEntry(std::string_view text) {
  entry_ = {};
  entry_.text = text;
  entry_.menu = MenuHere();
  is_in_entry_ = true;
  has_command_ = false;
  is_entry_hidden_ = text.empty();  // the missing text was a mistake, which is said already
  entry_line_ = line_;
  first_step_ = script_.step_count;
}

// Called by all that cannot stand in an entry: then EndEntry is missing.
void ScriptReader::FinishEntry() {
  if (!is_in_entry_) return;
  const std::uint32_t line = line_;
  line_ = entry_line_;
  Say("this Entry is not ended with EndEntry");
  line_ = line;
  EndEntry({});
}

void ScriptReader::EndEntry(std::string_view) {
  is_in_entry_ = false;
  const std::uint32_t line = line_;
  line_ = entry_line_;
  if (!has_command_) Say("this Entry is left out, because it has no command: %", entry_.text);
  bool is_shown = has_command_ && !is_entry_hidden_ && !IsLeftOut();
  if (is_shown) {
    line_ = key_line_;
    if (entry_.key != 0 && IsTaken(key_text_, entry_.menu)) entry_.key = 0;
    line_ = entry_line_;
    is_shown = AddEntry(entry_);
  } else if (entry_.menu == kMainMenu) {
    hidden_keys_ |= BitOf(entry_.key);
  }
  if (!is_shown) script_.step_count = first_step_;
  line_ = line;
}

void ScriptReader::Key(std::string_view letter) {
  if (is_in_entry_) {
    if (IsKey(letter)) entry_.key = UpperOf(letter.front());
    key_text_ = letter;
    key_line_ = line_;
    return;
  }
  const bool has_block = block_count_ != 0 && block_count_ <= kMostBlocks;
  if (!has_block || !blocks_[block_count_ - 1].is_menu) {
    if (block_count_ <= kMostBlocks) Say("Key belongs into an Entry, or directly into a Menu");
    return;
  }
  if (!IsKey(letter) || IsLeftOut()) return;
  Entry& menu = script_.entries[blocks_[block_count_ - 1].menu];
  menu.key = 0;  // so that it is not compared with itself
  if (!IsTaken(letter, menu.menu)) menu.key = UpperOf(letter.front());
}

bool ScriptReader::IsKey(std::string_view value) {
  if (value.size() == 1 && IsLetter(value.front())) return true;
  if (!value.empty()) Say("a hot key is one letter from A to Z: %", value);
  return false;
}

bool ScriptReader::IsTaken(std::string_view letter, std::uint16_t menu) {
  for (std::uint16_t i = 0; i < script_.entry_count; ++i) {
    if (script_.entries[i].menu != menu || script_.entries[i].key != UpperOf(letter.front())) continue;
    Say("another entry of this menu has this hot key: %", letter);
    return true;
  }
  return false;
}

void ScriptReader::Help(std::string_view text) {
  if (is_in_entry_) {
    entry_.help = text;
    return;
  }
  if (block_count_ > kMostBlocks) return;
  if (block_count_ == 0 || !blocks_[block_count_ - 1].is_menu) {
    return Say("Help belongs into an Entry, or directly into a Menu");
  }
  if (!IsLeftOut()) script_.entries[blocks_[block_count_ - 1].menu].help = text;
}

// The steps of an entry know its number: no other entry can be added before it is finished.
void ScriptReader::AddStep(Step step) {
  if (IsLeftOut()) return;
  if (script_.step_count == kMostSteps) {
    if (!are_steps_full_)
      Say("the menu has room for 256 lines of Print and Wait; this one and all behind it are left out");
    are_steps_full_ = true;
    return;
  }
  step.owner = is_in_entry_ ? script_.entry_count : kMainMenu;
  script_.steps[script_.step_count++] = step;
}

void ScriptReader::Print(std::string_view text) {
  Step step;
  step.text = text;
  AddStep(step);
}

void ScriptReader::Wait(std::string_view seconds) {
  const std::optional<std::uint32_t> number = NumberIn(seconds.empty() ? "0" : seconds);
  if (!number || *number > kLongestTime) return Say("Wait has a number of seconds from 0 to 3600: %", seconds);
  Step step;
  step.is_wait = true;
  step.seconds = static_cast<std::uint16_t>(*number);
  AddStep(step);
}

void ScriptReader::SetCommand(CommandKind kind, std::string_view path) {
  if (has_command_) return Say("an Entry has one command; this second one does not count");
  has_command_ = true;
  entry_.command.kind = kind;
  entry_.command.path = path;
}

void ScriptReader::Floppy(std::string_view path) {
  SetCommand(CommandKind::kFloppy, path);
  if (path.empty() || !files_.Exists(path)) is_entry_hidden_ = true;
}

void ScriptReader::CdSector(std::string_view path) {
  SetCommand(CommandKind::kCdSector, path);
  if (path.empty() || !files_.Exists(path)) is_entry_hidden_ = true;
}

void ScriptReader::Linux(std::string_view path) {
  SetCommand(CommandKind::kLinux, path);
  if (path.empty() || !files_.Exists(path)) is_entry_hidden_ = true;
}

void ScriptReader::Options(std::string_view text) { entry_.command.options = text; }

void ScriptReader::Initrd(std::string_view path) {
  entry_.command.initrd = path;
  if (path.empty() || !files_.Exists(path)) is_entry_hidden_ = true;
}

void ScriptReader::HardDisk(std::string_view number) {
  if (number == "1") return SetCommand(CommandKind::kFirstHardDisk, {});
  if (number == "2") return SetCommand(CommandKind::kSecondHardDisk, {});
  Say("HardDisk has the number 1 or 2: %", number);
}

void ScriptReader::NextDevice(std::string_view) { SetCommand(CommandKind::kNextDevice, {}); }

void ScriptReader::Overview(std::string_view) { SetCommand(CommandKind::kOverview, {}); }

void ScriptReader::Restart(std::string_view) { SetCommand(CommandKind::kRestart, {}); }

void ScriptReader::PowerOff(std::string_view) { SetCommand(CommandKind::kPowerOff, {}); }

}  // namespace discwright::loader
