// The steps of a run and what it prints.
#include "tools/dfl/dfl.h"

#include <algorithm>

#include "host/names.h"
#include "host/threads.h"
#include "tools/dfl/compare.h"
#include "tools/dfl/digest.h"
#include "tools/dfl/problems.h"
#include "tools/dfl/tree.h"

namespace discwright::tools::dfl {
namespace {

constexpr std::string_view kUsage =
    "usage: dfl FOLDER link\n"
    "Makes files of equal content below FOLDER hard links of one another.\n";

// Linking waits for the disk as often as it reads.
constexpr unsigned kThreadsPerProcessor = 4;

void PrintWithoutLinks(const std::vector<std::string>& folders, std::ostream& output) {
  for (const std::string& folder : folders) {
    output << "The file system of " << Shown(folder) << " has no hard links; duplicate files stay as they are.\n";
  }
}

// What interrupted runs left: whatever still has such a name and is a file that also has another is not needed.
void RemovePassingNames(const Tree& tree) {
  for (std::size_t place = 0; place < tree.names().size(); ++place) {
    if (IsPassingName(tree.names()[place].name)) host::RemoveSpareName(tree.Path(place));
  }
}

}  // namespace

int RunDfl(const std::vector<std::string>& arguments, std::ostream& output, std::ostream& errors,
           const Machine& machine) {
  if (arguments.size() != 2 || arguments[0].empty() || arguments[1] != "link") {
    errors << kUsage << std::flush;
    return kExitUsage;
  }
  const unsigned processors = machine.processors != 0 ? machine.processors : host::ProcessorCount();
  Problems problems;
  // Every line is sent off at once: the monitor shows the one that it read last.
  const std::string folder = host::PathFromNative(arguments[0]);
  output << "Scanning " << arguments[0] << std::endl;
  const Tree tree(folder, problems);
  output << "Calculating MD5 digests" << std::endl;
  const std::vector<Group> groups = SplitByDigest(tree.GroupsOfEqualSize(), kSideBySide, tree, processors, problems);
  output << "Finding duplicate files" << std::endl;
  Linking linking(tree, machine.calls, problems);
  const Saving saving = linking.Run(groups, kThreadsPerProcessor * processors);
  RemovePassingNames(tree);
  PrintWithoutLinks(linking.FoldersWithoutLinks(), output);
  problems.Print(errors);
  // Whoever cannot see the exit code tells a complete run by this line: it ends otherwise where files were left alone.
  output << saving.linked << " files linked, " << saving.bytes << " bytes saved"
         << (problems.empty() ? "" : ", some files were left alone") << std::endl;
  return problems.empty() ? kExitDone : kExitProblems;
}

}  // namespace discwright::tools::dfl
