// Formats the progress lines of the mastering.
#include "tools/mkisofs/progress.h"

#include <array>
#include <cstdio>

#include "tools/mkisofs/sector.h"

namespace discwright::tools::mkisofs {
namespace {

constexpr std::uint64_t kBytesPerLine = 10485760;
constexpr std::uint32_t kSectorsPerMegabyte = 1048576 / kSectorSize;

}  // namespace

void Progress::ShowBoot(std::uint32_t load_sectors) {
  messages_ << "Eltorito boot image: " << load_sectors << " sectors are loaded, no emulation\n";
}

void Progress::Show(std::uint64_t position) {
  if (position < shown_ + kBytesPerLine || position >= total_) return;
  shown_ = position;
  const auto hundredths = static_cast<unsigned>(position * 10000 / total_);
  std::array<char, 32> line{};
  std::snprintf(line.data(), line.size(), "%3u.%02u%% done\n", hundredths / 100, hundredths % 100);
  messages_ << line.data() << std::flush;
}

void Progress::ShowEnd(std::uint32_t sectors) {
  messages_ << sectors << " extents written (" << sectors / kSectorsPerMegabyte << " Mb)\n";
}

}  // namespace discwright::tools::mkisofs
