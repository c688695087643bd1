// Shows a copy on the label and the progress bar of the running step.
#include "steps/copy_to_tree.h"

#include <string>
#include <utility>

namespace discwright::steps {

void StepProgress::Show(std::string caption) {
  main_.LblSub_Step.caption = std::move(caption);
  main_.LblSub_Step.Refresh();
}

void StepProgress::Prepare() {
  Show("Preparing for Copy");
  was_visible_ = main_.BarSub_Step.visible;
  main_.BarSub_Step.visible = true;
  main_.CmdCancel.enabled = true;
}

void StepProgress::SetTotal(std::int64_t bytes) { main_.BarSub_Step.max = bytes; }
void StepProgress::ShowFile(std::string_view name) { Show("Copying : " + std::string(name)); }
void StepProgress::ShowBytes(std::int64_t bytes) { main_.BarSub_Step.value = bytes; }
std::int64_t StepProgress::ShownBytes() const { return main_.BarSub_Step.value; }
void StepProgress::End() { main_.BarSub_Step.visible = was_visible_; }

bool CopyToTree(Context& context, std::string_view source, std::string_view destination, util::CopiedNames names) {
  StepProgress progress(context.main());
  const util::CopyEnd end = util::CopyPathWithProgress(
      {context.user, context.notes, progress, [&context] { return !context.main().CancelCopy; }}, source, destination,
      names);
  return end != util::CopyEnd::kRuntimeFailure && end != util::CopyEnd::kCancelled;
}

}  // namespace discwright::steps
