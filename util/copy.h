// Copying folder trees: the one way to copy with progress, its two engines, and a plain copy without display.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "forms/control.h"
#include "util/context.h"

namespace discwright::util {

// How a tree copy ended. kFailed is the ordinary "false" that most callers do not look at; kRuntimeFailure (a tree of
// 2 GB or more overflows the 32-bit byte count) must be trapped by the build step like any fatal error.
enum class CopyEnd { kComplete, kFailed, kRuntimeFailure };

enum class CopiedNames {
  kAsListed,
  kAsOnDisc,  // of a setup or tool CD: see host::NameOnDisc
};

std::string NameInCopy(const std::string& name, CopiedNames names);

// Copies `source` into `destination` with all folders, showing the file in hand on `LblMsg` and bytes on `Progress`.
// The engine is the running platform's. Whatever is left out is added to the context's notes. Cancel stays enabled
// afterwards, and the bar keeps its value.
CopyEnd CopyPathWithProgress(Context& context, std::string_view source, std::string_view destination,
                             forms::Label& LblMsg, forms::ProgressBar& Progress,
                             CopiedNames names = CopiedNames::kAsListed);

// The same tree without any display; false after a file-system failure, which is noted.
bool CopyFolderTree(Notes& notes, std::string_view source, std::string_view destination);

}  // namespace discwright::util
