// mkisofs: masters a folder tree into a bootable ISO 9660 image.
#include <chrono>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

#include "base/source_date.h"
#include "host/console.h"
#include "host/native_text.h"
#include "tools/mkisofs/master.h"

constexpr int kExitFailed = 1;

int main(int argc, char** argv) {
  using discwright::tools::mkisofs::Surroundings;
  discwright::host::PrintStream messages(discwright::host::Stream::kError);
  try {
    discwright::host::CatchInterrupts(kExitFailed);
    const std::vector<std::string> words = discwright::host::Arguments(argc, argv);
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const Surroundings surroundings{std::getenv(discwright::base::kSourceDateVariable), now.time_since_epoch().count(),
                                    [] { return discwright::host::InterruptCount() > 0; }};
    return discwright::tools::mkisofs::Master(words, surroundings, messages);
  } catch (const std::exception& failure) {  // no memory left, or no thread could be started
    messages << "mkisofs: " << failure.what() << "\n";
    return kExitFailed;
  }
}
