// Fills in the boot record and the boot catalogue.
#include "tools/mkisofs/boot_catalogue.h"

#include <algorithm>
#include <span>

#include "base/byte_order.h"

namespace discwright::tools::mkisofs {
namespace {

constexpr std::uint32_t kBiosSectorSize = 512;
constexpr std::uint8_t kBootRecordType = 0;
constexpr std::string_view kBootSystem = "EL TORITO SPECIFICATION";

std::uint16_t SumOfWords(const ValidationEntry& entry) {
  const auto bytes = BytesOf(entry);
  std::uint32_t sum = 0;
  for (std::size_t i = 0; i < bytes.size(); i += 2) sum += base::LoadLe16(std::span(bytes).subspan(i).first<2>());
  return static_cast<std::uint16_t>(sum & 0xFFFF);
}

// Fills in the validation entry as El Torito 2.1 describes it.
ValidationEntry MakeValidationEntry(std::string_view id) {
  ValidationEntry entry{};
  entry.header_id[0] = 1;
  std::copy_n(id.begin(), std::min(id.size(), entry.id.size()), entry.id.begin());
  entry.key_bytes = {0x55, 0xAA};
  base::StoreLe16(entry.checksum, static_cast<std::uint16_t>(0x10000 - SumOfWords(entry)));
  return entry;
}

}  // namespace

// Fills in the boot record as El Torito 2.0 describes it.
BootRecord MakeBootRecord(std::uint32_t catalogue) {
  BootRecord record{};
  record.head = MakeDescriptorHead(kBootRecordType, 1);
  std::copy(kBootSystem.begin(), kBootSystem.end(), record.boot_system_id.begin());
  base::StoreLe32(record.catalogue, catalogue);
  return record;
}

std::uint16_t BootLoadSectors(const Options& options, std::uint32_t size) {
  if (options.boot_load_sectors) return *options.boot_load_sectors;
  const std::uint32_t all = (size - 1) / kBiosSectorSize + 1;
  return static_cast<std::uint16_t>(std::min<std::uint32_t>(all, 0xFFFF));
}

// The catalogue has the layout of El Torito 2.2. The entries after the default entry stay zero, which ends the list.
BootCatalogue MakeBootCatalogue(std::string_view id, std::uint16_t load_sectors, std::uint32_t boot_image) {
  BootCatalogue catalogue{};
  catalogue.validation = MakeValidationEntry(id);
  catalogue.entry.boot_indicator[0] = 0x88;
  base::StoreLe16(catalogue.entry.load_sectors, load_sectors);
  base::StoreLe32(catalogue.entry.boot_image, boot_image);
  return catalogue;
}

}  // namespace discwright::tools::mkisofs
