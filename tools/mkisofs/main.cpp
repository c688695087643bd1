// mkisofs: masters a folder tree into a bootable ISO 9660 image.
#include <chrono>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "host/console.h"
#include "tools/mkisofs/master.h"

int main(int argc, char** argv) {
  using discwright::tools::mkisofs::Surroundings;
  try {
    discwright::host::CatchInterrupts();
    const std::vector<std::string> words(argv + (argc > 0 ? 1 : 0), argv + argc);
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const Surroundings surroundings{std::getenv("SOURCE_DATE_EPOCH"), now.time_since_epoch().count(),
                                    [] { return discwright::host::InterruptCount() > 0; }};
    return discwright::tools::mkisofs::Master(words, surroundings, std::cerr);
  } catch (const std::exception& failure) {  // no memory or no thread left
    std::cerr << "mkisofs: " << failure.what() << "\n";
    return 1;
  }
}
