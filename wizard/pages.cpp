// Answers questions about pages. A table has the check boxes that decide which pages are skipped.
#include "wizard/pages.h"

#include <algorithm>
#include <array>

namespace discwright::wizard {

namespace {

using forms::FrmDiscwright;

constexpr std::array<forms::CheckBox FrmDiscwright::*, forms::kPageCount> kContents = {
    nullptr,                          // welcome
    nullptr,                          // contents
    &FrmDiscwright::ChkGet_Win2k,     // Windows 2000/XP (1)
    &FrmDiscwright::ChkGet_Win2k,     // Windows 2000/XP (2)
    &FrmDiscwright::ChkGet_Win9x,     // Windows 98/Me
    &FrmDiscwright::ChkGet_Advtools,  // advanced tools
};

}  // namespace

forms::CheckBox* ContentOf(FrmDiscwright& main, int page) {
  const auto content = kContents.at(static_cast<std::size_t>(page));
  return content == nullptr ? nullptr : &(main.*content);
}

bool IsOnTheWay(FrmDiscwright& main, int page) {
  const forms::CheckBox* content = ContentOf(main, page);
  return content == nullptr || content->checked();
}

int PageInView(const FrmDiscwright& main) {
  for (std::size_t page = 0; page < main.FraMain.size(); ++page) {
    if (main.FraMain[page].visible) return static_cast<int>(page);
  }
  return main.Step;
}

int PageOf(FrmDiscwright& main, const forms::Control& control) {
  for (const forms::Control* at = &control; at != nullptr; at = at->container()) {
    const auto page =
        std::find_if(main.FraMain.begin(), main.FraMain.end(), [&](const forms::Frame& frame) { return &frame == at; });
    if (page != main.FraMain.end()) return page->index();
  }
  return -1;
}

bool BuildRuns(const FrmDiscwright& main) { return main.Step == static_cast<int>(forms::kProgressPage); }

}  // namespace discwright::wizard
