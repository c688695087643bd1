// Message boxes as lines, and waiting.
#include "desktop/console/console_user.h"

#include "host/console.h"

namespace discwright::desktop {

void ConsoleUser::ShowMessage(const host::Message& box) {
  terminal_.PrintLine(box.title + ": " + box.text);
  if (!box.place.empty()) terminal_.PrintLine("(" + box.place + ")");
}

void ConsoleUser::DoEvents(int wait_milliseconds) {
  if (wait_milliseconds > 0) host::WaitForWakeUp(wait_milliseconds);
  while (interrupts_seen_ < host::InterruptCount()) interrupted_(++interrupts_seen_);
}

void ConsoleUser::Wake() { host::SetWakeUp(); }

}  // namespace discwright::desktop
