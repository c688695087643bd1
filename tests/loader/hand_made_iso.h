// Builds small images of ISO 9660 byte by byte. They may have mistakes that no mastering program makes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace discwright::testing {

enum HandMadeFlag : std::uint8_t { kHiddenFlag = 1, kFolderFlag = 2, kAssociatedFlag = 4, kMorePartsFlag = 0x80 };

class HandMadeIso {
 public:
  static constexpr std::uint32_t kRoot = 20;  // sector of the root folder, which has one sector

  // Makes `sector_count` empty sectors. They have a primary descriptor in sector 16 and the terminator in sector 17.
  explicit HandMadeIso(std::uint32_t sector_count = 40) : sector_count_(sector_count) {
    bytes.resize(std::size_t{sector_count} * 2048);
    PutDescriptor(16, 1, 1, kRoot);
    PutTerminator(17);
  }

  void Put(std::uint32_t sector, std::size_t offset, std::string_view what) {
    bytes.replace(std::size_t{sector} * 2048 + offset, what.size(), what);
  }
  void PutDescriptor(std::uint32_t sector, int type, int version, std::uint32_t root, std::uint32_t root_size = 2048) {
    Put(sector, 0, static_cast<char>(type) + std::string("CD001") + static_cast<char>(version));
    Put(sector, 80, Number(sector_count_, 4));
    Put(sector, 128, Number(2048, 2));
    Put(sector, 156, Record(std::string(1, '\0'), root, root_size, kFolderFlag));
  }
  void PutTerminator(std::uint32_t sector) {
    Put(sector, 0,
        "\xFF"
        "CD001\1");
  }
  // Puts records into a sector, behind those of the folder itself and its parent.
  void PutFolder(std::uint32_t sector, const std::string& records) {
    const std::string self = Record(std::string(1, '\0'), sector, 2048, kFolderFlag);
    Put(sector, 0, self + Record("\1", kRoot, 2048, kFolderFlag) + records);
  }

  static std::string Number(std::uint32_t value, std::size_t size) {
    std::string text;
    for (; text.size() < size; value >>= 8) text += static_cast<char>(value & 0xFF);
    return text;
  }
  // A record as ECMA-119 has it; it leaves date, volume number and the big-endian numbers at 0.
  static std::string Record(const std::string& name, std::uint32_t sector, std::uint32_t size, int flags = 0) {
    std::string record(33, '\0');
    record.replace(2, 4, Number(sector, 4));
    record.replace(10, 4, Number(size, 4));
    record[25] = static_cast<char>(flags);
    record[32] = static_cast<char>(name.size());
    record += name;
    if (record.size() % 2 != 0) record += '\0';
    record[0] = static_cast<char>(record.size());
    return record;
  }

  std::string bytes;

 private:
  std::uint32_t sector_count_;
};

}  // namespace discwright::testing
