// A strict reader of the images that mkisofs makes: ReadIso() returns their content, and a problem for everything that
// ECMA-119, ISO 9660:1999 and El Torito forbid.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace discwright::testing {

struct IsoEntry {
  std::string path;  // "/" between names; the path of the root is ""
  bool is_folder = false;
  std::uint32_t extent = 0;  // sector
  std::uint32_t size = 0;    // bytes
  std::array<std::uint8_t, 7> recorded{};
};

struct IsoBoot {
  std::uint32_t catalogue = 0;  // sector
  std::uint32_t image = 0;      // sector
  std::uint16_t load_sectors = 0;
  std::string id;
};

struct IsoImage {
  std::string system_id, volume_id, publisher, preparer, application_id;  // without trailing blanks
  std::array<std::uint8_t, 17> created{};
  std::uint32_t sectors = 0;
  std::uint32_t path_table_l = 0, path_table_m = 0;  // sectors
  std::optional<IsoBoot> boot;
  std::vector<IsoEntry> entries;      // the root first; a folder's entries in their order on the disc
  std::vector<std::string> problems;  // a sentence for each error of the image; reading goes on after most of them

  const IsoEntry* Find(const std::string& path) const;
};

// Never reads outside `bytes`. Takes time that is linear in the size of any input.
IsoImage ReadIso(std::span<const std::uint8_t> bytes);

}  // namespace discwright::testing
