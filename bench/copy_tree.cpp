// Copies a tree as a build does, with progress, so that run.py can measure it: bench_copy_tree SOURCE DESTINATION.
#include <iostream>

#include "host/names.h"
#include "host/user_interface.h"
#include "util/copy.h"
#include "util/notes.h"

namespace {

using namespace discwright;

class SilentUser : public host::UserInterface {
 public:
  bool ShowMessage(const host::Message&) override { return true; }
  void DoEvents(int) override {}
  void Wake() override {}
  std::string ChooseFolder(std::string_view, std::string_view) override { return ""; }
  std::string ChooseFile(const host::FileRequest&) override { return ""; }
  bool HelpIsOpen(std::string_view, std::string_view) override { return false; }
  void ShowHelp(const host::HelpRequest&) override {}
  void OpenLink(std::string_view) override {}
};

class CountedProgress : public util::Progress {
 public:
  void Prepare() override {}
  void SetTotal(std::int64_t bytes) override { total_ = bytes; }
  void ShowFile(std::string_view) override {}
  void ShowBytes(std::int64_t bytes) override { shown_ = bytes; }
  std::int64_t ShownBytes() const override { return shown_; }
  void End() override {}

  bool IsComplete() const { return shown_ == total_; }

 private:
  std::int64_t total_ = 0;
  std::int64_t shown_ = 0;
};

// Returns true when every file was copied and the progress has reached its end. Prints the causes otherwise.
bool Copy(std::string_view source, std::string_view destination) {
  SilentUser user;
  util::Notes notes;
  CountedProgress progress;
  const util::CopyEnd end = util::CopyPathWithProgress({user, notes, progress}, host::PathFromNative(source),
                                                       host::PathFromNative(destination));
  for (const util::Note& note : notes.all()) std::cerr << host::PathToNative(note.place) << ": " << note.cause << "\n";
  if (!progress.IsComplete()) std::cerr << "The progress stopped before its end.\n";
  return end == util::CopyEnd::kComplete && notes.all().empty() && progress.IsComplete();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: bench_copy_tree SOURCE DESTINATION\n";
    return 2;
  }
  return Copy(argv[1], argv[2]) ? 0 : 1;
}
