// Reads the tree, plans the image and writes it.
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
#include "tools/mkisofs/failure_text.h"
#include "tools/mkisofs/image_writer.h"
#include "tools/mkisofs/layout.h"
#include "tools/mkisofs/options.h"
#include "tools/mkisofs/problems.h"
#include "tools/mkisofs/progress.h"
#include "tools/mkisofs/sector.h"
#include "tools/mkisofs/shared_data.h"
#include "tools/mkisofs/tree_reader.h"

namespace discwright::tools::mkisofs {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

class Run {
 public:
  Run(const Options& options, const Surroundings& surroundings, std::ostream& messages)
      : options_(options), surroundings_(surroundings), messages_(messages) {}

  int Go() {
    if (TakeDates() && ReadAll() && Plan() && Write()) return 0;
    for (const std::string& problem : problems_.kept()) messages_ << "mkisofs: " << problem << "\n";
    if (problems_.count() > problems_.kept().size())
      messages_ << "mkisofs: and " << problems_.count() - problems_.kept().size() << " more\n";
    return kFailed;
  }

 private:
  bool TakeDates() {
    dates_.created = surroundings_.now;
    if (surroundings_.source_date == nullptr) return true;
    const std::optional<std::int64_t> date = base::ParseSourceDate(surroundings_.source_date);
    if (!date) {
      problems_.Add(host::TextFromNative(base::WhyNoSourceDate(surroundings_.source_date)));
      return false;
    }
    dates_ = {*date, *date};
    return true;
  }

  bool ReadAll() {
    auto opened = host::OpenSourceTree(host::PathFromNative(options_.tree));
    if (!opened.ok()) return Refuse(options_.tree, opened.status.cause);
    source_ = std::move(opened.value);
    tree_ = ReadTree(*source_, options_, problems_);
    return problems_.empty();
  }

  bool Plan() {
    if (!options_.boot_image.empty() && !FindBootImage()) return false;
    if (options_.store_links_once) ShareData(tree_);
    const std::string problem = PlaceEverything(tree_, layout_);
    return problem.empty() || Refuse(options_.tree, problem);
  }

  bool FindBootImage() {
    const std::string path = options_.tree + "/" + options_.boot_image;
    layout_.boot_image = tree_.Find(options_.boot_image);
    if (!layout_.boot_image) return Refuse(path, "the boot image is not there");
    const Node& image = tree_.nodes[*layout_.boot_image];
    if (image.is_folder || image.is_catalogue) return Refuse(path, "the boot image is not a file");
    if (image.size == 0) return Refuse(path, "the boot image is empty");
    const bool has_catalogue =
        std::any_of(tree_.nodes.begin(), tree_.nodes.end(), [](const Node& node) { return node.is_catalogue; });
    return has_catalogue ||
           Refuse(options_.tree + "/" + options_.boot_catalogue, "the folder of the boot catalogue is not there");
  }

  bool Write() {
    const std::uint64_t size = std::uint64_t{layout_.sectors} * kSectorSize;
    const auto file = host::CreatePartFile(host::PathFromNative(options_.output), size);
    if (!file.ok()) return Refuse(options_.output, TextOf(file.status));
    Progress progress(messages_, size);
    const ImagePlan plan{options_, tree_, layout_, dates_, surroundings_.stopped};
    std::string problem = WriteImage(plan, *source_, *file.value, progress);
    if (!problem.empty()) {
      problems_.Add(std::move(problem));
      return false;
    }
    const host::Status status = file.value->Commit();
    if (!status.ok()) return Refuse(options_.output, TextOf(status));
    progress.ShowEnd(layout_.sectors);
    return true;
  }

  bool Refuse(std::string_view place, std::string_view cause) {
    problems_.Add(place, cause);
    return false;
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
  const std::string problem = ParseOptions(words, options);
  if (problem.empty()) return Run(options, surroundings, messages).Go();
  messages << "mkisofs: " << problem << "\n" << UsageText();
  return kWrongUsage;
}

}  // namespace discwright::tools::mkisofs
