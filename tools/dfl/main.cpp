// dfl: makes duplicate files hard links of one another, so that mastering stores them once.
#include <iostream>

#include "tools/dfl/dfl.h"

int main(int argc, char** argv) {
  return discwright::tools::dfl::RunDfl(std::vector<std::string>(argv + 1, argv + argc), std::cout, std::cerr);
}
