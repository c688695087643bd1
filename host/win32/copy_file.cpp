// Copies files and reports the progress.
#include <memory>

#include "host/files.h"
#include "host/win32/errors.h"
#include "host/win32/file_facts.h"
#include "host/win32/new_file.h"
#include "host/win32/regular_file.h"
#include "host/win32/windows_version.h"

namespace discwright::host {
namespace {

constexpr std::size_t kCopyPiece = std::size_t{64} << 10;

using SystemCopy = decltype(CopyFileExA);

Status Stopped() { return StatusOf(ERROR_REQUEST_ABORTED); }

// Reports the progress to the routine, and remembers what it has reported.
class Teller {
 public:
  explicit Teller(const CopyRoutine& routine) : routine_(routine) {}

  // Returns false when the copy must stop.
  bool Tell(CopyEvent event, std::int64_t transferred) {
    if (event == CopyEvent::kStreamSwitch) started_ = true;
    if (event == CopyEvent::kChunkFinished) transferred_ = transferred;
    return !routine_ || routine_(event, transferred);
  }
  // Reports what the system has not reported, as can happen for an empty file.
  bool TellTheRest(std::int64_t size) {
    if (!started_ && !Tell(CopyEvent::kStreamSwitch, 0)) return false;
    return transferred_ == size || Tell(CopyEvent::kChunkFinished, size);
  }

 private:
  const CopyRoutine& routine_;
  bool started_ = false;
  std::int64_t transferred_ = -1;
};

DWORD CALLBACK TellOfSystemCopy(LARGE_INTEGER, LARGE_INTEGER transferred, LARGE_INTEGER, LARGE_INTEGER, DWORD stream,
                                DWORD reason, HANDLE, HANDLE, LPVOID teller) {
  const bool is_switch = reason == CALLBACK_STREAM_SWITCH;
  // Further streams are a part of the same file, so they are not reported as another file.
  if (is_switch && stream > 1) return PROGRESS_CONTINUE;
  const CopyEvent event = is_switch ? CopyEvent::kStreamSwitch : CopyEvent::kChunkFinished;
  const bool goes_on = static_cast<Teller*>(teller)->Tell(event, is_switch ? 0 : transferred.QuadPart);
  return goes_on ? PROGRESS_CONTINUE : PROGRESS_CANCEL;
}

SystemCopy* FindSystemCopy() {
  static SystemCopy* const copy = IsNtFamily() ? NewerCall<SystemCopy>("kernel32.dll", "CopyFileExA") : nullptr;
  return copy;
}

Status CopyBytes(HANDLE from, HANDLE to, Teller& teller) {
  if (!teller.Tell(CopyEvent::kStreamSwitch, 0)) return Stopped();
  const auto bytes = std::make_unique<std::array<std::byte, kCopyPiece>>();
  std::int64_t transferred = 0;
  for (std::size_t count = kCopyPiece; count == kCopyPiece;) {
    const Result<std::size_t> got = ReadSome(from, *bytes);
    if (!got.ok()) return got.status;
    count = got.value;
    if (Status status = WriteAll(to, std::span(*bytes).first(count)); !status.ok()) return status;
    transferred += static_cast<std::int64_t>(count);
    if ((count > 0 || transferred == 0) && !teller.Tell(CopyEvent::kChunkFinished, transferred)) return Stopped();
  }
  return Status::Success();
}

// A failure is ignored, because some file systems cannot store the time.
void KeepTime(HANDLE from, HANDLE to) {
  FILETIME modified{};
  if (GetFileTime(from, nullptr, nullptr, &modified) != 0) SetFileTime(to, nullptr, nullptr, &modified);
}

Result<NativeFacts> FactsOfSource(const AnsiPath& from) {
  Result<NativeFacts> facts = FactsOfPath(from, Links::kFollow);
  return facts.ok() && facts.value.IsFolder() ? NotARegularFile() : facts;
}

// Refuses a target that is no regular file, or that is the source under another name.
Status CheckTarget(const AnsiPath& to, const NativeFacts& source) {
  if (Status status = OnlyRegular(to); !status.ok()) return status;
  const Result<NativeFacts> facts = FactsOfPath(to, Links::kFollow);
  if (facts.ok() && facts.value.IsSameFile(source))
    return Status::Failure(ErrorClass::kOther, "Source and target are the same file");
  return Status::Success();
}

// Does the same as CopyByHand, with the system's own copy function.
Status CopyBySystem(const AnsiPath& from, const AnsiPath& to, const CopyRoutine& routine) {
  Teller teller(routine);
  BOOL cancel = FALSE;
  const BOOL copied =
      FindSystemCopy()(from.c_str(), to.c_str(), TellOfSystemCopy, &teller, &cancel, COPY_FILE_RESTARTABLE);
  if (copied == 0) return LastFailure();
  const Result<NativeFacts> facts = FactsOfPath(to, Links::kFollow);
  if (!facts.ok()) return facts.status;
  return teller.TellTheRest(static_cast<std::int64_t>(facts.value.size)) ? Status::Success() : Stopped();
}

// Copies to a temporary name first when the target exists, so that it stays until the copy is complete, or when the
// copy is to appear as a whole.
Status CopyTo(std::string_view from, std::string_view to, bool appears_whole, const CopyRoutine& routine) {
  const AnsiPath source(from);
  const AnsiPath target(to);
  const Result<NativeFacts> facts = FactsOfSource(source);
  if (!facts.ok()) return facts.status;
  Status status = CheckTarget(target, facts.value);
  if (!status.ok()) return status;
  const bool is_beside = appears_whole || IsThere(target);
  const AnsiPath copy(is_beside ? TemporaryName(target) : target.core);
  status = copy.status;
  if (!status.ok()) return status;
  status = FindSystemCopy() != nullptr ? CopyBySystem(source, copy, routine) : CopyByHand(source, copy, routine);
  if (status.ok()) status = MakeWritable(copy);
  if (status.ok() && is_beside) status = MoveOver(copy, target);
  if (!status.ok()) DeleteForSure(copy);
  return status;
}

}  // namespace

Status CopyByHand(const AnsiPath& from, const AnsiPath& to, const CopyRoutine& routine) {
  Teller teller(routine);
  const RegularFile source = OpenRegular(from, GENERIC_READ, OPEN_EXISTING, ShareEverything());
  if (!source.status.ok()) return source.status;
  RegularFile target = OpenRegular(to, GENERIC_WRITE, CREATE_ALWAYS, 0);
  if (!target.status.ok()) return target.status;
  Status status = CopyBytes(source.handle.get(), target.handle.get(), teller);
  if (!status.ok()) return status;
  KeepTime(source.handle.get(), target.handle.get());
  target.handle.Close();
  return StatusOfResult(SetFileAttributesA(to.c_str(), GetFileAttributesA(from.c_str())));
}

Status CopyFileWithProgress(std::string_view from, std::string_view to, const CopyRoutine& routine) {
  return CopyTo(from, to, false, routine);
}

Status CopyWholeFile(std::string_view from, std::string_view to) { return CopyTo(from, to, true, nullptr); }

}  // namespace discwright::host
