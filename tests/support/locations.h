// Locations that the pages of the wizard accept, on a fake host.
#pragma once

#include "forms/frm_discwright.h"
#include "tests/support/fake_host.h"

namespace discwright::testing {

// Makes the discs and folders to which FillLocations refers.
inline void AddLocations(FakeHost& host) {
  host.AddFile("S:\\I386\\setupldr.bin", "loader");
  host.AddFile("S:\\WIN98\\mini.cab", "cabinet");
  host.AddFile("S:\\sp.exe", "service pack");
  host.AddFile("T:\\I386\\SYSTEM32\\CONFIG\\SOFTWARE", "hive");
  host.AddFile("T:\\I386\\SYSTEM32\\OOBCXXL.EXE", "tool");
  host.AddFolder("S:\\utils");
  host.AddFolder("S:\\files");
}

inline void FillLocations(forms::FrmDiscwright& main) {
  main.Txt_i386_Loc.text = "S:\\I386";
  main.TxtSP_exe.text = "S:\\sp.exe";
  main.TxtWin9x_Loc.text = "S:\\WIN98";
  main.TxtERDC.text = "T:";
  main.TxtBCon.text = "T:";
  main.TxtUtils_Loc.text = "S:\\utils";
  main.TxtAddFiles_Loc.text = "S:\\files";
}

inline void ChooseContents(forms::FrmDiscwright& main, bool win2k, bool win9x, bool advtools) {
  main.ChkGet_Win2k.value = win2k ? 1 : 0;
  main.ChkGet_Win9x.value = win9x ? 1 : 0;
  main.ChkGet_Advtools.value = advtools ? 1 : 0;
}

}  // namespace discwright::testing
