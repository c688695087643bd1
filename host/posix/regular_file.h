// Opens, reads and writes regular files only: a device or pipe behind a name must never be touched.
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

inline constexpr std::size_t kReadPiece = 262144;  // bytes per read(); larger ones are not faster

// An open regular file and what fstat says of it.
struct RegularFile {
  UniqueFd fd;
  struct stat facts {};
  Status status;  // not ok: fd is not valid
};

// Opens a native path that names a regular file, links followed. `flags` as for open(), without O_CREAT.
RegularFile OpenRegular(const std::string& native, int flags);

// Success when the facts are a regular file's, otherwise the failure of taking something else for one.
Status CheckRegular(const struct stat& facts);

// read() and write() that go on after a signal. ReadSome: bytes read, 0 at the end of the file, -1 with errno.
// WriteAll: 0, or -1 with errno.
long ReadSome(int fd, char* bytes, std::size_t count);
int WriteAll(int fd, const char* bytes, std::size_t count);

// Writes all bytes at a position of the file.
Status WriteAt(int fd, std::int64_t position, std::span<const std::byte> bytes);

// An open regular file as the core reads and writes it.
std::unique_ptr<BinaryFile> WrapBinaryFile(UniqueFd fd);

}  // namespace discwright::host
