// Formats disks, adds the files of a profile and completes the boot sector.
#include "tools/createdsk/disk_image.h"

#include <algorithm>

#include "base/byte_order.h"

namespace discwright::tools {
namespace {

// The layout fields always stay those of the image, whatever the profile's boot sector contains. A base image keeps its
// own boot sector if the profile has none. Then only the label in that sector changes, because systems expect it to
// equal the label in the root folder.
void FinishBootSector(const DiskRequest& request, Image& image) {
  const Profile& profile = request.profile;
  ParameterBlock block = LoadParameterBlock(image);
  const bool keeps_sector = !profile.base.empty() && !request.boot_sector;
  if (request.boot_sector) std::ranges::copy(*request.boot_sector, image.begin());
  if (!keeps_sector) CompleteParameterBlock(block);
  if (profile.label && block.extended_signature == kExtendedSignature) block.volume_label = *profile.label;
  if (!keeps_sector) {
    block.volume_serial.fill(0);
    StoreParameterBlock(block, image);
    base::StoreLe32(block.volume_serial, SerialOf(image));
  }
  StoreParameterBlock(block, image);
}

// Adds the label and the files. The boot sectors of some systems load their files by the first entries of the root
// folder, so the label comes behind these.
Result AddEntries(const DiskRequest& request, VolumePlan& plan) {
  const std::vector<ProfileFile>& files = request.profile.files;
  std::size_t next = 0;
  for (; next < files.size() && files[next].is_system; ++next) {
    if (Result result = plan.AddFile(files[next], request.sizes.at(next)); !result.ok()) return result;
  }
  if (request.profile.label) {
    if (Result result = plan.SetLabel(*request.profile.label); !result.ok()) return result;
  }
  for (; next < files.size(); ++next) {
    if (Result result = plan.AddFile(files[next], request.sizes.at(next)); !result.ok()) return result;
  }
  return plan.CheckSpace();
}

}  // namespace

Image FormatDisk(const DiskFormat& format) {
  Image image(format.ImageBytes());
  std::ranges::copy(NoSystemBootSector(), image.begin());
  StoreParameterBlock(MakeParameterBlock(format), image);
  for (std::size_t copy = 0; copy < kFatCount; ++copy) {
    const std::size_t offset = (kReservedSectors + copy * kFatSectors) * kSectorBytes;
    const auto fat = std::span(image).subspan(offset, kFatSectors * kSectorBytes);
    StoreFatEntry(fat, 0, 0xF00 | kMedia);
    StoreFatEntry(fat, 1, kEndOfChain);
  }
  return image;
}

Result FillDisk(const DiskRequest& request, const ContentReader& read_content, Image& image) {
  const Profile& profile = request.profile;
  Volume volume;
  if (Result result = ReadVolume(image, volume); !result.ok()) {
    const std::string key = profile.own.empty() ? "Base" : "Own";
    return Result::Failure("[Disk] " + key + " " + profile.base + " " + result.failure +
                           ". Repair it or take another.");
  }
  VolumePlan plan(volume);
  if (Result result = AddEntries(request, plan); !result.ok()) return result;
  if (Result result = WriteVolume(volume, plan, read_content, image); !result.ok()) return result;
  FinishBootSector(request, image);
  return Result::Success();
}

}  // namespace discwright::tools
