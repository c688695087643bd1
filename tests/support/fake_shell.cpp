// The shell operations of the host in memory, and the command lines that start Windows programs.
#include "host/processes.h"
#include "host/shell_operations.h"
#include "tests/support/fake_host.h"

namespace discwright::host {

using testing::FakeHost;

namespace {

// Error numbers of the shell operations of Windows.
constexpr int kFileNotFound = 2;
constexpr int kDestinationInSource = 0x76;
constexpr int kFileInTheWay = 0x7E;
constexpr int kFolderInTheWay = 0x80;
constexpr int kAlreadyThere = 183;

bool IsFolder(const FakeHost::Node& node) { return node.kind == EntryKind::kFolder && node.link_target.empty(); }

// The error number for moving one key to another; 0 when it can be moved.
int Obstacle(const std::string& from, const std::string& to) {
  const auto& nodes = FakeHost::Current().nodes;
  if (to.starts_with(from + "\\")) return kDestinationInSource;
  const auto there = nodes.find(to);
  if (there == nodes.end() || IsFolder(there->second) == IsFolder(nodes.at(from))) return 0;
  return IsFolder(there->second) ? kFolderInTheWay : kFileInTheWay;
}

// Moves everything below one key to another. Overwrites files there and joins folders.
void MoveBelow(const std::string& from, const std::string& to, const std::string& new_name) {
  auto& nodes = FakeHost::Current().nodes;
  for (auto node = nodes.lower_bound(from); node != nodes.end() && node->first.starts_with(from);) {
    const std::string rest = node->first.substr(from.size());
    if (!rest.empty() && rest.front() != '\\') {
      ++node;
      continue;
    }
    FakeHost::Node moved = node->second;
    if (rest.empty()) moved.name = new_name;
    const auto there = nodes.find(to + rest);
    if (there != nodes.end()) moved.name = there->second.name;
    nodes[to + rest] = moved;
    node = nodes.erase(node);
  }
}

int MoveNodes(std::string_view source, std::string_view destination, const std::string& new_name) {
  const std::string from = FakeHost::Key(source);
  const std::string to = FakeHost::Key(destination);
  if (from == to) {  // only the letter case changes
    FakeHost::Current().nodes.at(from).name = new_name;
    return 0;
  }
  const int obstacle = Obstacle(from, to);
  if (obstacle == 0) MoveBelow(from, to, new_name);
  return obstacle;
}

std::string LastName(std::string_view path) { return std::string(path.substr(path.find_last_of("\\/") + 1)); }

int Rename(const ShellOperation& operation) {
  if (FakeHost::Current().Find(operation.source) == nullptr) return kFileNotFound;
  const std::string to = FakeHost::Key(operation.destination);
  if (to != FakeHost::Key(operation.source) && FakeHost::Current().nodes.contains(to)) return kAlreadyThere;
  return MoveNodes(operation.source, operation.destination, LastName(operation.destination));
}

int Move(const ShellOperation& operation) {
  const std::string pattern = LastName(operation.source);
  const std::string folder = operation.source.substr(0, operation.source.size() - pattern.size());
  const FakeHost::Node* there = FakeHost::Current().Find(operation.destination);
  const bool has_wildcards = pattern.find_first_of("*?") != std::string::npos;
  if (!has_wildcards && FakeHost::Current().Find(operation.source) == nullptr) return kFileNotFound;
  if (!has_wildcards && (there == nullptr || there->kind != EntryKind::kFolder)) {
    return MoveNodes(operation.source, operation.destination, LastName(operation.destination));
  }
  const Listing listing = ListFolder(folder, pattern);
  if (listing.value.empty()) return kFileNotFound;
  FakeHost::Current().AddFolder(operation.destination);
  int first_number = 0;
  for (const Entry& entry : listing.value) {
    const bool joins = FakeHost::Current().shell_joins_folders;
    const std::string to = operation.destination + "\\" + entry.name;
    if (!joins && FakeHost::Current().Exists(to) && entry.kind == EntryKind::kFolder) continue;
    const int number = MoveNodes(folder + entry.name, to, entry.name);
    if (first_number == 0) first_number = number;
  }
  return first_number;
}

}  // namespace

ShellAnswer RunShellOperation(const ShellOperation& operation) {
  FakeHost& fake = FakeHost::Current();
  const bool is_move = operation.verb == ShellVerb::kMove;
  fake.shell_operations.push_back(operation);
  fake.Enter(is_move ? "Move" : "Rename", operation.source, operation.source + " -> " + operation.destination);
  if (!fake.shell_answers.empty()) {
    const ShellAnswer answer = fake.shell_answers.front();
    fake.shell_answers.pop_front();
    return answer;
  }
  return {is_move ? Move(operation) : Rename(operation), false};
}

std::optional<std::string> WindowsProgramLine(std::string_view program, std::string_view option,
                                              std::string_view path) {
  const FakeHost& fake = FakeHost::Current();
  if (!fake.starts_windows_programs) return std::nullopt;
  return fake.wine + std::string(program).append(" ").append(option).append(path);
}

}  // namespace discwright::host
