// Translates paths of the core to paths for the ANSI calls of the system. Example:
//
//   const AnsiPath path(core_path);
//   if (!path.status.ok()) return path.status;
//   DeleteFileA(path.c_str());
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/status.h"

namespace discwright::host {

// A core path in the ANSI code page, with "\" between names and otherwise unchanged. Returns std::nullopt when the code
// page cannot hold it, or when it contains "?" or "*". The system lists these characters in place of those that its
// code page lacks, and would take them for wildcards.
std::optional<std::string> NativePath(std::string_view path);

// A core path that was translated to the ANSI code page and checked.
struct AnsiPath {
  explicit AnsiPath(std::string_view path);

  std::string core;    // UTF-8, with "\" only
  std::string native;  // for the calls; empty unless the status is ok
  Status status;       // why the system cannot be asked about the path: its characters or its length
  const char* c_str() const { return native.c_str(); }
};

// The path made absolute, so that it no longer depends on the current folder, and without a separator at its end unless
// it is a root. When the system cannot be asked about the path, only its separators are changed.
std::string AbsolutePath(std::string_view path);

// The folder of Windows; empty when the system cannot tell.
std::string WindowsFolder();

}  // namespace discwright::host
