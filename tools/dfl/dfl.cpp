// Performs the steps of a run (scan, digest, compare and link) and prints the lines that report them.
#include "tools/dfl/dfl.h"

#include <algorithm>

#include "host/names.h"
#include "host/threads.h"
#include "tools/dfl/compare.h"
#include "tools/dfl/digest.h"
#include "tools/dfl/problems.h"
#include "tools/dfl/tree.h"
#include "tools/temporary_link.h"

namespace discwright::tools::dfl {
namespace {

constexpr std::string_view kUsage =
    "usage: dfl FOLDER link\n"
    "Makes files of equal content below FOLDER hard links of one another.\n";

// More threads than processors, because linking often waits for the disk.
constexpr unsigned kThreadsPerProcessor = 4;

void PrintWithoutLinks(const std::vector<std::string>& folders, std::ostream& output) {
  for (const std::string& folder : folders) {
    output << "The file system of " << Shown(folder) << " has no hard links; duplicate files stay as they are.\n";
  }
}

// Removes the temporary links of interrupted runs. RemoveSpareName keeps a file whose only name this is.
void RemoveTemporaryLinks(const Tree& tree, std::ostream& output) {
  for (std::size_t place = 0; place < tree.names().size(); ++place) {
    const bool is_removed = IsTemporaryLinkName(tree.names()[place].name) && host::RemoveSpareName(tree.Path(place));
    if (is_removed) output << "Removed " << Shown(tree.Path(place)) << ", which an interrupted run had left.\n";
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
  // Each line is flushed at once, because the monitor shows the last line that it has read.
  const std::string folder = host::PathFromNative(arguments[0]);
  output << "Scanning " << arguments[0] << std::endl;
  const Tree tree(folder, problems);
  // The monitor looks for this text, although the digests are not MD5 but the faster XXH3.
  output << "Calculating MD5 digests" << std::endl;
  const std::vector<Group> groups = SplitByDigest(tree.GroupsOfEqualSize(), kSideBySide, tree, processors, problems);
  output << "Finding duplicate files" << std::endl;
  Linking linking(tree, machine.calls, problems);
  const Saving saving = linking.Run(groups, kThreadsPerProcessor * processors);
  RemoveTemporaryLinks(tree, output);
  PrintWithoutLinks(linking.FoldersWithoutLinks(), output);
  problems.Print(errors);
  // The build does not see the exit code of this program. It takes the run for complete when this line ends in "saved".
  output << saving.linked << " files linked, " << saving.bytes << " bytes saved"
         << (problems.empty() ? "" : ", some files were left alone") << std::endl;
  return problems.empty() ? kExitDone : kExitProblems;
}

}  // namespace discwright::tools::dfl
