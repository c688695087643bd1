// Opens, reads and writes regular files only: a device or pipe must never be touched. Call OpenRegular and check the
// status of its result.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "host/files.h"
#include "host/posix/unique_fd.h"
#include "host/status.h"

namespace discwright::host {

inline constexpr std::size_t kReadPiece = 262144;  // bytes per read(); larger pieces are not faster

// An open regular file and the result of fstat().
struct RegularFile {
  UniqueFd fd;
  struct stat facts {};
  Status status;  // not ok: fd is not valid
};

// Opens the regular file at a native path, with links followed. `flags` are those of open(), without O_CREAT.
RegularFile OpenRegular(const std::string& native, int flags);

// A success when the facts are those of a regular file, otherwise NotARegularFile().
Status CheckRegular(const struct stat& facts);

// read() and write() that continue after a signal. ReadSome returns the number of bytes, 0 at the end of the file, or
// -1 with errno. WriteAll returns 0, or -1 with errno.
long ReadSome(int fd, char* bytes, std::size_t count);
int WriteAll(int fd, const char* bytes, std::size_t count);

// Writes all bytes at a byte position of the file.
Status WriteAt(int fd, std::int64_t position, std::span<const std::byte> bytes);

// Makes a BinaryFile of an open regular file.
std::unique_ptr<BinaryFile> WrapBinaryFile(UniqueFd fd);

}  // namespace discwright::host
