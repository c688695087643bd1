// Reads a command line with the help of the table of options.
#include "tools/mkisofs/options.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string_view>

#include "tools/mkisofs/volume_descriptors.h"

namespace discwright::tools::mkisofs {
namespace {

// The options read so far, and what CheckWhole needs beside them.
struct Parsed {
  Options& options;
  bool no_emulation = false;
  bool has_catalogue = false;
};

// Stores the value of an option, which is empty for an option without one. Fails when the value is wrong.
using StoreValue = Result (*)(Parsed& parsed, std::string_view value);

struct Option {
  std::string_view name;
  std::string_view short_name;  // empty when the option has none
  std::string_view value;       // what the usage text calls its value; empty when it takes none
  std::string_view meaning;
  StoreValue store;
};

Result StoreText(std::string& field, std::string_view value, std::size_t most) {
  if (value.size() > most) {
    return Result::Failure("the text is longer than " + std::to_string(most) + " bytes: " + std::string(value));
  }
  field = value;
  return Result::Success();
}

// Stores a path below the tree without its empty and "." parts, so that it equals the path that the tree reader finds.
Result StorePath(std::string& field, std::string_view value) {
  field.clear();
  for (std::string_view rest = value; !rest.empty();) {
    const std::size_t end = std::min(rest.find('/'), rest.size());
    const std::string_view name = rest.substr(0, end);
    if (name == "..") return Result::Failure("the path leads out of the tree: " + std::string(value));
    if (!name.empty() && name != ".") field.append(field.empty() ? "" : "/").append(name);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return field.empty() ? Result::Failure("the path names no file: " + std::string(value)) : Result::Success();
}

Result StoreLoadSize(Parsed& parsed, std::string_view value) {
  std::uint16_t sectors = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), sectors);
  if (error != std::errc() || end != value.data() + value.size() || sectors == 0) {
    return Result::Failure("not a number from 1 to 65535: " + std::string(value));
  }
  parsed.options.boot_load_sectors = sectors;
  return Result::Success();
}

Result StoreFile(std::string& field, std::string_view value) {
  field = value;
  return value.empty() ? Result::Failure("the name is empty") : Result::Success();
}

constexpr Option kOptions[] = {
    {"-volid", "-V", "TEXT", "volume identifier",
     [](Parsed& parsed, std::string_view value) { return StoreText(parsed.options.volume_id, value, kVolumeIdSize); }},
    {"-preparer", "-p", "TEXT", "who prepared the data",
     [](Parsed& parsed, std::string_view value) { return StoreText(parsed.options.preparer, value, kTextSize); }},
    {"-publisher", "", "TEXT", "who publishes the volume",
     [](Parsed& parsed, std::string_view value) { return StoreText(parsed.options.publisher, value, kTextSize); }},
    {"-appid", "-A", "TEXT", "application identifier",
     [](Parsed& parsed, std::string_view value) { return StoreText(parsed.options.application_id, value, kTextSize); }},
    {"-iso-level", "", "4", "ISO 9660:1999, which stores names unchanged; no other level",
     [](Parsed&, std::string_view value) {
       return value == "4" ? Result::Success()
                           : Result::Failure("only level 4 is supported, not " + std::string(value));
     }},
    {"-omit-period", "", "", "accepted and ignored: a period is never added to a name",
     [](Parsed&, std::string_view) { return Result::Success(); }},
    {"-no-emul-boot", "", "", "the boot image is a program; needed with -eltorito-boot",
     [](Parsed& parsed, std::string_view) {
       parsed.no_emulation = true;
       return Result::Success();
     }},
    {"-boot-load-size", "", "COUNT", "512-byte sectors that the BIOS loads (default: all)",
     [](Parsed& parsed, std::string_view value) { return StoreLoadSize(parsed, value); }},
    {"-eltorito-boot", "-b", "PATH", "boot image, a path below FOLDER",
     [](Parsed& parsed, std::string_view value) { return StorePath(parsed.options.boot_image, value); }},
    {"-eltorito-catalog", "-c", "PATH", "boot catalogue, below FOLDER (default: boot.catalog)",
     [](Parsed& parsed, std::string_view value) {
       parsed.has_catalogue = true;
       return StorePath(parsed.options.boot_catalogue, value);
     }},
    {"-no-stick", "", "", "leaves sector 0 empty: the image starts from a CD only, not from a USB stick or disk",
     [](Parsed& parsed, std::string_view) {
       parsed.options.leave_system_area_empty = true;
       return Result::Success();
     }},
    {"-hide", "", "PATTERN", "leaves matching names out of the directories; * ? [ ] as in a shell",
     [](Parsed& parsed, std::string_view value) {
       parsed.options.hidden.emplace_back(value);
       return Result::Success();
     }},
    {"-follow-links", "", "", "stores the targets of symbolic links",
     [](Parsed& parsed, std::string_view) {
       parsed.options.follow_links = true;
       return Result::Success();
     }},
    {"-cache-inodes", "", "", "stores the data of hard links once",
     [](Parsed& parsed, std::string_view) {
       parsed.options.store_links_once = true;
       return Result::Success();
     }},
    {"-output", "-o", "FILE", "the image to write",
     [](Parsed& parsed, std::string_view value) { return StoreFile(parsed.options.output, value); }},
};

const Option* FindOption(std::string_view word) {
  const Option* const found = std::find_if(std::begin(kOptions), std::end(kOptions), [word](const Option& option) {
    return word == option.name || (!option.short_name.empty() && word == option.short_name);
  });
  return found == std::end(kOptions) ? nullptr : found;
}

// Checks what shows only after all words were read: missing words, and options that need one another.
Result CheckWhole(const Parsed& parsed) {
  const Options& options = parsed.options;
  if (options.output.empty()) return Result::Failure("-output is missing");
  if (options.tree.empty()) return Result::Failure("the folder to master is missing");
  if (options.boot_image.empty()) {
    const bool wants_boot = parsed.no_emulation || parsed.has_catalogue || options.boot_load_sectors;
    return wants_boot ? Result::Failure("-no-emul-boot, -boot-load-size and -eltorito-catalog need -eltorito-boot")
                      : Result::Success();
  }
  if (parsed.no_emulation) return Result::Success();
  return Result::Failure("-eltorito-boot needs -no-emul-boot: floppy and hard disk emulation are not supported");
}

}  // namespace

