// The fixture for tests of build steps and pages: a complete core on a fake host.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "forms/user_actions.h"
#include "steps/context.h"
#include "tests/support/fake_host.h"
#include "tests/support/fake_programs.h"
#include "tests/support/fake_user.h"

namespace discwright::testing {

class BuildFixture : public ::testing::Test {
 protected:
  FakeHost host;
  FakeUser user;
  FakePrograms programs;
  forms::Windows windows;
  util::Notes notes;
  int cancelled = 0;
  steps::Context context{windows, user, programs, notes, [this] { Cancel(); }, [](int, bool) {}};
  forms::FrmDiscwright& main = windows.main;
  std::vector<forms::Subscription> listening;

  void Listen(forms::Control& control, forms::Listener listener) {
    listening.push_back(control.Listen(std::move(listener)));
  }
  void ListenToAll(forms::Form& form, forms::Listener listener) {
    listening.push_back(form.Listen(std::move(listener)));
  }

  void Cancel() {
    ++cancelled;
    main.CancelCopy = true;
    main.Finished = true;
  }
};

}  // namespace discwright::testing
