// Paths as the system's ANSI calls take them.
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

// A core path in the ANSI code page: "\" between names, otherwise as given. Nothing when the code page cannot hold it,
// or when it has "?" or "*". The system lists these in place of characters that its code page lacks, and would take
// them for wildcards.
std::optional<std::string> NativePath(std::string_view path);

// A core path that was translated and checked.
struct AnsiPath {
  explicit AnsiPath(std::string_view path);

  std::string core;    // UTF-8, with "\" only
  std::string native;  // for the calls; empty unless the status is ok
  Status status;       // why the system cannot be asked about the path: its characters or its length
  const char* c_str() const { return native.c_str(); }
};

// The path as the system takes it from here on, whatever the current folder becomes: without a separator at its end,
// unless it is a root. What the system cannot be asked about only gets its separators.
std::string AbsolutePath(std::string_view path);

// The folder of Windows; empty when the system does not tell.
std::string WindowsFolder();

}  // namespace discwright::host
