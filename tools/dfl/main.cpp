// Starts dfl, the program that replaces duplicate files by hard links, so that mastering stores their content once.
#include "host/console.h"
#include "host/native_text.h"
#include "host/run_program.h"
#include "tools/dfl/dfl.h"

int main(int argc, char** argv) {
  using namespace discwright;
  return host::RunProgram("dfl", [&] {
    host::PrintStream output(host::Stream::kOutput);
    host::PrintStream errors(host::Stream::kError);
    return tools::dfl::RunDfl(host::Arguments(argc, argv), output, errors);
  });
}
