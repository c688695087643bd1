// Describes files through handles on the NT family, and through listings on Windows 95, 98 and Me.
#include "host/win32/file_facts.h"

#include <array>

#include "base/paths.h"
#include "host/names.h"
#include "host/win32/errors.h"
#include "host/win32/native_text.h"
#include "host/win32/windows_version.h"

namespace discwright::host {
namespace {

constexpr std::uint64_t kUnixEpoch = 116444736000000000;  // 1970 in units of 100 nanoseconds
constexpr std::int64_t kSecond = 10'000'000;

std::uint64_t Join(DWORD high, DWORD low) { return (std::uint64_t{high} << 32) | low; }

std::uint64_t Join(const FILETIME& time) { return Join(time.dwHighDateTime, time.dwLowDateTime); }

// The 64-bit FNV-1a hash.
std::uint64_t Hash(std::string_view text) {
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char character : text) hash = (hash ^ static_cast<unsigned char>(character)) * 0x100000001B3;
  return hash;
}

// Returns the same text for all spellings of a path. It is made from the short path, because on Windows 95, 98 and Me
// every file has a short name.
std::string CanonicalPath(const AnsiPath& path) {
  const std::string absolute = AbsolutePath(path.core);
  const AnsiPath full(absolute);
  std::array<char, MAX_PATH> shortened{};
  const DWORD length = GetShortPathNameA(full.c_str(), shortened.data(), static_cast<DWORD>(shortened.size()));
  const std::string text = TextOfBuffer(shortened, length);
  return FoldCase(text.empty() ? absolute : text);
}

Result<NativeFacts> FactsByName(const AnsiPath& path) {
  NativeFacts facts;
  WIN32_FIND_DATAA found{};
  if (FindOne(path.native, found)) {
    facts.attributes = found.dwFileAttributes;
    facts.size = SizeOf(found);
    facts.modified = Join(found.ftLastWriteTime);
  } else {
    // This is the root of a drive, which is in no listing and has no time.
    facts.attributes = GetFileAttributesA(path.c_str());
    if (facts.attributes == INVALID_FILE_ATTRIBUTES) return LastFailure();
    facts.modified = kUnixEpoch;
  }
  const std::string canonical = CanonicalPath(path);
  facts.volume = Hash(canonical.substr(0, canonical.find('\\')));
  facts.number = Hash(canonical);
  return facts;
}

}  // namespace

bool IsThere(const AnsiPath& path) { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

bool IsFolder(const AnsiPath& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

Status MakeWritable(const AnsiPath& path) {
  if (!path.status.ok()) return path.status;
  const DWORD attributes = GetFileAttributesA(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return LastFailure();
  if ((attributes & FILE_ATTRIBUTE_READONLY) == 0) return Status::Success();
  return StatusOfResult(SetFileAttributesA(path.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY}));
}

std::int64_t NativeFacts::ModifiedSeconds() const {
  const std::int64_t ticks = static_cast<std::int64_t>(modified) - static_cast<std::int64_t>(kUnixEpoch);
  return ticks / kSecond - (ticks % kSecond < 0 ? 1 : 0);
}

std::int64_t NativeFacts::ModifiedNanoseconds() const {
  // Times before 1677 do not fit and wrap around. The result still differs from that of every other time.
  return static_cast<std::int64_t>((modified - kUnixEpoch) * 100);
}

DWORD ShareEverything() {
  constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE;
  return IsNtFamily() ? kShare | FILE_SHARE_DELETE : kShare;
}

Result<std::int64_t> SizeOf(HANDLE file) {
  DWORD high = 0;
  SetLastError(NO_ERROR);
  const DWORD low = GetFileSize(file, &high);
  if (low == INVALID_FILE_SIZE && GetLastError() != NO_ERROR) return LastFailure();
  return static_cast<std::int64_t>(Join(high, low));
}

Result<NativeFacts> FactsOfHandle(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION info{};
  if (GetFileInformationByHandle(file, &info) == 0) return LastFailure();
  NativeFacts facts;
  facts.attributes = info.dwFileAttributes;
  facts.size = Join(info.nFileSizeHigh, info.nFileSizeLow);
  facts.modified = Join(info.ftLastWriteTime);
  facts.volume = info.dwVolumeSerialNumber;
  facts.number = Join(info.nFileIndexHigh, info.nFileIndexLow);
  facts.links = info.nNumberOfLinks;
  return facts;
}

Result<NativeFacts> FactsOfPath(const AnsiPath& path, Links links) {
  if (!path.status.ok()) return path.status;
  if (base::IsDevicePath(path.core)) return NotARegularFile();
  if (!IsNtFamily()) return FactsByName(path);
  const DWORD flags = FILE_FLAG_BACKUP_SEMANTICS | (links == Links::kTake ? FILE_FLAG_OPEN_REPARSE_POINT : 0);
  const OwnedHandle handle(
      CreateFileA(path.c_str(), FILE_READ_ATTRIBUTES, ShareEverything(), nullptr, OPEN_EXISTING, flags, nullptr));
  Result<NativeFacts> facts = handle.valid() ? FactsOfHandle(handle.get()) : LastFailure();
  return facts.status.error == ErrorClass::kAccessDenied ? FactsByName(path) : facts;
}

bool FindOne(const std::string& native, WIN32_FIND_DATAA& found) {
  const HANDLE search = FindFirstFileA(native.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return true;
}

std::uint64_t SizeOf(const WIN32_FIND_DATAA& found) { return Join(found.nFileSizeHigh, found.nFileSizeLow); }

bool IsLink(const WIN32_FIND_DATAA& found) {
  if ((found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return false;
  const DWORD tag = found.dwReserved0;
  // Where Windows is only imitated, links may have no tag.
  return tag == IO_REPARSE_TAG_SYMLINK || tag == IO_REPARSE_TAG_MOUNT_POINT || tag == IO_REPARSE_TAG_RESERVED_ZERO;
}

bool IsLink(const AnsiPath& path) {
  WIN32_FIND_DATAA found{};
  return path.status.ok() && FindOne(path.native, found) && IsLink(found);
}

}  // namespace discwright::host
