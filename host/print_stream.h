// A standard stream of C++ in front of Print.
#pragma once

#include <ostream>
#include <sstream>

#include "host/console.h"

namespace discwright::host {

// Takes UTF-8. Whatever was written since the last flush is printed by the next one, or by the end of the stream; on
// standard error at once.
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
