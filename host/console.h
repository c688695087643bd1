// Waits for events, handles Ctrl-C, and writes to the terminal. Print text through a PrintStream:
//
//   PrintStream errors(Stream::kError);
//   errors << "text\n";
#pragma once

#include <ostream>
#include <sstream>
#include <string_view>

namespace discwright::host {

// Ends a running WaitForWakeUp. If none is running, the next one returns at once. Any thread may call this.
void SetWakeUp();
// Sleeps until SetWakeUp is called or Ctrl-C is pressed, but at most for this time. Returns at once when one of them
// has happened since the last call.
void WaitForWakeUp(int milliseconds);

// After this call the first Ctrl-C, or request to terminate, does not end the program: InterruptCount reports it. The
// second one ends the program at once with `exit_code`, and every program that it has started through a launcher.
void CatchInterrupts(int exit_code);
// How often the user has pressed Ctrl-C, or the program was asked to terminate, since CatchInterrupts.
int InterruptCount();

bool StandardErrorIsTerminal();
// The number of columns of the terminal; 80 when it is unknown.
int TerminalWidth();
// Clears the terminal from the cursor to the end of its line.
void EraseRestOfLine();

enum class Stream { kOutput, kError };
// Prints UTF-8 text at once. On Windows the text is converted: to the code page of the console, or to the ANSI code
// page for a file or pipe. Characters that the code page lacks become "?" or a similar character.
void Print(Stream stream, std::string_view text);

// A C++ stream that prints UTF-8 text through Print. Text is printed by the next flush, or when the stream is
// destroyed. A stream on standard error prints at once.
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
