// The terminal side of the host: waking a sleeping program, Ctrl-C, what standard error is, and text on it.
#pragma once

#include <ostream>
#include <sstream>
#include <string_view>

namespace discwright::host {

// A flag that a sleeping thread waits for. Set may be called from any thread.
void SetWakeUp();
// Sleeps until SetWakeUp or the first Ctrl-C since the last call, at most the given time; 0 only looks.
void WaitForWakeUp(int milliseconds);

// From now on Ctrl-C (or a request to terminate) only counts; see below.
void CatchInterrupts();
// How often the user has pressed Ctrl-C since CatchInterrupts.
int InterruptCount();

bool StandardErrorIsTerminal();
// Columns of the terminal; 80 when unknown.
int TerminalWidth();
// On the terminal: from the cursor to the end of its line.
void EraseRestOfLine();

enum class Stream { kOutput, kError };
// Writes UTF-8 text at once, in the encoding of whoever reads it: on Windows in the code page of a console, and in the
// ANSI code page into a file or pipe. What cannot be shown becomes "?" there or a similar character.
void Print(Stream stream, std::string_view text);

// A standard stream of C++ in front of Print. Takes UTF-8. Whatever was written since the last flush is printed by the
// next one, or by the end of the stream; on standard error at once.
class PrintStream : public std::ostream {
 public:
  explicit PrintStream(Stream stream) : std::ostream(nullptr), buffer_(stream) {
    rdbuf(&buffer_);
    if (stream == Stream::kError) setf(unitbuf);
  }

 private:
  class Buffer : public std::stringbuf {
   public:
    explicit Buffer(Stream stream) : stream_(stream) {}
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;
    ~Buffer() override { PrintAll(); }

   protected:
    int sync() override {
      PrintAll();
      return 0;
    }

   private:
    void PrintAll() {
      if (!view().empty()) Print(stream_, view());
      str("");
    }

    Stream stream_;
  };

  Buffer buffer_;
};

}  // namespace discwright::host
