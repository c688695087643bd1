// The wizard on a fake host: its buttons bound, every location of the pages valid unless a test changes it.
#pragma once

#include <vector>

#include "tests/support/build_fixture.h"
#include "tests/support/locations.h"
#include "wizard/navigation.h"

namespace discwright::testing {

class WizardFixture : public BuildFixture {
 protected:
  WizardFixture() {
    AddLocations(host);
    FillLocations(main);
    main.visible = true;
  }

  forms::Subscription rules = wizard::Bind(context);

  void Choose(bool win2k, bool win9x, bool advtools) { ChooseContents(main, win2k, win9x, advtools); }

  // Starts on a page as if it had been reached.
  void StartOn(int page) {
    for (forms::Frame& frame : main.FraMain) frame.visible = frame.index() == page;
    main.Step = static_cast<std::int16_t>(page);
    main.CmdBack.enabled = page > 0;
    main.CmdNext.visible = page < 8;
    main.CmdFinish.visible = page == 8 || page == 9;
  }

  int Next() {
    forms::Press(main.CmdNext);
    return main.Step;
  }

  int Back() {
    forms::Press(main.CmdBack);
    return main.Step;
  }

  std::vector<int> VisiblePages() {
    std::vector<int> pages;
    for (const forms::Frame& frame : main.FraMain) {
      if (frame.visible) pages.push_back(frame.index());
    }
    return pages;
  }
};

}  // namespace discwright::testing
