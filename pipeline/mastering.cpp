// Writes and starts the mastering script, and handles its output and its end.
#include "pipeline/mastering.h"

#include <algorithm>
#include <memory>

#include "host/files.h"
#include "host/left_files.h"
#include "host/script.h"
#include "host/system.h"
#include "pipeline/mastering_log.h"
#include "steps/processes.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::pipeline {

namespace {

// These arguments are the same for every CD. Each of them begins with a blank.
constexpr const char* kMasteringArguments =
    " -volid \"VEXA_RESCUE\""
    " -preparer \"Brennick\""
    " -publisher \"KORVANE LTD\""
    " -appid \"Vexa CD Creator\""
    " -iso-level 4"
    " -omit-period"
    " -no-emul-boot"
    " -boot-load-size 4"
    " -eltorito-boot boot/loader.bin"
    " -hide loader.bin"
    " -hide boot.catalog"
    " -follow-links -cache-inodes"
    " -output ";

// Finds in the output what the exit code of the script does not tell, because that is the mastering's:
// - Whether dfl, the linker of duplicate files, has done all of its work. Its last line then is "12 files linked, 3456
//   bytes saved"; it has more text when dfl could not link every file.
// - Which files the mastering has left out of the image.
// - Whether the mastering has run to its end. A shell that cannot read the script to its end may not say so.
class OutputWatch {
 public:
  static constexpr std::string_view kWritten = "extents written";  // in the last line of every mastering tool

  void Read(std::string_view piece) {
    for (const char character : piece) {
      if (character == '\n') {
        EndLine();
      } else if (character != '\r') {
        line_ += character;
      }
    }
  }
  bool linker_has_finished() const { return linker_has_finished_; }
  const std::vector<std::string>& left_out() const { return left_out_; }
  // The last line may lack its line end.
  bool image_was_written() const { return image_was_written_ || line_.find(kWritten) != line_.npos; }

 private:
  void EndLine() {
    linker_has_finished_ = linker_has_finished_ || IsLastLine(line_);
    if (line_.ends_with(": it is not on the disc")) left_out_.push_back(line_);
    image_was_written_ = image_was_written_ || line_.find(kWritten) != line_.npos;
    line_.clear();
  }
  static bool SkipNumber(std::string_view& text) {
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    text.remove_prefix(digits);
    return digits > 0;
  }
  static bool IsLastLine(std::string_view line) {
    constexpr std::string_view kLinked = " files linked, ";
    if (!SkipNumber(line) || !line.starts_with(kLinked)) return false;
    line.remove_prefix(kLinked.size());
    return SkipNumber(line) && line == " bytes saved";
  }

