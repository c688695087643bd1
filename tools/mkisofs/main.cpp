// Starts mkisofs, the program that masters a folder tree into a bootable ISO 9660 image.
#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include "base/source_date.h"
#include "host/console.h"
#include "host/native_text.h"
#include "host/run_program.h"
#include "tools/mkisofs/master.h"

constexpr int kExitFailed = 1;

int main(int argc, char** argv) {
  using namespace discwright;
  return host::RunProgram("mkisofs", [&] {
    host::CatchInterrupts(kExitFailed);
    host::PrintStream messages(host::Stream::kError);
    const std::vector<std::string> words = host::Arguments(argc, argv);
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const tools::mkisofs::Surroundings surroundings{std::getenv(base::kSourceDateVariable),
                                                    now.time_since_epoch().count(),
                                                    [] { return host::InterruptCount() > 0; }};
    return tools::mkisofs::Master(words, surroundings, messages);
  });
}
