// Reads the system's table of mounted file systems.
#include "host/posix/mounts.h"

#include <mntent.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <memory>
#include <string_view>

namespace discwright::host {
namespace {

void ForEachRow(const std::string& table_file, const std::function<void(const mntent& row)>& take) {
  const std::unique_ptr<FILE, int (*)(FILE*)> table(setmntent(table_file.c_str(), "re"), endmntent);
  std::array<char, 32768> text{};  // room for one line, in which each byte of a path may take four
  mntent row{};
  while (table != nullptr && getmntent_r(table.get(), &row, text.data(), text.size()) != nullptr) take(row);
}

}  // namespace

std::vector<std::string> OpticalMountPoints(const std::string& table_file) {
  std::vector<std::string> points;
  ForEachRow(table_file, [&](const mntent& row) {
    const std::string_view file_system = row.mnt_type;
    if (file_system != "iso9660" && file_system != "udf") return;
    if (std::find(points.begin(), points.end(), row.mnt_dir) == points.end()) points.emplace_back(row.mnt_dir);
  });
  return points;
}

bool IsInMountTable(const std::string& table_file, const std::string& native) {
  bool is_in_table = false;
  ForEachRow(table_file, [&](const mntent& row) { is_in_table = is_in_table || row.mnt_dir == native; });
  return is_in_table;
}

}  // namespace discwright::host
