// Copying a folder onto the CD's tree, shown on the progress page.
#pragma once

#include <string_view>

#include "steps/context.h"
#include "util/copy.h"

namespace discwright::steps {

// Shows a copy on the label and the bar of the running step. The bar becomes visible for the time of the copy and keeps
// its value afterwards; the Cancel button is enabled and stays so, whatever it was before.
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

// Copies a folder onto the CD's tree with the step's label and bar. False only for what ends the step: an ordinary
// failure of the copy does not, the copy has noted it.
bool CopyToTree(Context& context, std::string_view source, std::string_view destination,
                util::CopiedNames names = util::CopiedNames::kAsListed);

}  // namespace discwright::steps
