// Makes floppy images in memory for the tests of CreateDsk.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "tools/createdsk/disk_image.h"

namespace discwright::testing {

inline const tools::DiskFormat& Format144() { return tools::kDiskFormats[0]; }
inline const tools::DiskFormat& Format288() { return tools::kDiskFormats[1]; }

using Files = std::vector<std::pair<std::string, std::string>>;  // name on the disk, content

// A profile with these files and the label TESTDISK.
inline tools::Profile ProfileOf(const Files& files) {
  std::string text = "[Disk]\nImage=test.img\nLabel=TESTDISK\n[Files]\n";
  for (const auto& [name, content] : files) text += name + "=" + name + "\n";
  tools::Profile profile;
  const tools::Result result = tools::ParseProfile(text, false, profile);
  if (!result.ok()) throw std::invalid_argument(result.failure);
  return profile;
}

inline tools::Result Fill(const tools::Profile& profile, const Files& files, tools::Image& image) {
  tools::DiskRequest request{profile, {}, {}};
  for (const auto& [name, content] : files) request.sizes.push_back(static_cast<std::int64_t>(content.size()));
  std::size_t next = 0;
  const auto read_content = [&](const tools::ProfileFile&, std::string& content) {
    content = files[next++].second;
    return tools::Result::Success();
  };
  return tools::FillDisk(request, read_content, image);
}

inline tools::Image DiskOf(const tools::DiskFormat& format, const Files& files) {
  tools::Image image = tools::FormatDisk(format);
  const tools::Result result = Fill(ProfileOf(files), files, image);
  if (!result.ok()) throw std::invalid_argument(result.failure);
  return image;
}

// A content in which neighbouring bytes and sectors differ.
inline std::string Pattern(std::size_t size) {
  std::string text(size, '\0');
  for (std::size_t i = 0; i < size; ++i) text[i] = static_cast<char>((i * 7 + i / 512 * 13) & 0xFF);
  return text;
}

}  // namespace discwright::testing
