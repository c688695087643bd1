// Files that stand in the workspace or the staging folder as if an earlier build had left them there.
#pragma once

#include <string>

#include "host/folder_facts.h"
#include "host/names.h"
#include "tests/end_to_end/program_copy.h"
#include "tests/end_to_end/trees.h"

namespace discwright::testing {

// Writes a file to the folder "vexacd" or "advtemp" of the program, and the mark of that folder.
inline void WriteLeftFile(const ProgramCopy& program, const fs::path& below, const std::string& content) {
  WriteFile(program / below, content);
  const std::string folder = (program / *below.begin()).string();
  WriteFile(folder + ".own", host::FactsOfFolder(host::PathFromNative(folder)).value.identity);
}

}  // namespace discwright::testing
