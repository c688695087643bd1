// A temporary program folder with a disk profile: add files to the profile, make the image, read it with mtools.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/host/temp_folder.h"
#include "tests/support/shell.h"

namespace discwright::testing {

inline std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return file ? content.str() : "<missing>";
}

inline void WriteFile(const std::filesystem::path& path, const std::string& content) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << content;
}

// Made by the constructor, removed by the destructor. Its name has blanks and umlauts, because users' folders do.
class ProgramFolder {
 public:
  ProgramFolder() {
    std::random_device random;
    do {
      top_ = std::filesystem::temp_directory_path() / ("createdsk " + std::to_string(random()));
    } while (!std::filesystem::create_directory(top_));
    path_ = top_ / host::testing::PathOf("Mein Ordner \xC3\xA4\xC3\xB6\xC3\xBC");
    std::filesystem::create_directories(Disks());
  }
  ~ProgramFolder() { std::filesystem::remove_all(top_); }
  ProgramFolder(const ProgramFolder&) = delete;
  ProgramFolder& operator=(const ProgramFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::string Text() const { return host::testing::TextOf(path_); }  // the path of the folder
  std::filesystem::path Disks() const { return path_ / "files" / "disks"; }
  std::filesystem::path Profile() const { return Disks() / "mine"; }
  std::filesystem::path Image() const { return path_ / "mine.img"; }

  // Both write into the profile "mine". Its disk.ini names the image "mine.img" and the label MINE.
  void Add(const std::string& name, const std::string& content) const {
    WriteFile(Profile() / host::testing::PathOf(name), content);
  }
  void AddDiskIni(const std::string& more) const {
    Add("disk.ini", "[Disk]\r\nImage=mine.img\r\nLabel=MINE\r\n" + more);
  }

  // The names in the program folder.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
      names.push_back(host::testing::TextOf(entry.path().filename()));
    return names;
  }

  // Runs a command line of the shell in another folder than the program's.
  ShellEnd Run(const std::string& command) const {
    return RunShell("PATH=$PATH:/usr/sbin:/sbin; export PATH; cd " + ShellPath(top_) + " && { " + command + "; }");
  }

  // The content of a file in the image, read with mtools.
  std::string OnDisk(const std::string& name) const {
    const std::filesystem::path copy = top_ / "copy";
    std::filesystem::remove(copy);
    const ShellEnd end = Run("mcopy -n -i " + ShellPath(Image()) + " '::" + name + "' " + ShellPath(copy));
    return end.exit_code == 0 ? ReadFile(copy) : "<" + end.output + ">";
  }

 private:
  std::filesystem::path top_;
  std::filesystem::path path_;
};

}  // namespace discwright::testing
