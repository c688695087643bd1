// Reads a program's output and notices its end.
#include "host/posix/output_reader.h"

#include <poll.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <array>

#include "host/posix/regular_file.h"

namespace discwright::host {

OutputReader::OutputReader(UniqueFd pipe, std::shared_ptr<Child> child, std::shared_ptr<Delivery> delivery,
                           int buffer_size, int poll_interval)
    : pipe_(std::move(pipe)),
      child_(std::move(child)),
      delivery_(std::move(delivery)),
      poll_interval_(poll_interval),
      pieces_(static_cast<std::size_t>(buffer_size), poll_interval_) {}

void OutputReader::Run() {
  bool is_open = true;
  next_look_ = Clock::now() + poll_interval_;
  for (bool has_ended = false; is_open && !has_ended;) {
    if (IsReadable(MillisecondsToWait(Clock::now()))) is_open = ReadOnce(kPipePiece);
    const auto now = Clock::now();
    if (std::string due = pieces_.Due(now); !due.empty()) delivery_->Put(std::move(due));
    // Looked at besides the pipe, which something that the program left behind may keep open for ever.
    if (now >= next_look_) {
      has_ended = child_->LookEnded();
      next_look_ = now + poll_interval_;
    }
  }
  child_->WaitForEnd();
  if (is_open) ReadWhatIsThere();
  if (pieces_.IsHolding()) delivery_->Put(pieces_.Rest());
  delivery_->PutEnd(child_->End());
  if (is_open) DropTheRest();
}

bool OutputReader::IsReadable(int milliseconds) const {
  pollfd waiting{pipe_.get(), POLLIN, 0};
  return poll(&waiting, 1, milliseconds) > 0;
}

int OutputReader::MillisecondsToWait(Clock::time_point now) const {
  const auto until = pieces_.IsHolding() ? std::min(pieces_.due_time(), next_look_) : next_look_;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - now);
  return static_cast<int>(std::max<std::chrono::milliseconds::rep>(left.count(), 0));
}

// Reads once; false at the end of the output.
bool OutputReader::ReadOnce(std::size_t most) {
  std::array<char, kPipePiece> bytes;
  const long got = ReadSome(pipe_.get(), bytes.data(), std::min(most, bytes.size()));
  if (got <= 0) return false;
  const std::string_view output(bytes.data(), static_cast<std::size_t>(got));
  for (std::string& piece : pieces_.Add(output, Clock::now())) delivery_->Put(std::move(piece));
  return true;
}

// What the program has written before its end. Not until the pipe is empty: others may go on filling it.
void OutputReader::ReadWhatIsThere() {
  int left = 0;
  if (ioctl(pipe_.get(), FIONREAD, &left) != 0) return;
  while (left > 0) {
    const int most = std::min(left, static_cast<int>(kPipePiece));
    if (!ReadOnce(static_cast<std::size_t>(most))) return;
    left -= most;
  }
}

// Whatever the program has left behind may go on writing without being stopped by a full or broken pipe.
void OutputReader::DropTheRest() {
  std::array<char, kPipePiece> bytes;
  while (ReadSome(pipe_.get(), bytes.data(), bytes.size()) > 0) {
  }
}

}  // namespace discwright::host