  std::string line_;
  bool linker_has_finished_ = false;
  bool image_was_written_ = false;
  std::vector<std::string> left_out_;
};

// The state of a running mastering.
struct Mastering {
  std::unique_ptr<MasteringLog> log;
  OutputWatch output;
  bool links_duplicates = false;
};

void LaunchApp_DataReceived(steps::Context& context, Mastering& mastering, std::string_view TextPipe) {
  mastering.log->AddLine(TextPipe);
  mastering.output.Read(TextPipe);
  ShowMasteringOutput(context.main(), TextPipe);
}

// Adds no notes when the mastering failed, because there is no image that could contain duplicate files or lack others.
void NoteOutput(steps::Context& context, const Mastering& mastering) {
  if (!context.mastering_end.Succeeded()) return;
  for (const std::string& line : mastering.output.left_out()) context.notes.Add(mastering.log->path(), line);
  if (!mastering.links_duplicates || mastering.output.linker_has_finished()) return;
  context.notes.Add(mastering.log->path(),
                    "dfl, the program that links duplicate files, did not link all of them (this log may say why): "
                    "duplicate files were stored more than once");
}

void LaunchApp_ProcessEnded(steps::Context& context, Mastering& mastering) {
  MasteringLog& log = *mastering.log;
  forms::FrmDiscwright& main = context.main();
  context.mastering_end = context.LaunchApp->End();
  context.image_was_written = mastering.output.image_was_written();
  if (!context.mastering_end.Succeeded()) {
    log.AddLine("The mastering " + context.mastering_end.Text() + ".");
    // A mastering that was killed leaves an unfinished image, which may be large.
    host::RemoveLeftFiles(util::ParentOf(util::NamedFile(main.TxtISOLoc.text.get())));
  }
  log.Close();
  main.MKISOFSRunning = false;
  // If an earlier build left an image at this path, the finish page shows a failed mastering as a success. Kept as it
  // has always been; the build's result also looks at the exit code.
  if (main.LblAbort.visible || !util::FileExists(main.TxtISOLoc.text.get())) {
    main.LblFinish.caption = "   Operation Aborted";
    main.LblAbort.visible = true;
  }
  if (!main.LblAbort.visible) NoteOutput(context, mastering);
  if (main.ChkCleanSession.checked()) {
    const std::string script = util::PathOf(util::Item::kMasteringScript);
    context.notes.Check(host::RemoveFile(script), script, "could not be deleted");
  }
  main.BarSub_Step.visible = false;
  main.BarSub_Step.value = main.BarSub_Step.max.get();
}

bool WriteScript(util::Notes& notes, const std::string& path, std::string_view ISOLocation, bool OptimizeISO) {
  std::string text;
  for (const std::string& line : MasteringScript(ISOLocation, OptimizeISO))
    text += line + std::string(host::ScriptLineEnd());
  const host::Result<std::string> bytes = host::ScriptBytes(text);
  return notes.Check(bytes.status, util::NamedFile(ISOLocation),
                     "the path of the image cannot be written to the mastering script") &&
         notes.Check(host::WriteWholeFile(path, bytes.value), path, "could not be written");
}

}  // namespace

std::vector<std::string> MasteringScript(std::string_view ISOLocation, bool OptimizeISO) {
  const auto prologue = host::ScriptPrologue(host::ProgramFolder());
  const std::string workspace(util::NameInFolder(util::Item::kWorkspace));
  std::vector<std::string> lines(prologue.begin(), prologue.end());
  if (OptimizeISO)
    lines.push_back(host::ScriptProgram(util::NameInFolder(util::Item::kDfl)) + " " + workspace + " link");
  lines.push_back(host::ScriptProgram(util::NameInFolder(util::Item::kMkisofs)) + " " + kMasteringArguments +
                  host::ScriptPath(util::NamedFile(ISOLocation)) + " " + workspace);
  return lines;
}

void StartMKISOFS(steps::Context& context, std::string_view ISOLocation, bool OptimizeISO) {
  forms::FrmDiscwright& main = context.main();
  const std::string script = util::PathOf(util::Item::kMasteringScript);
  main.CmdCancel.enabled = false;  // a running mastering cannot be cancelled from the wizard
  if (!WriteScript(context.notes, script, ISOLocation, OptimizeISO)) {
    // Otherwise the script of an earlier build would run and overwrite that build's image.
    host::RemoveFile(script);
  }
  context.image_was_written = false;
  const auto mastering = std::make_shared<Mastering>();
  mastering->links_duplicates = OptimizeISO;
  const bool started = steps::StartLauncher(
      context, context.LaunchApp, script, kMasteringPollInterval,
      {[&context, mastering](std::string_view TextPipe) { LaunchApp_DataReceived(context, *mastering, TextPipe); },
       [&context, mastering] { LaunchApp_ProcessEnded(context, *mastering); }});
  main.MKISOFSRunning = started;
  main.BarSub_Step.max = 100;
  main.BarSub_Step.value = main.BarSub_Step.min.get();
  main.BarSub_Step.visible = true;
  if (!started) return;
  mastering->log = std::make_unique<MasteringLog>(context.notes);
  mastering->log->AddLine("MkISOFS.EXE Log File");
}

}  // namespace discwright::pipeline
