// A launched program and the thread that reads its output.
#pragma once

#include <functional>
#include <memory>

#include "host/processes.h"
#include "host/win32/child.h"

namespace discwright::host {

// A launcher of the system's own runner. `started` is told of the child as soon as it runs.
std::unique_ptr<Launcher> MakeLauncher(std::function<void()> wake,
                                       std::function<void(const std::shared_ptr<Child>&)> started);

}  // namespace discwright::host
