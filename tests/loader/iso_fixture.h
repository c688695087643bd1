// Opens images with the loader's reader and shows what it finds as text that a failed test prints readably.
#pragma once

#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "boot/loader/iso9660.h"
#include "tests/loader/image_sectors.h"

namespace discwright::loader {

inline std::ostream& operator<<(std::ostream& out, VolumeError error) { return out << Words(error, Medium::kCd); }

}  // namespace discwright::loader

namespace discwright::testing {

using loader::VolumeEntry;
using loader::VolumeError;

inline std::string_view Words(VolumeError error) { return loader::Words(error, loader::Medium::kCd); }

class EntryCollector final : public loader::IsoVisitor {
 public:
  explicit EntryCollector(std::size_t most = SIZE_MAX) : most_(most) {}
  bool Visit(std::string_view name, const VolumeEntry& entry) override {
    entries.emplace_back(name, entry);
    return entries.size() < most_;
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& [name, entry] : entries) names.push_back(name);
    return names;
  }

  std::vector<std::pair<std::string, VolumeEntry>> entries;

 private:
  std::size_t most_;
};

// An image with its reader.
struct OpenedIso {
  explicit OpenedIso(std::string image, std::size_t buffer_sectors = 2)
      : sectors(std::move(image)), buffer(buffer_sectors * loader::kSectorSize), volume(sectors, buffer) {}

  // The sector of what is found, or the words of the error.
  std::string Find(std::string_view path) {
    VolumeEntry entry;
    const VolumeError error = volume.Find(path, entry);
    return error == VolumeError::kNone ? std::to_string(entry.start) : std::string(Words(error));
  }

  // The whole file, or the words of the error.
  std::string Read(const VolumeEntry& file) { return ReadPart(file, 0, file.size); }
  std::string ReadPart(const VolumeEntry& file, std::uint32_t offset, std::size_t size) {
    std::string text(size, '?');
    const VolumeError error = volume.Read(file, offset, {reinterpret_cast<std::uint8_t*>(text.data()), text.size()});
    return error == VolumeError::kNone ? text : std::string(Words(error));
  }
  std::string ReadPath(std::string_view path) {
    VolumeEntry entry;
    const VolumeError error = volume.Find(path, entry);
    return error == VolumeError::kNone ? Read(entry) : std::string(Words(error));
  }

  ImageSectors sectors;
  std::vector<std::uint8_t> buffer;
  loader::IsoVolume volume;
};

}  // namespace discwright::testing
