// Builds floppies of 1.44 MB byte by byte, and opens floppies with the loader's reader. A floppy that is made by hand
// may have mistakes that no program makes.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "boot/loader/fat12.h"
#include "tests/loader/image_sectors.h"

namespace discwright::testing {

class HandMadeFloppy {
 public:
  static constexpr std::size_t kSector = 512;
  static constexpr std::size_t kTable = 1 * kSector;  // the first of two copies of nine sectors
  static constexpr std::size_t kRoot = 19 * kSector;  // 14 sectors
  static constexpr std::size_t kData = 33 * kSector;  // of cluster 2; a cluster is a sector
  static constexpr std::uint16_t kLastCluster = 2848;
  static constexpr std::uint16_t kEnd = 0xFFF;
  enum Flag : std::uint8_t { kFile = 0, kLabel = 8, kLongName = 15, kFolder = 16 };

  HandMadeFloppy() : bytes(2880 * kSector, '\0') {
    Put(0, "\xEB\x3C\x90MADEHAND");
    for (const auto& [at, value] :
         {std::pair<std::size_t, std::uint32_t>{11, 512}, {14, 1}, {17, 224}, {19, 2880}, {22, 9}, {24, 18}, {26, 2}}) {
      Put16(at, value);
    }
    bytes[13] = 1;                        // sectors of a cluster
    bytes[16] = 2;                        // copies of the table
    bytes[21] = static_cast<char>(0xF0);  // the medium
    Put(510, "\x55\xAA");
    SetNext(0, 0xFF0);
    SetNext(1, kEnd);
  }

  void Put(std::size_t at, std::string_view what) { bytes.replace(at, what.size(), what); }
  void Put16(std::size_t at, std::uint32_t value) {
    bytes[at] = static_cast<char>(value);
    bytes[at + 1] = static_cast<char>(value >> 8);
  }

  // Writes the value for a cluster into the first copy of the table.
  void SetNext(std::uint32_t cluster, std::uint32_t next) {
    const std::size_t at = kTable + cluster + cluster / 2;
    const std::uint32_t old = static_cast<std::uint8_t>(bytes[at]) |
                              static_cast<std::uint32_t>(static_cast<std::uint8_t>(bytes[at + 1])) << 8;
    Put16(at, cluster % 2 == 0 ? (old & 0xF000) | next : (old & 0x000F) | next << 4);
  }
  void SetChain(std::initializer_list<std::uint32_t> clusters) {
    for (const auto* at = clusters.begin(); at + 1 != clusters.end(); ++at) SetNext(*at, at[1]);
  }

  // Adds an entry to the root. `name` has eleven characters.
  void AddToRoot(std::string_view name, std::uint8_t flags, std::uint32_t cluster, std::uint32_t size) {
    Put(kRoot + 32 * root_entries_++, Entry(name, flags, cluster, size));
  }
  static std::string Entry(std::string_view name, std::uint8_t flags, std::uint32_t cluster, std::uint32_t size) {
    std::string entry(name);
    entry.resize(32);
    entry[11] = static_cast<char>(flags);
    for (std::size_t i = 0; i < 2; ++i) entry[26 + i] = static_cast<char>(cluster >> 8 * i);
    for (std::size_t i = 0; i < 4; ++i) entry[28 + i] = static_cast<char>(size >> 8 * i);
    return entry;
  }
  void PutCluster(std::uint32_t cluster, std::string_view what) { Put(kData + (cluster - 2) * kSector, what); }

  std::string bytes;

 private:
  std::size_t root_entries_ = 0;
};

struct OpenedFloppy {
  explicit OpenedFloppy(std::string image, std::size_t more_sectors = 0)
      : sectors(std::move(image), loader::kFloppySectorSize),
        buffer(loader::FatVolume::kLeastBuffer + more_sectors * loader::kFloppySectorSize),
        volume(sectors, buffer),
        opened(volume.Open()) {}

  static std::string Say(loader::VolumeError error) { return std::string(Words(error, loader::Medium::kFloppy)); }

  // Both return what they read, or the words of an error.
  std::string Read(std::string_view path) {
    loader::VolumeEntry file;
    const loader::VolumeError error = volume.Find(path, file);
    return error == loader::VolumeError::kNone ? ReadPart(file, 0, file.size) : Say(error);
  }
  std::string ReadPart(const loader::VolumeEntry& file, std::uint32_t offset, std::size_t size) {
    std::string text(size, '?');
    const loader::VolumeError error =
        volume.Read(file, offset, {reinterpret_cast<std::uint8_t*>(text.data()), text.size()});
    return error == loader::VolumeError::kNone ? text : Say(error);
  }

  ImageSectors sectors;
  std::vector<std::uint8_t> buffer;
  loader::FatVolume volume;
  loader::VolumeError opened;
};

}  // namespace discwright::testing
