// The wizard on a fake host: its buttons bound, every location of the pages valid unless a test changes it.
#pragma once

#include <vector>

#include "tests/support/build_fixture.h"
#include "wizard/navigation.h"

namespace discwright::testing {

class WizardFixture : public BuildFixture {
 protected:
  WizardFixture() {
    host.AddFile("S:\\I386\\setupldr.bin", "loader");
    host.AddFile("S:\\WIN98\\mini.cab", "cabinet");
    host.AddFile("S:\\sp.exe", "service pack");
    host.AddFile("T:\\I386\\SYSTEM32\\CONFIG\\SOFTWARE", "hive");
    host.AddFile("T:\\I386\\SYSTEM32\\OOBCXXL.EXE", "tool");
    host.AddFolder("S:\\utils");
    host.AddFolder("S:\\files");
    main.visible = true;
    main.Txt_i386_Loc.text = "S:\\I386";
    main.TxtSP_exe.text = "S:\\sp.exe";
    main.TxtWin9x_Loc.text = "S:\\WIN98";
    main.TxtERDC.text = "T:";
    main.TxtBCon.text = "T:";
    main.TxtUtils_Loc.text = "S:\\utils";
    main.TxtAddFiles_Loc.text = "S:\\files";
  }

  forms::Subscription rules = wizard::Bind(context);

  void Choose(bool win2k, bool win9x, bool advtools) {
    main.ChkGet_Win2k.value = win2k ? 1 : 0;
    main.ChkGet_Win9x.value = win9x ? 1 : 0;
    main.ChkGet_Advtools.value = advtools ? 1 : 0;
  }

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
