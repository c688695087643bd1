// Reads a program's output and notices its end. A pipe without a name cannot be waited for together with a process on
// every Windows, so it is looked at from time to time.
#include "host/win32/output_reader.h"

#include <algorithm>
#include <array>

#include "host/native_text.h"

namespace discwright::host {
namespace {

constexpr DWORD kPipePiece = 16384;  // bytes per read
constexpr DWORD kShortestPause = 2;  // milliseconds

}  // namespace

OutputReader::OutputReader(OwnedHandle pipe, std::shared_ptr<Child> child, std::shared_ptr<Delivery> delivery,
                           int buffer_size, int poll_interval)
    : pipe_(std::move(pipe)),
      child_(std::move(child)),
      delivery_(std::move(delivery)),
      poll_interval_(static_cast<DWORD>(poll_interval)),
      pieces_(static_cast<std::size_t>(buffer_size), std::chrono::milliseconds(poll_interval)) {}

void OutputReader::Run() {
  // Output seldom comes alone: after some the pipe is looked at soon again, then ever less often.
  DWORD pause = kShortestPause;
  for (bool has_ended = false; !has_ended;) {
    if (Waiting() > 0) {
      Read(kPipePiece);
      pause = kShortestPause;
    } else {
      has_ended = child_->WaitForEnd(MillisecondsToWait(Clock::now(), pause));
      pause = std::min(2 * pause, poll_interval_);
    }
    Put(pieces_.Due(Clock::now()));
  }
  ReadWhatIsThere();
  Put(pieces_.Rest());
  delivery_->PutEnd(child_->End());
  DropTheRest();
}

// How many bytes can be read at once; 0 also when nobody can write any more.
DWORD OutputReader::Waiting() const {
  DWORD waiting = 0;
  return PeekNamedPipe(pipe_.get(), nullptr, 0, nullptr, &waiting, nullptr) != 0 ? waiting : 0;
}

DWORD OutputReader::MillisecondsToWait(Clock::time_point now, DWORD pause) const {
  if (!pieces_.IsHolding()) return pause;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(pieces_.due_time() - now).count();
  return static_cast<DWORD>(std::clamp<long long>(left, 0, pause));
}

void OutputReader::Read(DWORD most) {
  std::array<char, kPipePiece> bytes;
  DWORD got = 0;
  if (ReadFile(pipe_.get(), bytes.data(), std::min(most, kPipePiece), &got, nullptr) == 0) return;
  for (const std::string& piece : pieces_.Add(std::string_view(bytes.data(), got), Clock::now())) Put(piece);
}

// What the program has written before its end. Not until the pipe is empty: others may go on filling it.
void OutputReader::ReadWhatIsThere() {
  for (DWORD left = Waiting(); left > 0; left -= std::min(left, kPipePiece)) Read(left);
}

// Whatever the program has left behind may go on writing without being stopped by a full or broken pipe.
void OutputReader::DropTheRest() {
  std::array<char, kPipePiece> bytes;
  DWORD got = 0;
  while (ReadFile(pipe_.get(), bytes.data(), kPipePiece, &got, nullptr) != 0) {
  }
}

// Programs write in the code page of the system.
void OutputReader::Put(const std::string& piece) {
  if (!piece.empty()) delivery_->Put(TextOfCodePage(piece));
}

}  // namespace discwright::host
