// Tests of the label that says where an installed program works.
#include "wizard/place.h"

#include "tests/wizard/wizard_fixture.h"

namespace discwright::testing {
namespace {

class PlaceTest : public WizardFixture {};

TEST_F(PlaceTest, ProgramInItsOwnFolder_SaysNothing) {
  wizard::ShowPlace(main);
  EXPECT_FALSE(main.LblPlace.visible);
  EXPECT_EQ(main.LblPlace.caption.get(), "");
}

TEST_F(PlaceTest, InstalledProgram_NamesTheFolderOfTheUserAsTheSystemDoes) {
  host.shows_slashes = true;
  host.program_folder = "C:\\Home\\ann\\discwright";
  host.AddFile("C:\\Home\\ann\\discwright\\installed.list", "list");
  wizard::ShowPlace(main);
  EXPECT_TRUE(main.LblPlace.visible);
  EXPECT_EQ(main.LblPlace.caption.get(),
            "This program is installed for all users. Your CDs are put together in C:/Home/ann/discwright.");
}

}  // namespace
}  // namespace discwright::testing
