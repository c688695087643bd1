// Copies the setup files of Windows 2000/XP/2003 into the workspace.
#include "integration/win2k.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "host/files.h"
#include "host/names.h"
#include "host/processes.h"
#include "host/system.h"
#include "integration/file_operations.h"
#include "settings/key_files.h"
#include "settings/win2k_info.h"
#include "steps/copy_to_tree.h"
#include "steps/processes.h"
#include "util/paths.h"
#include "util/program_folder.h"

namespace discwright::integration {

namespace {

// Every Windows program begins with the two bytes "MZ". The result is false for a file that cannot be read: when the
// system fails to start it, the system gives a better reason.
bool IsNoWindowsProgram(const std::string& SP_exe) {
  const auto file = host::OpenBinary(util::StripQuotes(SP_exe), host::OpenMode::kRead);
  if (!file.ok()) return false;
  constexpr std::array<std::byte, 2> kProgramStart = {std::byte{'M'}, std::byte{'Z'}};
  std::array<std::byte, kProgramStart.size()> start{};
  const host::Result<std::int64_t> length = file.value->Length();
  if (length.ok() && length.value < static_cast<std::int64_t>(start.size())) return true;
  return file.value->ReadAt(0, start).ok() && start != kProgramStart;
}

// The build continues without the service pack. The message tells the user at once; the note is for the final report.
void SkipServicePack(steps::Context& context, const std::string& SP_exe, const std::string& why) {
  context.notes.Add(SP_exe, "was not slipstreamed");
  context.user.ShowMessage({why, "Can't Slipstream Service Pack", host::MessageIcon::kExclamation});
}

void Slipstream(steps::Context& context, const std::string& SP_exe) {
  if (!util::IsWinNT()) {
    SkipServicePack(context, SP_exe, "Can't integrate the Windows Service Pack if running in a Windows 9x environment");
    return;
  }
  context.main().LblSub_Step.caption = "Slipstreaming Windows 2000/XP Service Pack";
  // A note, but no message: the wizard has checked the path before the build. Kept as it has always been.
  const host::Status readable = host::CheckReadable(util::NamedFile(SP_exe));
  if (readable.error == host::ErrorClass::kNotFound) {
    context.notes.Add(SP_exe, "was not slipstreamed: there is no such file");
    return;
  }
  if (!context.notes.Check(readable, SP_exe, "was not slipstreamed")) return;
  if (IsNoWindowsProgram(SP_exe)) {
    SkipServicePack(context, SP_exe,
                    "Can't integrate the Windows Service Pack: " + host::PathToNative(util::StripQuotes(SP_exe)) +
                        " is not a Windows program, so it cannot be the installer of a service pack");
    return;
  }
  const std::optional<std::string> command_line =
      host::WindowsProgramLine(SP_exe, "-s:", util::GetShortPath(util::PathOf(util::Item::kWorkspace)));
  if (!command_line) {
    SkipServicePack(context, SP_exe,
                    "Can't integrate the Windows Service Pack: its installer is a Windows program, and the command "
                    "\"wine\", which runs Windows programs, was not found");
    return;
  }
  steps::ASyncShell(context, *command_line);
  steps::WaitForASyncApp(context);
}

bool WriteAnswers(steps::Context& context) {
  settings::FillKeyFile(context.notes, {.AddInfo_toWin9xSetup = true, .AddInfo_toWin2KSetup = true});
  return settings::FillSetupDataFromKeyFileToUnattend(context.notes, util::PathOf(util::Item::kBuildKeyFile),
                                                      util::PathOf(util::Item::kWorkspace) + "\\I386\\WINNT.SIF");
}

void RemoveLanguages(steps::Context& context) {
  forms::Label& label = context.main().LblSub_Step;
  label.caption = "Removing Extra Languages files";
  label.Refresh();
  util::DelTree(util::PathOf(util::Item::kWorkspace) + "\\I386\\LANG", &context.notes,
                [&context] { return context.GoOn(); });
}

// Returns false after a failure that must end the build.
bool AddSetupFiles(steps::Context& context, const std::string& Source) {
  context.main().LblSub_Step.caption = "Copying Windows 2000/XP Files";
  CopyBootSector(context, "w2ksect.bin");
  if (!steps::CopyToTree(context, Source, util::PathOf(util::Item::kWorkspace) + "\\I386",
                         util::CopiedNames::kAsOnDisc))
    return false;
  if (!util::FileExists(util::PathOf(util::Item::kWorkspace) + "\\I386\\SETUPLDR.BIN")) {
    context.notes.Add(Source + "\\SETUPLDR.BIN",
                      "was not copied to the CD: Windows Setup cannot be started from the CD");
  }
  CopyMatchingFiles(context, Source + "\\..\\win51*.*", util::PathOf(util::Item::kWorkspace) + "\\WIN51*.*",
                    util::CopiedNames::kAsOnDisc);
  CopyMatchingFiles(context, Source + "\\..\\cdrom*.*", util::PathOf(util::Item::kWorkspace) + "\\CDROM*.*",
                    util::CopiedNames::kAsOnDisc);
  return true;
}

}  // namespace

void AddWin2K(steps::Context& context, const Win2KChoices& choices) {
  bool complete = AddSetupFiles(context, choices.Source);
  if (complete && !choices.SP_exe.empty()) Slipstream(context, choices.SP_exe);
  if (complete && choices.AddInfo_toUnattend) complete = WriteAnswers(context);
  if (complete && choices.DelTreeLang) RemoveLanguages(context);
  if (!complete) HaltIntegration(context, "Windows 2000/XP installation");
}

}  // namespace discwright::integration
