// Asks whether a build still goes on, and ends one that cannot.
#include "steps/context.h"

namespace discwright::steps {

bool Context::GoOn() const {
  user.DoEvents(0);
  return !main().CancelCopy;
}

void Context::Halt(const host::Message& message) {
  user.ShowMessage(message);
  if (failure.empty()) failure = message.text;
  CancelApp();
}

}  // namespace discwright::steps
