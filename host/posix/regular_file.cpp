// Opens regular files and moves their bytes.
#include "host/posix/regular_file.h"

#include <cerrno>

#include "host/posix/errors.h"

namespace discwright::host {
namespace {

RegularFile Refused(Status status) { return {UniqueFd(), {}, std::move(status)}; }

}  // namespace

RegularFile OpenRegular(const std::string& native, int flags) {
  RegularFile file;
  // Asked before opening, because opening a device may already do something; and without waiting for the other end,
  // should a pipe take the name's place in between.
  if (stat(native.c_str(), &file.facts) != 0) return Refused(LastFailure());
  if (!S_ISREG(file.facts.st_mode)) return Refused(NotARegularFile(S_ISDIR(file.facts.st_mode)));
  file.fd = UniqueFd(open(native.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file.fd.valid() || fstat(file.fd.get(), &file.facts) != 0) return Refused(LastFailure());
  if (!S_ISREG(file.facts.st_mode)) return Refused(NotARegularFile(S_ISDIR(file.facts.st_mode)));
  return file;
}

long ReadSome(int fd, char* bytes, std::size_t count) {
  ssize_t done = 0;
  do {
    done = read(fd, bytes, count);
  } while (done < 0 && errno == EINTR);
  return done;
}

int WriteAll(int fd, const char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t done = write(fd, bytes, count);
    if (done < 0 && errno != EINTR) return -1;
    if (done > 0) {
      bytes += done;
      count -= static_cast<std::size_t>(done);
    }
  }
  return 0;
}

}  // namespace discwright::host
