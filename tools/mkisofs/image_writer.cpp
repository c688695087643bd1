// Writes the parts of an image in the order of their sectors.
#include "tools/mkisofs/image_writer.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "tools/mkisofs/boot_catalogue.h"
#include "tools/mkisofs/image_stream.h"
#include "tools/mkisofs/master_boot_record.h"
#include "tools/mkisofs/path_tables.h"
#include "tools/mkisofs/problems.h"
#include "tools/mkisofs/volume_descriptors.h"

namespace discwright::tools::mkisofs {
namespace {

// In bytes. Directories are collected up to this size and then appended at once.
constexpr std::size_t kDirectoryBytesKept = 65536;

class Writer {
 public:
  Writer(const ImagePlan& plan, host::SourceTree& source, host::PartFile& file, Progress& progress)
      : plan_(plan), tree_(plan.tree), layout_(plan.layout), source_(source), progress_(progress), stream_(file) {}

  Result Write() {
    const bool written = WriteSystemAreaAndDescriptors() && WriteBoot() && WriteDirectories() && WriteFiles();
    if (written && MoveTo(layout_.padding)) stream_.AppendZeros(std::uint64_t{kPaddingSectors} * kSectorSize);
    const host::Status status = stream_.Flush();
    if (!status.ok()) return Result::Failure(plan_.options.output + ": " + CauseOf(status));
    return result_;
  }

 private:
  // If the boot image is our loader, it has a program for the first sector of a disk.
  bool WriteSystemAreaAndDescriptors() {
    if (layout_.boot_image && !plan_.options.leave_system_area_empty) {
      const Node& image = tree_.nodes[*layout_.boot_image];
      std::vector<std::uint8_t> loader(std::min<std::size_t>(image.size, kLargestLoader));
      if (!ReadBeginning(tree_.PathOf(*layout_.boot_image), loader)) return false;
      const auto record = MakeMasterBootRecord(loader, image.extent, layout_.sectors, plan_.dates.created);
      if (record) stream_.Append(BytesOf(*record));
    }
    stream_.AppendZeros(std::uint64_t{kSystemAreaSectors} * kSectorSize - stream_.position());
    WriteDescriptors();
    return true;
  }

  // Reads as much of the beginning of a file as `bytes` has room for. If the file has become shorter, `bytes` becomes
  // smaller, and WriteFile reports the change later.
  bool ReadBeginning(const std::string& path, std::vector<std::uint8_t>& bytes) {
    const auto file = source_.Open(path);
    if (!file.ok()) return Fail(path, CauseOf(file.status));
    const host::Result<std::size_t> read = file.value->Read(bytes);
    if (!read.ok()) return Fail(path, CauseOf(read.status));
    bytes.resize(read.value);
    return true;
  }

  void WriteDescriptors() {
    const auto make = [this](DescriptorKind kind) {
      return BytesOf(
          MakeVolumeDescriptor(kind, plan_.options, tree_, layout_, plan_.dates.created, plan_.dates.records));
    };
    stream_.Append(make(DescriptorKind::kPrimary));
    // El Torito 1.2: the boot record must be in sector 17, so it comes right after the primary descriptor.
    if (layout_.boot_image) stream_.Append(BytesOf(MakeBootRecord(layout_.boot_catalogue)));
    stream_.Append(make(DescriptorKind::kEnhanced));
    stream_.Append(BytesOf(MakeTerminator()));
  }

  bool WriteBoot() {
    if (!layout_.boot_image) return true;
    const Node& image = tree_.nodes[*layout_.boot_image];
    const std::uint16_t sectors = BootLoadSectors(plan_.options, image.size);
    progress_.ShowBoot(sectors);
    if (!MoveTo(layout_.boot_catalogue)) return false;
    stream_.Append(BytesOf(MakeBootCatalogue(plan_.options.publisher, sectors, image.extent)));
    return WriteFile(image, tree_.PathOf(*layout_.boot_image));
  }