Result ParseOptions(std::span<const std::string> words, Options& options) {
  Parsed parsed{options};
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (!word.starts_with('-')) {
      if (word.empty()) return Result::Failure("the name of the folder to master is empty");
      if (!options.tree.empty()) {
        return Result::Failure("more than one folder to master: " + options.tree + " and " + word);
      }
      options.tree = word;
      continue;
    }
    const Option* option = FindOption(word);
    if (option == nullptr) return Result::Failure("unknown option " + word);
    const bool has_value = !option->value.empty();
    if (has_value && i + 1 == words.size()) return Result::Failure(word + " needs a value");
    const Result stored = option->store(parsed, has_value ? std::string_view(words[++i]) : std::string_view());
    if (!stored.ok()) return Result::Failure(word + ": " + stored.failure);
  }
  return CheckWhole(parsed);
}

std::string UsageText() {
  std::string text = "Usage: mkisofs OPTION ... -output FILE FOLDER\n";
  for (const Option& option : kOptions) {
    std::string line = "  " + std::string(option.name);
    if (!option.short_name.empty()) line.append(" or ").append(option.short_name);
    if (!option.value.empty()) line.append(" ").append(option.value);
    constexpr std::size_t kMeaningColumn = 36;
    line.resize(std::max(line.size() + 1, kMeaningColumn), ' ');
    text += line.append(option.meaning) + "\n";
  }
  return text;
}

}  // namespace discwright::tools::mkisofs
