// A host in memory for the tests of the core: Windows-like drives and paths, recorded calls, injected failures.
#pragma once

#include <deque>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/desktop.h"
#include "host/files.h"
#include "host/shell_operations.h"
#include "host/system.h"

namespace discwright::testing {

// The one fake behind all functions of host/files.h, host/system.h, host/desktop.h, host/script.h, host/profile.h,
// host/code_page.h, host/registry.h, host/shell_operations.h and WindowsProgramLine. Construct one at the start of each
// test (a member of the fixture): it starts empty, with the folder C:\Discwright as program folder.
class FakeHost {
 public:
  FakeHost();
  ~FakeHost();

  // Setting the scene; folders on the way are made. Names keep their case and are found in any.
  void AddFile(std::string_view path, std::string_view content, bool read_only = false);
  void AddFileOfSize(std::string_view path, std::int64_t size);  // reported size only; the content is empty
  void AddFolder(std::string_view path);
  void AddSpecial(std::string_view path);                                            // a device, socket or pipe
  void AddLink(std::string_view path, std::string_view target, bool loops = false);  // to a file or folder

  bool Exists(std::string_view path) const;
  std::string Content(std::string_view path) const;   // "<missing>" when there is no such file
  std::string RealName(std::string_view path) const;  // the last component in its own letter case
  std::vector<std::string> Files() const;             // every file's full path, sorted

  // From now on `function` ("ListFolder", "CopyFileWithProgress", "RemoveFile", "MakeFolders", ...) fails for every
  // path that contains `path_part` (ignoring case; "" is every path), at most `times` times.
  void FailOn(std::string_view function, std::string_view path_part, host::ErrorClass error,
              std::string_view cause = "injected", int times = 1000000);

  std::vector<std::string>
      calls;  // "Function path" or "Function from -> to", for functions that change something or open

  std::string program_folder = "C:\\Discwright";
  std::string current_folder = "C:\\Current";
  std::string claimed_folder;  // by another program
  int platform_id = 2;
  std::vector<std::string> optical_drives;
  std::vector<std::string> drive_roots{"A:\\", "C:\\", "D:\\"};
  std::string windows_folder = "C:\\WINDOWS\\";
  std::string home_folder;
  std::map<std::string, std::string> short_paths;  // keyed by the path as asked
  std::map<std::string, std::string> registry;     // text values by "Sub key\\Value name"
  bool shows_disc_names_in_lower_case = false;
  bool shows_slashes = false;  // PathToNative gives "C:/folder/name": tells what is shown from what is not
  std::string wine;            // what comes before a Windows program to start it: "wine "
  bool starts_windows_programs = true;
  bool shell_joins_folders = true;  // false: a folder that the destination has stays where it is, without a word
  std::vector<host::ShellOperation> shell_operations;  // all that were asked for
  std::deque<host::ShellAnswer> shell_answers;         // of the next ones, which then do nothing
  host::Date today{2026, 11, 15, "Sun"};
  int pieces_per_file = 2;  // kChunkFinished calls per copied file

  struct Node {
    std::string name;
    host::EntryKind kind = host::EntryKind::kFile;
    std::string content;
    std::int64_t size_override = -1;
    bool read_only = false;
    std::string link_target;
    bool loops = false;
  };
  // For the fake's own functions: the node at a path, links not followed; null when there is none.
  Node* Find(std::string_view path);
  // A failure injected for this call, or success; records the call when `record` is given.
  host::Status Enter(std::string_view function, std::string_view path, std::string_view record = "");
  static FakeHost& Current();
  static std::string Key(std::string_view path);  // canonical: "c:\folder\name" in lower case
  std::map<std::string, Node> nodes;              // by Key

 private:
  struct Injected {
    std::string function;
    std::string path_part;
    host::Status status;
    int times = 0;
  };
  std::deque<Injected> injected_;
};

}  // namespace discwright::testing
