// How the host's command shell wants a generated script: its first lines, its quoting, its line ends.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "host/status.h"

namespace discwright::host {

// The three lines that open a script and make `folder` its current folder, without line ends.
std::array<std::string, 3> ScriptPrologue(std::string_view folder);

// The program `name` ("mkisofs.exe") of the script's current folder, as the shell calls it.
std::string ScriptProgram(std::string_view name);

// A path as one argument that the shell cannot take for anything else; absolute wherever the host can make it so.
std::string ScriptPath(std::string_view path);

std::string_view ScriptLineEnd();

// The script's text in the bytes that the shell reads; fails when these cannot hold a character of it.
Result<std::string> ScriptBytes(std::string_view text);

}  // namespace discwright::host
