// The table of options and its reader.
#include "tools/mkisofs/options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "tools/mkisofs/volume_descriptors.h"

namespace discwright::tools::mkisofs {
namespace {

// What the words say before the whole is judged.
struct Parsed {
  Options& options;
  bool no_emulation = false;
  bool has_catalogue = false;
};

// Takes an option's value (empty for one that has none); a sentence when it cannot be.
using Taker = std::string (*)(Parsed& parsed, std::string_view value);

struct Option {
  std::string_view name;
  std::string_view short_name;  // empty: has none
  std::string_view value;       // what its value is called; empty: has none
  std::string_view meaning;
  Taker take;
};

std::string TakeText(std::string& field, std::string_view value, std::size_t most) {
  if (value.size() > most) return "the text is longer than " + std::to_string(most) + " bytes: " + std::string(value);
  field = value;
  return {};
}

// A path below the tree without empty and "." parts, so that it compares with what is read there.
std::string TakePath(std::string& field, std::string_view value) {
  field.clear();
  for (std::string_view rest = value; !rest.empty();) {
    const std::size_t end = std::min(rest.find('/'), rest.size());
    const std::string_view name = rest.substr(0, end);
    if (name == "..") return "the path leads out of the tree: " + std::string(value);
    if (!name.empty() && name != ".") field.append(field.empty() ? "" : "/").append(name);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return field.empty() ? "the path names no file: " + std::string(value) : std::string();
}

std::string TakeLoadSize(Parsed& parsed, std::string_view value) {
  std::uint16_t sectors = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), sectors);
  if (error != std::errc() || end != value.data() + value.size() || sectors == 0)
    return "not a number from 1 to 65535: " + std::string(value);
  parsed.options.boot_load_sectors = sectors;
  return {};
}

std::string TakeFile(std::string& field, std::string_view value) {
  field = value;
  return value.empty() ? "the name is empty" : "";
}

constexpr auto kOptions = std::to_array<Option>({
    {"-volid", "-V", "TEXT", "volume identifier",
     [](Parsed& p, std::string_view v) { return TakeText(p.options.volume_id, v, kVolumeIdSize); }},
    {"-preparer", "-p", "TEXT", "who prepared the data",
     [](Parsed& p, std::string_view v) { return TakeText(p.options.preparer, v, kTextSize); }},
    {"-publisher", "", "TEXT", "who publishes the volume",
     [](Parsed& p, std::string_view v) { return TakeText(p.options.publisher, v, kTextSize); }},
    {"-appid", "-A", "TEXT", "application identifier",
     [](Parsed& p, std::string_view v) { return TakeText(p.options.application_id, v, kTextSize); }},
    {"-iso-level", "", "4", "names as they are on disk; the only level there is",
     [](Parsed&, std::string_view v) {
       return v == "4" ? std::string() : "only level 4 is made, not " + std::string(v);
     }},
    {"-omit-period", "", "", "no period is added to names; never is",
     [](Parsed&, std::string_view) { return std::string(); }},
    {"-no-emul-boot", "", "", "the boot image is a program, not a floppy image; needed to boot",
     [](Parsed& p, std::string_view) {
       p.no_emulation = true;
       return std::string();
     }},
    {"-boot-load-size", "", "COUNT", "how many 512-byte sectors the BIOS loads; all without",
     [](Parsed& p, std::string_view v) { return TakeLoadSize(p, v); }},
    {"-eltorito-boot", "-b", "PATH", "boot image, below the tree",
     [](Parsed& p, std::string_view v) { return TakePath(p.options.boot_image, v); }},
    {"-eltorito-catalog", "-c", "PATH", "boot catalogue, below the tree; boot.catalog without",
     [](Parsed& p, std::string_view v) {
       p.has_catalogue = true;
       return TakePath(p.options.boot_catalogue, v);
     }},
    {"-hide", "", "PATTERN", "stores files of this name without showing them; * ? [ ] as in a shell",
     [](Parsed& p, std::string_view v) {
       p.options.hidden.emplace_back(v);
       return std::string();
     }},
    {"-follow-links", "", "", "stores what symbolic links lead to",
     [](Parsed& p, std::string_view) {
       p.options.follow_links = true;
       return std::string();
     }},
    {"-cache-inodes", "", "", "stores a file with several names once",
     [](Parsed& p, std::string_view) {
       p.options.store_links_once = true;
       return std::string();
     }},
    {"-output", "-o", "FILE", "the image",
     [](Parsed& p, std::string_view v) { return TakeFile(p.options.output, v); }},
});

const Option* FindOption(std::string_view word) {
  const auto found = std::find_if(kOptions.begin(), kOptions.end(), [word](const Option& option) {
    return word == option.name || (!option.short_name.empty() && word == option.short_name);
  });
  return found == kOptions.end() ? nullptr : &*found;
}

// What is wrong with the command line as a whole.
std::string Judge(const Parsed& parsed) {
  const Options& options = parsed.options;
  if (options.output.empty()) return "-output is missing";
  if (options.tree.empty()) return "the folder to master is missing";
  if (options.boot_image.empty()) {
    const bool wants_boot = parsed.no_emulation || parsed.has_catalogue || options.boot_load_sectors;
    return wants_boot ? "an option for booting stands without -eltorito-boot" : "";
  }
  return parsed.no_emulation ? "" : "-eltorito-boot needs -no-emul-boot: floppy and hard disk emulation are not made";
}

}  // namespace

std::string ParseOptions(std::span<const std::string> words, Options& options) {
  Parsed parsed{options};
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (!word.starts_with('-')) {
      if (word.empty()) return "the name of the folder to master is empty";
      if (!options.tree.empty()) return "more than one folder to master: " + options.tree + " and " + word;
      options.tree = word;
      continue;
    }
    const Option* option = FindOption(word);
    if (option == nullptr) return "unknown option " + word;
    const bool has_value = !option->value.empty();
    if (has_value && i + 1 == words.size()) return word + " needs a value";
    const std::string problem = option->take(parsed, has_value ? std::string_view(words[++i]) : std::string_view());
    if (!problem.empty()) return std::string(word).append(": ").append(problem);
  }
  return Judge(parsed);
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
