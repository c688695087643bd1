// Finds optical discs in the mount table.
#include "host/posix/mounts.h"

#include <algorithm>
#include <sstream>

namespace discwright::host {
namespace {

bool IsOctal(char character) { return character >= '0' && character <= '7'; }

// The table writes blanks, tabs, line ends and backslashes inside a field as "\" and three octal digits.
std::string DecodeOctal(std::string_view field) {
  std::string text;
  for (std::size_t i = 0; i < field.size(); ++i) {
    const bool is_escape =
        field[i] == '\\' && i + 3 < field.size() && std::all_of(&field[i + 1], &field[i + 4], IsOctal);
    if (is_escape) {
      text += static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + (field[i + 3] - '0'));
      i += 3;
    } else {
      text += field[i];
    }
  }
  return text;
}

}  // namespace

std::vector<std::string> OpticalMountPoints(std::string_view table) {
  std::vector<std::string> points;
  std::istringstream lines{std::string(table)};
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    std::string device;
    std::string point;
    std::string file_system;
    fields >> device >> point >> file_system;
    if (file_system != "iso9660" && file_system != "udf") continue;
    std::string decoded = DecodeOctal(point);
    if (std::find(points.begin(), points.end(), decoded) == points.end()) points.push_back(std::move(decoded));
  }
  return points;
}

}  // namespace discwright::host
