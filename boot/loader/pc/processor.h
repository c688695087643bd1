// Finds out what the processor can do, for the script's word IfProcessor.
#pragma once

#include "boot/loader/script.h"

namespace discwright::loader {

[[nodiscard]] Processor ReadProcessor();

}  // namespace discwright::loader
