// Ending a build that cannot go on.
#include "steps/context.h"

namespace discwright::steps {

void Context::Halt(const host::Message& box) {
  user.ShowMessage(box);
  if (failure.empty()) failure = box.text;
  CancelApp();
}

}  // namespace discwright::steps
