// A host in memory for the tests of the core. It has the drives and paths of Windows, records calls and injects
// failures.
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

// The content of a file with the mark of a disc image (ECMA-119, 8.1.2), which a build replaces without a question.
inline std::string DiscImage() {
  constexpr std::size_t kMarkAt = 16 * 2048 + 1;
  return std::string(kMarkAt, '\0') + "CD001";
}

// Implements all functions of host/files.h, host/folder_facts.h, host/left_files.h, host/names.h, host/system.h,
// host/desktop.h, host/script.h, host/profile.h, host/native_text.h, host/shell_operations.h and WindowsProgramLine.
// Construct one at the start of each test, as a member of the fixture. It starts empty; its program folder is
// C:\Discwright.
class FakeHost {
 public:
  FakeHost();
  ~FakeHost();

  // The Add functions also make the folders of the path. Names keep their letter case and are found in any letter case.
  void AddFile(std::string_view path, std::string_view content, bool read_only = false);
  void AddFileOfSize(std::string_view path, std::int64_t size);  // sets the reported size only; the content is empty
  void AddFolder(std::string_view path);
  void AddSpecial(std::string_view path);                                            // a device, socket or pipe
  void AddLink(std::string_view path, std::string_view target, bool loops = false);  // `loops`: following it fails
  // Makes looking at the file or folder at the path fail: it is listed with this problem.
  void SetProblem(std::string_view path, host::ErrorClass error, std::string_view cause);

  bool Exists(std::string_view path) const;
  std::string Content(std::string_view path) const;   // "<missing>" when there is no such file
  std::string RealName(std::string_view path) const;  // the last name of the path, in its own letter case
  std::vector<std::string> Files() const;             // every file's full path, sorted

  // Adds a file to the workspace or the staging folder, with the mark that a build of this program would leave.
  void AddLeftFile(std::string_view path, std::string_view content, bool read_only = false);

  // Makes `function` ("ListFolder", "CopyFileWithProgress", "RemoveFile", "MakeFolders", ...) fail for every path that
  // contains `path_part` in any letter case, at most `times` times. "" stands for every path.
  void FailOn(std::string_view function, std::string_view path_part, host::ErrorClass error,
              std::string_view cause = "injected", int times = 1000000);

  // Makes the call with this number fail, once; 0 is the next call that can fail, -1 stands for no call. A test that
  // counts up from 0 until FailedCall() stays empty has made each call fail.
  void FailCall(int number);
  // The call that FailCall made fail, as "Function path"; empty when the test made fewer calls.
  const std::string& FailedCall() const { return failed_call_; }

  std::vector<std::string>
      calls;  // "Function path" or "Function from -> to", for functions that change or open something

  std::string program_folder = "C:\\Discwright";
  std::string current_folder = "C:\\Current";
  std::string claimed_folder;          // a folder that another program has claimed
  std::set<std::string> mount_points;  // by Key
  int platform_id = 2;
  std::vector<std::string> optical_drives;
  std::vector<std::string> drive_roots{"A:\\", "C:\\", "D:\\"};
  std::string windows_folder = "C:\\WINDOWS\\";
  std::string home_folder;
  std::string data_home;
  std::map<std::string, std::string> short_paths;  // by the path as the program spells it
  std::map<std::string, std::string> registry;     // text values by "Sub key\\Value name"
  bool shows_disc_names_in_lower_case = false;
  bool shows_slashes = false;  // PathToNative returns "C:/folder/name", so that a test can recognise shown paths
  std::string wine;            // the prefix of a command that starts a Windows program: "wine "
  bool starts_windows_programs = true;
  bool shell_joins_folders =
      true;  // false: a folder that exists in the destination is not moved, and no failure is returned
  std::vector<host::ShellOperation> shell_operations;  // all that were called
  std::deque<host::ShellAnswer> shell_answers;         // results of the next operations, which then do nothing
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
    int number = 0;  // of a folder; a folder that is made again has another one
    host::Status problem = {};
  };
  // For the functions of the fake: finds the node at a path without following links; null when there is none.
  Node* Find(std::string_view path);
  // Returns the failure injected for this call, or success. Records the call when `record` is not empty.
  host::Status Enter(std::string_view function, std::string_view path, std::string_view record = "");
  static FakeHost& Current();
  static std::string Key(std::string_view path);  // the canonical path in lower case: "c:\folder\name"
  std::map<std::string, Node> nodes;              // by Key

 private:
  struct Injected {
    std::string function;
    std::string path_part;
    host::Status status;
    int times = 0;
  };
  std::deque<Injected> injected_;
  int calls_until_failure_ = -1;  // below 0: no call fails by its number
  std::string failed_call_;
  int last_number_ = 0;
};

}  // namespace discwright::testing
