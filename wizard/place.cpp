// Says where CDs are put together.
#include "wizard/place.h"

#include "host/names.h"
#include "host/system.h"
#include "util/users_program_folder.h"

namespace discwright::wizard {

void ShowPlace(forms::FrmDiscwright& main) {
  if (!util::WorksInUsersFolder()) return;
  main.LblPlace.caption = "This program is installed for all users. Your CDs are put together in " +
                          host::PathToNative(host::ProgramFolder()) + ".";
  main.LblPlace.visible = true;
}

}  // namespace discwright::wizard
