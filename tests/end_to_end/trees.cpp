// Makes, fingerprints and compares folder trees.
#include "tests/end_to_end/trees.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>

#include "tests/end_to_end/running_program.h"

namespace discwright::testing {

namespace {

constexpr int kDifferencesShown = 10;

struct stat Facts(const fs::path& path) {
  struct stat facts {};
  lstat(path.c_str(), &facts);
  return facts;
}

Content ContentOf(const fs::path& path) {
  const struct stat facts = Facts(path);
  if (S_ISDIR(facts.st_mode)) return {true, 0, 0, 0};
  const std::string bytes = ReadFile(path);
  return {false, bytes.size(), std::hash<std::string>()(bytes), facts.st_mtim.tv_sec};
}

std::string Text(const Content& content) {
  if (content.is_folder) return "a folder";
  return std::to_string(content.size) + " bytes, hash " + std::to_string(content.hash) + ", changed at " +
         std::to_string(content.seconds);
}

std::string Text(const Contents& contents, const std::string& name) {
  const auto found = contents.find(name);
  return found == contents.end() ? "nothing" : Text(found->second);
}

Contents Extracted(const std::vector<std::string>& command, const fs::path& folder) {
  const Outcome outcome = RunProgram(command, {.environment = {{"LC_ALL", "C.UTF-8"}}});
  EXPECT_EQ(outcome.exit_code, 0) << command[0] << ": " << outcome.err;
  return ContentsOf(folder);
}

}  // namespace

void WriteFile(const fs::path& file, std::string_view content) {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << content;
  if (ReadFile(file) != content) throw std::runtime_error("the test could not write " + file.string());
}

std::string ReadFile(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary | std::ios::ate);
  if (!stream) return "<missing>";
  std::string content(static_cast<std::size_t>(stream.tellg()), '\0');
  stream.seekg(0).read(content.data(), static_cast<std::streamsize>(content.size()));
  return content;
}

std::string OlderImage(std::string_view label) {
  std::string bytes(label);
  bytes.resize(32769, '\0');
  return bytes.append("CD001\x01");
}

TemporaryFolder::TemporaryFolder(std::string_view name_begin) {
  std::string name = (fs::temp_directory_path() / name_begin).string() + " XXXXXX";
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("the test could not make the folder " + name);
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  for (const std::string& process : ProcessesIn(path_)) kill(std::stoi(process), SIGKILL);
  std::error_code error;
  fs::remove_all(path_, error);
}

Contents ContentsOf(const fs::path& folder) {
  Contents contents;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_symlink() || entry.is_other()) continue;
    contents[entry.path().lexically_relative(folder).string()] = ContentOf(entry.path());
  }
  return contents;
}

Contents WithoutTimes(Contents contents) {
  for (auto& [name, content] : contents) content.seconds = 0;
  return contents;
}

Contents Below(const Contents& contents, const std::string& folder) {
  Contents below;
  for (const auto& [name, content] : contents) {
    if (name.starts_with(folder + "/")) below[name.substr(folder.size() + 1)] = content;
  }
  return below;
}

Contents WithAsciiNames(Contents contents) {
  std::erase_if(contents, [](const auto& entry) {
    return std::any_of(entry.first.begin(), entry.first.end(), [](unsigned char byte) { return byte >= 0x80; });
  });
  return contents;
}

std::string Difference(const Contents& expected, const Contents& actual) {
  Contents names = expected;
  names.insert(actual.begin(), actual.end());
  std::ostringstream lines;
  int count = 0;
  for (const auto& [name, content] : names) {
    const std::string wanted = Text(expected, name);
    const std::string found = Text(actual, name);
    if (wanted == found || ++count > kDifferencesShown) continue;
    lines << name << ": " << wanted << " expected, " << found << " found\n";
  }
  if (count > kDifferencesShown) lines << "and " << count - kDifferencesShown << " more\n";
  return lines.str();
}

std::map<std::string, std::string> Fingerprint(const fs::path& folder) {
  std::map<std::string, std::string> entries;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    const struct stat facts = Facts(entry.path());
    std::ostringstream text;
    text << facts.st_ino << " " << facts.st_mode << " " << facts.st_uid << " " << facts.st_nlink << " " << facts.st_size
         << " " << facts.st_mtim.tv_sec << "." << facts.st_mtim.tv_nsec << " " << facts.st_ctim.tv_sec << "."
         << facts.st_ctim.tv_nsec;
    if (entry.is_symlink()) text << " to " << fs::read_symlink(entry.path());
    if (S_ISREG(facts.st_mode)) text << " " << std::hash<std::string>()(ReadFile(entry.path()));
    entries[entry.path().string()] = text.str();
  }
  return entries;
}

Contents ReadWithBsdtar(const fs::path& image) {
  const TemporaryFolder folder;
  return Extracted({"bsdtar", "-x", "-f", image.string(), "-C", folder.path().string()}, folder.path());
}

Contents ReadWithXorriso(const fs::path& image) {
  const TemporaryFolder folder;
  return Extracted({"xorriso", "-no_rc", "-abort_on", "FATAL", "-return_with", "SORRY", "32", "-osirrox", "on",
                    "-ecma119_map", "unmapped", "-indev", image.string(), "-extract", "/", folder.path().string()},
                   folder.path());
}

}  // namespace discwright::testing
