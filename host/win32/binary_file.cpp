// Files read and written at positions.
#include "host/win32/binary_file.h"

#include <algorithm>
#include <array>

#include "host/win32/errors.h"
#include "host/win32/file_facts.h"
#include "host/win32/regular_file.h"

namespace discwright::host {
namespace {

class WindowsBinaryFile : public BinaryFile {
 public:
  explicit WindowsBinaryFile(OwnedHandle file) : file_(std::move(file)) {}

  std::int64_t Length() override { return SizeOf(file_.get()); }

  Status ReadAt(std::int64_t position, std::span<std::byte> bytes) override {
    std::size_t count = 0;
    Status status = MoveTo(file_.get(), static_cast<std::uint64_t>(position));
    if (status.ok()) status = ReadSome(file_.get(), bytes, count);
    if (!status.ok() || count == bytes.size()) return status;
    return Status::Failure(ErrorClass::kOther, "Unexpected end of file");
  }

  Status WriteAt(std::int64_t position, std::span<const std::byte> bytes) override {
    Status status = bytes.empty() ? Status::Success() : FillUpTo(position);
    if (status.ok()) status = MoveTo(file_.get(), static_cast<std::uint64_t>(position));
    return status.ok() ? WriteAll(file_.get(), bytes) : status;
  }

 private:
  // Between its end and what is written behind it a file of Windows 95, 98 and Me would show what the disk held before.
  Status FillUpTo(std::int64_t position) {
    static constexpr std::array<std::byte, 4096> kZeros{};
    std::int64_t end = Length();
    if (end >= position) return Status::Success();
    Status status = MoveTo(file_.get(), static_cast<std::uint64_t>(end));
    while (status.ok() && end < position) {
      const std::int64_t count = std::min<std::int64_t>(position - end, kZeros.size());
      status = WriteAll(file_.get(), std::span(kZeros).first(static_cast<std::size_t>(count)));
      end += count;
    }
    return status;
  }

  OwnedHandle file_;
};

}  // namespace

std::unique_ptr<BinaryFile> WrapBinaryFile(OwnedHandle file) {
  return std::make_unique<WindowsBinaryFile>(std::move(file));
}

std::unique_ptr<BinaryFile> OpenBinary(std::string_view path, OpenMode mode, Status& status) {
  const bool writes = mode != OpenMode::kRead;
  const DWORD access = writes ? GENERIC_READ | GENERIC_WRITE : GENERIC_READ;
  RegularFile file = OpenRegular(DoorPath(path), access, writes ? OPEN_ALWAYS : OPEN_EXISTING, ShareEverything());
  // Emptied only now: whatever was opened is known to be a file. And CREATE_ALWAYS refuses hidden ones.
  if (file.status.ok() && mode == OpenMode::kCreateEmpty) file.status = SetSize(file.handle.get(), 0);
  status = file.status;
  return status.ok() ? WrapBinaryFile(std::move(file.handle)) : nullptr;
}

}  // namespace discwright::host
