// CreateDsk: makes a FAT12 floppy image from one of the disk profiles in files/disks beside the program.
#include <string>
#include <vector>

#include "host/console.h"
#include "host/names.h"
#include "host/native_text.h"
#include "host/system.h"
#include "tools/createdsk/arguments.h"
#include "tools/createdsk/create_disk.h"

using discwright::host::PrintStream;
using discwright::host::Stream;
using discwright::tools::Arguments;
using discwright::tools::Result;

int main(int argc, char** argv) {
  const std::vector<std::string> words = discwright::host::Arguments(argc, argv);
  PrintStream output(Stream::kOutput);
  PrintStream errors(Stream::kError);
  Arguments arguments;
  if (const Result result = discwright::tools::ParseArguments(words, arguments); !result.ok()) {
    errors << "CreateDsk: " << result.failure << "\n" << discwright::tools::kUsage << "\n";
    return 2;
  }
  const std::string folder = discwright::host::ProgramFolder();
  if (folder.empty()) {
    errors << "CreateDsk: The system does not tell in which folder this program is. Start it by its full path.\n";
    return 1;
  }
  std::string image_path;
  const Result result = discwright::tools::CreateDisk(arguments, folder, image_path);
  if (!result.ok()) {
    errors << "CreateDsk: " << result.failure << "\n";
    return 1;
  }
  output << discwright::host::PathToNative(image_path) << " is made\n";
  return 0;
}
