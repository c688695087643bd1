// Translates each word.
#include "host/arguments.h"

#include "host/native_text.h"

namespace discwright::host {

std::vector<std::string> Arguments(int argc, char** argv) {
  std::vector<std::string> words;
  for (int i = 1; i < argc; ++i) words.push_back(TextFromNative(argv[i]));
  return words;
}

}  // namespace discwright::host
