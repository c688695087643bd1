// Copies a tree as a build does, with progress, so that run.py can measure it: bench_copy_tree SOURCE DESTINATION.
#include <iostream>

#include "forms/all_windows.h"
#include "host/processes.h"
#include "host/system.h"
#include "host/user_interface.h"
#include "util/context.h"
#include "util/copy.h"
#include "util/notes.h"

namespace {

using namespace discwright;

class SilentUser : public host::UserInterface {
 public:
  void ShowMessage(const host::Message&) override {}
  void DoEvents(int) override {}
  void Wake() override {}
  std::string ChooseFolder(std::string_view, std::string_view) override { return ""; }
  std::string ChooseFile(const host::FileRequest&) override { return ""; }
  bool HelpIsOpen(std::string_view, std::string_view) override { return false; }
  void ShowHelp(const host::HelpRequest&) override {}
  void OpenLink(std::string_view) override {}
};

// Returns true when every file was copied and the progress bar has reached its end. Prints the causes otherwise.
bool Copy(std::string_view source, std::string_view destination) {
  forms::Windows windows;
  SilentUser user;
  util::Notes notes;
  const auto programs = host::SystemProgramRunner();
  util::Context context{windows, user, *programs, notes, {}, {}, nullptr, nullptr};
  forms::ProgressBar& bar = windows.main.BarSub_Step;
  const util::CopyEnd end = util::CopyPathWithProgress(
      context, host::PathFromNative(source), host::PathFromNative(destination), windows.main.LblSub_Step, bar);
  for (const util::Note& note : notes.all()) std::cerr << host::PathToNative(note.place) << ": " << note.cause << "\n";
  if (bar.value.get() != bar.max.get()) std::cerr << "The bar stopped at " << bar.value.get() << ".\n";
  return end == util::CopyEnd::kComplete && notes.all().empty() && bar.value.get() == bar.max.get();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: bench_copy_tree SOURCE DESTINATION\n";
    return 2;
  }
  return Copy(argv[1], argv[2]) ? 0 : 1;
}
