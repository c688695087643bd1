// Writing and starting the mastering script, and its end.
#include "pipeline/mastering.h"

#include <memory>

#include "host/files.h"
#include "host/native_text.h"
#include "host/script.h"
#include "host/system.h"
#include "util/paths.h"
#include "util/processes.h"

namespace discwright::pipeline {

namespace {

constexpr const char* kScriptFile = "\\makecd.bat";  // below the program folder

// The fixed argument list, each piece after the program with its own leading blank.
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

// "mkisofs.log": open for the whole run, one line per piece of output.
class MasteringLog {
 public:
  explicit MasteringLog(util::Notes& notes) : path_(host::ProgramFolder() + kMasteringLog), notes_(notes) {
    host::Status status;
    file_ = host::OpenBinary(path_, host::OpenMode::kCreateEmpty, status);
    notes_.Check(status, path_, "the mastering log could not be created");
  }

  void AddLine(std::string_view text) {
    if (!file_) return;
    // A piece of output often ends its line by itself.
    const std::string line = host::TextToNative(text) + (text.ends_with('\n') ? "" : "\r\n");
    const host::Status status = file_->WriteAt(position_, std::as_bytes(std::span(line)));
    position_ += static_cast<std::int64_t>(line.size());
    // One note is enough: a full disk fails every further line too.
    if (!notes_.Check(status, path_, "the mastering log is incomplete")) file_.reset();
  }

  void Close() { file_.reset(); }

 private:
  std::string path_;
  util::Notes& notes_;
  std::unique_ptr<host::BinaryFile> file_;
  std::int64_t position_ = 0;
};

void LaunchApp_DataReceived(util::Context& context, MasteringLog& log, std::string_view TextPipe) {
  log.AddLine(TextPipe);
  ShowMasteringOutput(context.main(), TextPipe);
}

void LaunchApp_ProcessEnded(util::Context& context, MasteringLog& log) {
  forms::FrmDiscwright& main = context.main();
  context.mastering_end = context.LaunchApp->End();
  if (!context.mastering_end.Succeeded()) log.AddLine("The mastering " + context.mastering_end.Text() + ".");
  log.Close();
  main.MKISOFSRunning = false;
  // An image that an earlier run left there makes a failed run look successful here; that is meant.
  if (main.LblAbort.visible || !util::FileExists(main.TxtISOLoc.text.get())) {
    main.LblFinish.caption = "   Operation Aborted";
    main.LblAbort.visible = true;
  }
  if (main.ChkCleanSession.checked()) {
    const std::string script = host::ProgramFolder() + kScriptFile;
    context.notes.Check(host::RemoveFile(script), script, "could not be deleted");
  }
  main.BarSub_Step.visible = false;
  main.BarSub_Step.value = main.BarSub_Step.max.get();
}

bool WriteScript(util::Notes& notes, const std::string& path, std::string_view ISOLocation, bool OptimizeISO) {
  std::string text;
  for (const std::string& line : MasteringScript(ISOLocation, OptimizeISO))
    text += line + std::string(host::ScriptLineEnd());
  std::string bytes;
  return notes.Check(host::ScriptBytes(text, bytes), std::string(ISOLocation), "the mastering cannot be told of it") &&
         notes.Check(host::WriteWholeFile(path, bytes), path, "could not be written");
}

}  // namespace

std::vector<std::string> MasteringScript(std::string_view ISOLocation, bool OptimizeISO) {
  const auto prologue = host::ScriptPrologue(host::ProgramFolder());
  std::vector<std::string> lines(prologue.begin(), prologue.end());
  if (OptimizeISO) lines.push_back(host::ScriptProgram("dfl.exe") + " vexacd link");
  lines.push_back(host::ScriptProgram("mkisofs.exe") + " " + kMasteringArguments + host::ScriptPath(ISOLocation) +
                  " vexacd");
  return lines;
}

void StartMKISOFS(util::Context& context, std::string_view ISOLocation, bool OptimizeISO) {
  forms::FrmDiscwright& main = context.main();
  const std::string script = host::ProgramFolder() + kScriptFile;
  main.CmdCancel.enabled = false;  // a running mastering cannot be cancelled from the wizard
  if (!WriteScript(context.notes, script, ISOLocation, OptimizeISO)) {
    // An old script must not run with the wrong image in mind.
    host::RemoveFile(script);
  }
  const auto log = std::make_shared<std::unique_ptr<MasteringLog>>();
  const bool started = util::StartLauncher(
      context, context.LaunchApp, script, kMasteringPollInterval,
      [&context, log](std::string_view TextPipe) { LaunchApp_DataReceived(context, **log, TextPipe); },
      [&context, log] { LaunchApp_ProcessEnded(context, **log); });
  main.MKISOFSRunning = started;
  main.BarSub_Step.max = 100;
  main.BarSub_Step.value = main.BarSub_Step.min.get();
  main.BarSub_Step.visible = true;
  if (!started) return;
  *log = std::make_unique<MasteringLog>(context.notes);
  (*log)->AddLine("MkISOFS.EXE Log File");
}

}  // namespace discwright::pipeline
