// Performs the steps of a run: reads the tree, plans the image and writes it.
#include "tools/mkisofs/master.h"

#include <algorithm>
#include <memory>
#include <optional>

#include "base/source_date.h"
#include "host/names.h"
#include "host/native_text.h"
#include "host/part_file.h"
#include "host/source_tree.h"
#include "tools/mkisofs/dates.h"
#include "tools/mkisofs/image_writer.h"
#include "tools/mkisofs/layout.h"
#include "tools/mkisofs/options.h"
#include "tools/mkisofs/problems.h"
#include "tools/mkisofs/progress.h"
#include "tools/mkisofs/sector.h"
#include "tools/mkisofs/tree_reader.h"

namespace discwright::tools::mkisofs {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;
// The build looks for the end of this line.
constexpr const char* kLeftOut = " is a temporary link that an interrupted dfl has left: it is not on the disc";

class Run {
 public:
  Run(const Options& options, const Surroundings& surroundings, std::ostream& messages)
      : options_(options), surroundings_(surroundings), messages_(messages) {}

  int Go() {
    for (Result (Run::*const step)() : {&Run::ChooseDates, &Run::ReadSource, &Run::PlanImage, &Run::Write}) {
      if (const Result result = (this->*step)(); !result.ok()) problems_.Add(result.failure);
      if (!problems_.empty()) return ReportProblems();
    }
    return 0;
  }

 private:
  int ReportProblems() const {
    for (const std::string& problem : problems_.kept()) messages_ << "mkisofs: " << problem << "\n";
    if (problems_.count() > problems_.kept().size()) {
      messages_ << "mkisofs: and " << problems_.count() - problems_.kept().size() << " more\n";
    }
    return kFailed;
  }

  Result ChooseDates() {
    dates_.created = surroundings_.now;
    if (surroundings_.source_date == nullptr) return Result::Success();
    const std::optional<std::int64_t> date = base::ParseSourceDate(surroundings_.source_date);
    if (!date) return Result::Failure(host::TextFromNative(base::WhyNoSourceDate(surroundings_.source_date)));
    dates_ = {*date, *date};
    return Result::Success();
  }

  // Failures of single files are collected in problems_, so that one run names all of them.
  Result ReadSource() {
    auto source = host::OpenSourceTree(host::PathFromNative(options_.tree));
    if (!source.ok()) return FailureAt(options_.tree, source.status.cause);
    source_ = std::move(source.value);
    tree_ = ReadTree(*source_, options_, problems_);
    for (const std::string& path : tree_.left_out) {
      messages_ << "mkisofs: " << options_.tree << "/" << path << kLeftOut << "\n";
    }
    return Result::Success();
  }

  Result PlanImage() {
    if (!options_.boot_image.empty()) {
      if (Result result = FindBootImage(); !result.ok()) return result;
    }
    if (options_.store_links_once) ShareData(tree_);
    const Result result = PlaceEverything(tree_, layout_);
    return result.ok() ? result : FailureAt(options_.tree, result.failure);
  }

  Result FindBootImage() {
    const std::string path = options_.tree + "/" + options_.boot_image;
    layout_.boot_image = tree_.Find(options_.boot_image);
    if (!layout_.boot_image) return FailureAt(path, "the boot image is not there");
    const Node& image = tree_.nodes[*layout_.boot_image];
    if (image.is_folder || image.is_catalogue) return FailureAt(path, "the boot image is not a file");
    if (image.size == 0) return FailureAt(path, "the boot image is empty");
    const bool has_catalogue =
        std::any_of(tree_.nodes.begin(), tree_.nodes.end(), [](const Node& node) { return node.is_catalogue; });
    if (has_catalogue) return Result::Success();
    return FailureAt(options_.tree + "/" + options_.boot_catalogue, "the folder of the boot catalogue is not there");
  }

  Result Write() {
    const std::uint64_t size = std::uint64_t{layout_.sectors} * kSectorSize;
    const auto file = host::CreatePartFile(host::PathFromNative(options_.output), size);
    if (!file.ok()) return FailureAt(options_.output, CauseOf(file.status));
    Progress progress(messages_, size);
    const ImagePlan plan{options_, tree_, layout_, dates_, surroundings_.stopped};
    if (Result result = WriteImage(plan, *source_, *file.value, progress); !result.ok()) return result;
    const host::Status status = file.value->Commit();
    if (!status.ok()) return FailureAt(options_.output, CauseOf(status));
    progress.ShowEnd(layout_.sectors);
    return Result::Success();
  }

  static Result FailureAt(const std::string& place, const std::string& cause) {
    return Result::Failure(place + ": " + cause);
  }

  const Options& options_;
  const Surroundings& surroundings_;
  std::ostream& messages_;
  Problems problems_;
  ImageDates dates_;
  std::unique_ptr<host::SourceTree> source_;
  Tree tree_;
  Layout layout_;
};

}  // namespace

int Master(std::span<const std::string> words, const Surroundings& surroundings, std::ostream& messages) {
  Options options;
  const Result parsed = ParseOptions(words, options);
  if (parsed.ok()) return Run(options, surroundings, messages).Go();
  messages << "mkisofs: " << parsed.failure << "\n" << UsageText();
  return kWrongUsage;
}

}  // namespace discwright::tools::mkisofs
