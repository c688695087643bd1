// Writes the parts of a script for the system's command shell: its first lines, programs, paths and line ends. Join
// them to a text, and write the result of ScriptBytes(text) to the script's file.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "host/status.h"

namespace discwright::host {

// The first three lines of a script, without line ends. They make `folder` the current folder.
std::array<std::string, 3> ScriptPrologue(std::string_view folder);

// The program `name` (for example "mkisofs.exe") in the script's current folder, in the form in which the shell calls
// it.
std::string ScriptProgram(std::string_view name);

// A path as one argument that the shell takes literally. It is absolute if the system can make it so.
std::string ScriptPath(std::string_view path);

std::string_view ScriptLineEnd();

// The bytes in which the shell reads the script's text. Fails when they cannot represent one of its characters.
Result<std::string> ScriptBytes(std::string_view text);

}  // namespace discwright::host
