// Ends a build that cannot continue.
#include "steps/context.h"

namespace discwright::steps {

void Context::Halt(const host::Message& message) {
  user.ShowMessage(message);
  if (failure.empty()) failure = message.text;
  CancelApp();
}

}  // namespace discwright::steps
