// Starts CreateDsk, the program that makes a FAT12 floppy image from one of the disk profiles in files/disks beside it.
#include <string>
#include <vector>

#include "host/console.h"
#include "host/names.h"
#include "host/native_text.h"
#include "host/run_program.h"
#include "host/system.h"
#include "tools/createdsk/arguments.h"
#include "tools/createdsk/create_disk.h"

namespace {

using namespace discwright;
using host::PrintStream;
using host::Stream;

int Run(const std::vector<std::string>& words) {
  PrintStream output(Stream::kOutput);
  PrintStream errors(Stream::kError);
  tools::Arguments arguments;
  if (const tools::Result result = tools::ParseArguments(words, arguments); !result.ok()) {
    errors << "CreateDsk: " << result.failure << "\n" << tools::kUsage << "\n";
    return 2;
  }
  const std::string folder = host::ProgramFolder();
  if (folder.empty()) {
    errors << "CreateDsk: The system does not tell in which folder this program is. Start it by its full path.\n";
    return 1;
  }
  std::string image_path;
  const tools::Result result = tools::CreateDisk(arguments, folder, image_path);
  if (!result.ok()) {
    errors << "CreateDsk: " << result.failure << "\n";
    return 1;
  }
  output << host::PathToNative(image_path) << " is made\n";
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  return host::RunProgram("CreateDsk", [&] { return Run(host::Arguments(argc, argv)); });
}
