// Writes the parts of scripts for /bin/sh.
#include "host/script.h"

#include <algorithm>
#include <cctype>

#include "host/names.h"

namespace discwright::host {
namespace {

// Quotes any text as one word for the shell: between single quotes only the single quote itself has a special meaning.
std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char character : text) {
    if (character == '\'') {
      quoted += "'\\''";
    } else {
      quoted += character;
    }
  }
  return quoted + "'";
}

bool IsPlain(std::string_view name) {
  return std::all_of(name.begin(), name.end(), [](unsigned char character) {
    return (character < 0x80 && std::isalnum(character) != 0) || character == '.' || character == '_' ||
           character == '-';
  });
}

}  // namespace

std::array<std::string, 3> ScriptPrologue(std::string_view folder) {
  return {"#!/bin/sh", "# Made anew by every build.", "cd -- " + Quoted(PathToNative(folder)) + " || exit 1"};
}

std::string ScriptProgram(std::string_view name) {
  if (FoldCase(name).ends_with(".exe")) name.remove_suffix(4);
  std::string program = "./" + std::string(name);
  return IsPlain(name) ? program : Quoted(program);
}

std::string ScriptPath(std::string_view path) { return Quoted(PathToNative(path)); }

std::string_view ScriptLineEnd() { return "\n"; }

Result<std::string> ScriptBytes(std::string_view text) { return std::string(text); }

}  // namespace discwright::host
