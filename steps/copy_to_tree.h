// Copies a folder into the workspace, the folder tree that becomes the CD, and shows the copy on the progress page. A
// build step calls CopyToTree.
#pragma once

#include <string_view>

#include "steps/context.h"
#include "util/copy.h"

namespace discwright::steps {

// Shows a copy on the label and the progress bar of the running step. The bar is visible during the copy and keeps its
// value afterwards. The copy enables the Cancel button and leaves it enabled, even if it was disabled before. Kept as
// it has always been.
class StepProgress : public util::Progress {
 public:
  explicit StepProgress(forms::FrmDiscwright& main) : main_(main) {}

  void Prepare() override;
  void SetTotal(std::int64_t bytes) override;
  void ShowFile(std::string_view name) override;
  void ShowBytes(std::int64_t bytes) override;
  std::int64_t ShownBytes() const override;
  void End() override;

 private:
  void Show(std::string caption);

  forms::FrmDiscwright& main_;
  bool was_visible_ = false;
};

// Copies a folder and shows the copy on the step's label and bar. Returns false only when the step must end: after
// CopyEnd::kRuntimeFailure, and when the build was cancelled before the copy began. After any other failure the copy
// has noted the missing files, and the result is true.
bool CopyToTree(Context& context, std::string_view source, std::string_view destination,
                util::CopiedNames names = util::CopiedNames::kAsListed);

}  // namespace discwright::steps
