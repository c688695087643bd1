// Masters the workspace into an ISO file: writes a script, runs it and follows its output. Call StartMKISOFS, then wait
// until MKISOFSRunning of the main form is false.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "steps/context.h"

namespace discwright::pipeline {

inline constexpr int kMasteringPollInterval = 500;  // milliseconds

// Writes "makecd.bat", starts it and returns at once. MKISOFSRunning is true until the script has ended. With
// `OptimizeISO`, duplicate files are stored only once.
void StartMKISOFS(steps::Context& context, std::string_view ISOLocation, bool OptimizeISO);

// The lines of the script, without line ends.
std::vector<std::string> MasteringScript(std::string_view ISOLocation, bool OptimizeISO);

// Shows the progress that a piece of the mastering's output reports, on the sub-step label and the bar.
void ShowMasteringOutput(forms::FrmDiscwright& main, std::string_view TextPipe);

}  // namespace discwright::pipeline
