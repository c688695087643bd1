// Prints message boxes as lines, and waits for programs and for Ctrl-C.
#include "desktop/console/console_user.h"

#include "host/console.h"

namespace discwright::desktop {

bool ConsoleUser::ShowMessage(const host::Message& box) {
  if (box.question) return true;
  terminal_.PrintLine(box.title + ": " + box.text);
  if (!box.detail.empty()) terminal_.PrintLine(box.control.empty() ? box.detail : box.control + ": " + box.detail);
  return true;
}

void ConsoleUser::DoEvents(int wait_milliseconds) {
  terminal_.Update(wait_milliseconds > 0 ? Terminal::Pace::kAtOnce : Terminal::Pace::kLimited);
  if (wait_milliseconds > 0) host::WaitForWakeUp(wait_milliseconds);
  if (interrupt_seen_ || host::InterruptCount() == 0) return;
  interrupt_seen_ = true;
  interrupted_();
}

void ConsoleUser::Wake() { host::SetWakeUp(); }

}  // namespace discwright::desktop
