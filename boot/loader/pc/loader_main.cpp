// Prepares what C++ code needs, and calls Main(). entry.asm calls it.
#include "boot/loader/pc/loader_main.h"

#include "boot/loader/pc/a20.h"

// `drive`, `shift`: as BiosDisk::Drive.
extern "C" [[noreturn]] void LoaderMain(std::uint32_t drive, std::uint32_t shift);

void LoaderMain(std::uint32_t drive, std::uint32_t shift) {
  using namespace discwright::loader;
  Console console;
  if (!EnableA20()) {
    console.Write(
        "\nThe memory above 1 MB cannot be used: line A20 stays off (code 5).\n"
        "Look for a setting of \"Gate A20\" in the BIOS. Programs that start from here may fail.\n");
  }
  Main(console, {static_cast<std::uint8_t>(drive), static_cast<std::uint8_t>(shift)});
}
