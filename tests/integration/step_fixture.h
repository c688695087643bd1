// The fixture for tests of the integration steps: a program folder on the fake host, and the captions that a step
// shows.
#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/build_fixture.h"

namespace discwright::testing {

class StepFixture : public BuildFixture {
 protected:
  StepFixture() {
    for (const char* sector : {"w2ksect.bin", "erdc.bin", "oobc.bin"}) {
      host.AddFile(std::string("C:\\Discwright\\files\\bootsect\\") + sector, "sector of I386");
    }
    host.AddFolder("C:\\Discwright\\vexacd\\boot\\images");
    Listen(main.LblSub_Step, [this](forms::Control&, forms::Facet facet, forms::By) {
      if (facet == forms::Facet::kRepaint) repainted.push_back(main.LblSub_Step.caption);
      const std::string& caption = main.LblSub_Step.caption;
      const bool is_the_copys = caption.starts_with("Copying : ") || caption == "Preparing for Copy";
      if (!is_the_copys && (captions.empty() || captions.back() != caption)) captions.push_back(caption);
    });
  }

  std::string OnCd(const std::string& path) const { return host.Content("C:\\Discwright\\vexacd\\" + path); }
  std::string Notes() const {
    std::string text;
    for (const util::Note& note : notes.all()) text += note.place + ": " + note.cause + "\n";
    return text;
  }
  void ExpectFatalError(const std::string& what) const {
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.messages[0].text, "A fatal Error occured while integrating the " + what + ", operation halted");
    EXPECT_EQ(user.messages[0].title, "Fatal Error");
    EXPECT_EQ(user.messages[0].icon, host::MessageIcon::kCritical);
    EXPECT_EQ(cancelled, 1);
  }
  void ExpectNoTrouble() const {
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(Notes(), "");
    EXPECT_EQ(cancelled, 0);
  }

  std::vector<std::string> captions;   // the step's own, without the copy's
  std::vector<std::string> repainted;  // those that were shown at once
};

}  // namespace discwright::testing