  bool WriteDirectories() {
    if (!MoveTo(layout_.path_table_l)) return false;
    stream_.Append(MakePathTable(tree_, ByteOrder::kLittle));
    stream_.PadToSector();
    stream_.Append(MakePathTable(tree_, ByteOrder::kBig));
    stream_.PadToSector();
    if (!MoveTo(layout_.directories)) return false;
    std::vector<std::uint8_t> bytes;
    for (const Folder& folder : tree_.folders) {
      if (folder.number != 0) AppendDirectory(tree_, folder, plan_.dates.records, bytes);
      if (bytes.size() < kDirectoryBytesKept) continue;
      stream_.Append(bytes);
      bytes.clear();
      if (MustStop()) return false;
    }
    stream_.Append(bytes);
    return true;
  }

  bool WriteFiles() {
    for (const Folder& folder : tree_.folders) {
      std::string path = tree_.PathOf(folder.node);
      if (!path.empty()) path += '/';
      const std::size_t folder_length = path.size();
      for (NodeIndex index = folder.first; index < folder.first + folder.count; ++index) {
        const Node& node = tree_.nodes[index];
        if (!IsStoredFile(node) || index == layout_.boot_image) continue;
        path.resize(folder_length);
        path += tree_.NameOf(node);
        if (!WriteFile(node, path)) return false;
      }
    }
    return true;
  }

  bool WriteFile(const Node& node, const std::string& path) {
    if (!MoveTo(node.extent)) return false;
    const auto file = source_.Open(path);
    if (!file.ok()) return Fail(path, CauseOf(file.status));
    std::uint64_t left = node.size;
    while (left > 0) {
      const std::span<std::uint8_t> room = stream_.Room();
      // Asks for one byte beyond the planned size: if it comes, the file has grown since the tree was read.
      const std::size_t wanted = static_cast<std::size_t>(std::min<std::uint64_t>(room.size(), left + 1));
      const host::Result<std::size_t> read = file.value->Read(room.first(wanted));
      if (!read.ok()) return Fail(path, CauseOf(read.status));
      const std::size_t count = read.value;
      if (count > left) return Fail(path, "the file has grown while it was read");
      if (count < std::min<std::uint64_t>(wanted, left)) return Fail(path, "the file has shrunk while it was read");
      stream_.Fill(count);
      left -= count;
      if (left == 0 && wanted == count && !IsAtEnd(*file.value))
        return Fail(path, "the file has grown while it was read");
      if (MustStop()) return false;
    }
    stream_.PadToSector();
    return true;
  }

  static bool IsAtEnd(host::SourceFile& file) {
    std::array<std::uint8_t, 1> byte{};
    const host::Result<std::size_t> read = file.Read(byte);
    return read.ok() && read.value == 0;
  }

  // Parts are only ever appended, so the stream must already be at `sector`. The check finds a disagreement between the
  // sizing and the writing pass.
  bool MoveTo(std::uint32_t sector) {
    const bool there = stream_.position() == std::uint64_t{sector} * kSectorSize;
    return there || Fail("", "internal error: the image differs from its layout");
  }

  bool MustStop() {
    progress_.Show(stream_.position());
    if (stream_.Failed()) return true;
    return plan_.stopped() && !Fail("", "interrupted");
  }

  // Keeps the failure, which Write() returns. `path` is below the tree; an empty path stands for the image.
  bool Fail(const std::string& path, const std::string& cause) {
    result_ = Result::Failure((path.empty() ? plan_.options.output : plan_.options.tree + "/" + path) + ": " + cause);
    return false;
  }

  const ImagePlan& plan_;
  const Tree& tree_;
  const Layout& layout_;
  host::SourceTree& source_;
  Progress& progress_;
  Result result_;
  ImageStream stream_;
};

}  // namespace

Result WriteImage(const ImagePlan& plan, host::SourceTree& source, host::PartFile& file, Progress& progress) {
  return Writer(plan, source, file, progress).Write();
}

}  // namespace discwright::tools::mkisofs
