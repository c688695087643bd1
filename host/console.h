// The terminal: sleeping until something happens, Ctrl-C, and printing text.
//
//   PrintStream errors(Stream::kError);
//   errors << "text\n";
#pragma once

#include <ostream>
#include <sstream>
#include <string_view>

namespace discwright::host {

// Ends a running WaitForWakeUp, or else the next one. May be called from any thread.
void SetWakeUp();
// Sleeps until SetWakeUp is called or Ctrl-C is pressed, but at most so long. Returns at once when either has happened
// since the last call.
void WaitForWakeUp(int milliseconds);

// From now on the first Ctrl-C, or request to terminate, does not end the program; it is counted. The second one ends
// the program at once with `exit_code`, whatever it is doing, and all programs that it has started through a launcher.
void CatchInterrupts(int exit_code);
// How often the user has pressed Ctrl-C since CatchInterrupts.
int InterruptCount();

bool StandardErrorIsTerminal();
// Columns of the terminal; 80 when unknown.
int TerminalWidth();
// On the terminal: from the cursor to the end of its line.
void EraseRestOfLine();

enum class Stream { kOutput, kError };
// Prints UTF-8 text at once. On Windows a console gets it in the console's code page, and a file or pipe in the ANSI
// code page; "?" or a similar character stands there for what the code page lacks.
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
