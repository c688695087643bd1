// Fills in the fields of volume descriptors.
#include "tools/mkisofs/volume_descriptors.h"

#include <algorithm>
#include <string_view>

#include "base/byte_order.h"

namespace discwright::tools::mkisofs {
namespace {

// These values are defined in ECMA-119 8.1.1 and 8.5.
constexpr std::uint8_t kPrimaryType = 1;
constexpr std::uint8_t kEnhancedType = 2;
constexpr std::uint8_t kTerminatorType = 255;

template <std::size_t kSize>
void StoreText(std::array<std::uint8_t, kSize>& field, std::string_view text) {
  field.fill(' ');
  std::copy_n(text.begin(), std::min(text.size(), kSize), field.begin());
}

void StoreTexts(const Options& options, VolumeDescriptor& descriptor) {
  // The system identifier says which system can use the system area. That area is empty, so the field is blank.
  StoreText(descriptor.system_id, "");
  StoreText(descriptor.volume_id, options.volume_id);
  StoreText(descriptor.volume_set_id, "");
  StoreText(descriptor.publisher, options.publisher);
  StoreText(descriptor.preparer, options.preparer);
  StoreText(descriptor.application_id, options.application_id);
  for (auto* field : {&descriptor.copyright_file, &descriptor.abstract_file, &descriptor.bibliographic_file})
    StoreText(*field, "");
}

void StorePlaces(const Layout& layout, VolumeDescriptor& descriptor) {
  base::StoreBoth32(descriptor.volume_space_size, layout.sectors);
  base::StoreBoth16(descriptor.volume_set_size, 1);
  base::StoreBoth16(descriptor.volume_number, 1);
  base::StoreBoth16(descriptor.block_size, kSectorSize);
  base::StoreBoth32(descriptor.path_table_size, layout.path_table_size);
  base::StoreLe32(descriptor.path_table_l, layout.path_table_l);
  base::StoreBe32(descriptor.path_table_m, layout.path_table_m);
}

}  // namespace

// Fills in the fields of ECMA-119 8.1.
DescriptorHead MakeDescriptorHead(std::uint8_t type, std::uint8_t version) {
  return {{type}, {'C', 'D', '0', '0', '1'}, {version}};
}

// ECMA-119 8.4 defines the fields. An enhanced descriptor is a supplementary descriptor with version 2 (ISO 9660:1999
// 8.5).
VolumeDescriptor MakeVolumeDescriptor(DescriptorKind kind, const Options& options, const Tree& tree,
                                      const Layout& layout, std::int64_t created, TimeLimit limit) {
  VolumeDescriptor descriptor{};
  const bool enhanced = kind == DescriptorKind::kEnhanced;
  descriptor.head = MakeDescriptorHead(enhanced ? kEnhancedType : kPrimaryType, enhanced ? 2 : 1);
  StoreTexts(options, descriptor);
  StorePlaces(layout, descriptor);
  descriptor.root = MakeDirectoryRecordHead(tree.nodes.front(), descriptor.root_name.size(), limit);
  descriptor.created = descriptor.modified = descriptor.effective = MakeVolumeTime(created);
  descriptor.expires = NoVolumeTime();
  descriptor.file_structure_version[0] = enhanced ? 2 : 1;
  return descriptor;
}

// Fills in the fields of ECMA-119 8.3.
TerminatorDescriptor MakeTerminator() {
  TerminatorDescriptor descriptor{};
  descriptor.head = MakeDescriptorHead(kTerminatorType, 1);
  return descriptor;
}

}  // namespace discwright::tools::mkisofs
