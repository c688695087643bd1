// Mastering: the script that turns the workspace into an ISO file, and the monitor that follows its output.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "steps/context.h"

namespace discwright::pipeline {

inline constexpr int kMasteringPollInterval = 500;  // milliseconds

// Writes "makecd.bat" and starts it; returns at once. MKISOFSRunning is set until the end handler clears it.
void StartMKISOFS(steps::Context& context, std::string_view ISOLocation, bool OptimizeISO);

// The script's lines without line ends: four, or five with the optimisation.
std::vector<std::string> MasteringScript(std::string_view ISOLocation, bool OptimizeISO);

// One piece of the mastering's output: shown on the sub-step label and bar. `main` only; the log is the caller's.
void ShowMasteringOutput(forms::FrmDiscwright& main, std::string_view TextPipe);

}  // namespace discwright::pipeline
