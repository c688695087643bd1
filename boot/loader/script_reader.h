// The reader of scripts: it goes through the lines of a script and of those that it includes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "boot/loader/files.h"
#include "boot/loader/script.h"
#include "boot/loader/script_line.h"

namespace discwright::loader {

class ScriptReader {
 public:
  ScriptReader(Files& files, Processor processor, std::span<char> memory, Script& script)
      : files_(files), processor_(processor), memory_(memory), script_(script) {}
  void Read(std::string_view path);

 private:
  struct Source {
    std::string_view path;
    std::string_view rest;  // what is still to be read
    std::uint32_t line = 0;
    std::size_t blocks = 0;  // how many are open around this file
  };
  struct Block {
    std::uint32_t line = 0;
    bool is_menu = false;
    bool is_left_out = false;        // its lines do not count
    std::uint16_t menu = kMainMenu;  // the menu to which entries in it belong
  };
  using Action = void (ScriptReader::*)(std::string_view value);
  enum class Place : std::uint8_t { kOutside, kInEntry, kAnywhere };
  enum class Value : std::uint8_t { kNone, kOptional, kNeeded };
  struct Word {
    std::string_view text;
    Place place;
    Value value;
    Action action;
  };
  static const Word kWords[];

  void Say(std::string_view reason, std::string_view detail = {});

  // Files.
  void Open(std::string_view path);
  void TakeText(std::string_view path, std::size_t size, bool is_cut);
  void Close();
  std::string_view NextLine();
  void ReadLine(std::string_view line);
  void Do(const Word& word, const ScriptLine& line);
  void Set(const ScriptLine& line);
  void SetPasswordRequest(std::string_view value);
  void SetPassword(std::string_view value);
  void SetTimeout(std::string_view value);

  // Blocks.
  [[nodiscard]] bool IsLeftOut() const;
  [[nodiscard]] std::uint16_t MenuHere() const;
  Block* Push(bool is_menu);
  void If(bool is_met);
  void Pop(bool is_menu);
  void Drop();
  bool AddEntry(const Entry& entry);
  void FinishEntry();
  bool IsKey(std::string_view value);
  bool IsTaken(std::string_view letter, std::uint16_t menu);
  void AddStep(Step step);
  void SetCommand(CommandKind kind, std::string_view path);

  // Words.
  void Include(std::string_view path);
  void IfFile(std::string_view path);
  void IfProcessor(std::string_view bits);
  void EndIf(std::string_view);
  void Menu(std::string_view text);
  void EndMenu(std::string_view);
  void BeginEntry(std::string_view text);
  void EndEntry(std::string_view);
  void Key(std::string_view letter);
  void Help(std::string_view text);
  void Print(std::string_view text);
  void Wait(std::string_view seconds);
  void Floppy(std::string_view path);
  void CdSector(std::string_view path);
  void Linux(std::string_view path);
  void Options(std::string_view text);
  void Initrd(std::string_view path);
  void HardDisk(std::string_view number);
  void NextDevice(std::string_view);
  void Overview(std::string_view);
  void Restart(std::string_view);
  void PowerOff(std::string_view);

  void AddFallback();
  void FindDefault();

  Files& files_;
  Processor processor_;
  std::span<char> memory_;  // what is still free
  Script& script_;
  std::array<Source, kMostIncludes + 1> sources_{};
  std::size_t source_count_ = 0;
  std::size_t opened_ = 0;
  std::string_view file_;  // where a mistake is
  std::uint32_t line_ = 0;
  std::array<Block, kMostBlocks> blocks_{};
  std::size_t block_count_ = 0;  // may be more than there is room for: what is in those blocks does not count
  Entry entry_;
  bool is_in_entry_ = false;
  bool has_command_ = false;
  bool is_entry_hidden_ = false;
  std::uint32_t entry_line_ = 0;
  std::string_view key_text_;  // the hot key of the entry as it was written
  std::uint32_t key_line_ = 0;
  std::uint16_t first_step_ = 0;
  std::uint32_t hidden_keys_ = 0;  // a bit for each letter that is the hot key of a hidden entry of the main menu
  bool is_full_ = false;
  bool are_steps_full_ = false;
  std::string_view default_;
  std::string_view default_file_;
  std::uint32_t default_line_ = 0;
};

}  // namespace discwright::loader
