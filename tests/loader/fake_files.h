// Files in memory for the tests of the loader's script.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "boot/loader/files.h"
#include "boot/loader/script.h"
#include "boot/loader/text.h"

namespace discwright::loader {

class FakeFiles : public Files {
 public:
  Medium medium() const override { return where; }
  bool Exists(std::string_view path) override { return Find(path) != nullptr; }

  FileText Read(std::string_view path, std::span<char> to) override {
    ++reads;
    const std::string* text = Find(path);
    if (!text) return {ReadEnd::kNotFound, 0};
    if (IsSamePath(path, unreadable)) return {ReadEnd::kFailed, 0};
    const std::size_t size = std::min(text->size(), to.size());
    std::copy_n(text->begin(), size, to.begin());
    return {size < text->size() ? ReadEnd::kTooLarge : ReadEnd::kRead, size};
  }

  Medium where = Medium::kCd;
  std::map<std::string, std::string> files;
  std::string unreadable;
  int reads = 0;

 private:
  const std::string* Find(std::string_view path) const {
    for (const auto& [name, text] : files) {
      if (IsSamePath(name, path)) return &text;
    }
    return nullptr;
  }
};

// A script that was read, together with the memory that its texts are in.
struct ReadScriptText {
  explicit ReadScriptText(FakeFiles& files, Processor processor = Processor::k32Bit, std::size_t room = 256 * 1024)
      : memory(room) {
    ReadScript(files, "main.cds", processor, memory, *script);
  }
  explicit ReadScriptText(const std::string& text) : ReadScriptText(text, {}) {}
  // `present` are files that are on the CD.
  ReadScriptText(const std::string& text, const std::vector<std::string>& present,
                 Processor processor = Processor::k32Bit)
      : memory(256 * 1024) {
    FakeFiles files;
    files.files["main.cds"] = text;
    for (const std::string& path : present) files.files[path];
    ReadScript(files, "main.cds", processor, memory, *script);
  }

  std::vector<std::string> Mistakes() const {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < std::min<std::size_t>(script->mistake_count, kMostMistakes); ++i) {
      char text[240];
      texts.emplace_back(Describe(script->mistakes[i], text));
    }
    return texts;
  }
  // The texts of the entries. An entry in a submenu has the text of the submenu and a "/" in front of its own.
  std::vector<std::string> Entries() const {
    std::vector<std::string> texts;
    for (std::uint16_t i = 0; i < script->entry_count; ++i) texts.push_back(NameOf(i));
    return texts;
  }
  std::string NameOf(std::uint16_t number) const {
    const Entry& entry = script->entries[number];
    return (entry.menu == kMainMenu ? "" : NameOf(entry.menu) + "/") + std::string(entry.text);
  }

  std::vector<char> memory;
  std::unique_ptr<Script> script = std::make_unique<Script>();
};

}  // namespace discwright::loader
