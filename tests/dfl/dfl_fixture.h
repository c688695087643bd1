// The fixture for tests of dfl: write files into a temporary folder, call Run(), look at the links and the printed
// lines.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "host/hard_links.h"
#include "host/system.h"
#include "tests/host/temp_folder.h"
#include "tools/dfl/dfl.h"

namespace discwright::tools::dfl::testing {

// An output that calls `flushed` each time it is flushed, so that a test can change the disk in the middle of a run.
class WatchedOutput : public std::stringbuf {
 public:
  std::function<void(const std::string& text)> flushed;

 protected:
  int sync() override {
    if (flushed) flushed(str());
    return 0;
  }
};

// The system's sentence for a missing file.
inline std::string Missing() {
  std::string content;
  return host::ReadWholeFile(host::testing::TempFolder().Core("missing"), content).cause;
}

class DflTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (host::PlatformId() == 1) GTEST_SKIP() << "this family has no hard links";
  }

  void Write(std::string_view name, std::string_view content) const { folder_.Write(name, content); }
  void MakeLink(std::string_view existing, std::string_view fresh) const { folder_.MakeHardLink(existing, fresh); }
  bool AreLinked(std::string_view a, std::string_view b) const {
    return std::filesystem::equivalent(folder_.Path(a), folder_.Path(b));
  }
  // The path of a file in the folder, as messages show it.
  std::string Shown(std::string_view name) const { return host::PathToNative(folder_.Core(name)); }
  // Asks the host, because the C++ library of Windows always counts one link.
  std::uint64_t LinksOf(std::string_view name) const {
    const auto facts = host::FactsOf(folder_.Core(name));
    return facts ? facts->links : 0;
  }

  // Runs dfl on the folder and returns its exit code.
  int Run() {
    std::ostream output(&output_);
    std::ostringstream errors;
    output_.str("");
    const int code = RunDfl({folder_.native(), "link"}, output, errors, machine_);
    errors_ = errors.str();
    return code;
  }

  std::string LastLine() const {
    const std::string text = output_.str();
    return text.substr(text.rfind('\n', text.size() - 2) + 1);
  }

  // Calls `action` once, when `line`, which begins a step of the run, has been printed.
  void AtLine(std::string_view line, const std::function<void()>& action) {
    output_.flushed = [line = std::string(line), action, done = false](const std::string& text) mutable {
      if (done || text.find(line) == text.npos) return;
      done = true;
      action();
    };
  }

  host::testing::TempFolder folder_;
  Machine machine_{2, {}};
  WatchedOutput output_;
  std::string errors_;
};

}  // namespace discwright::tools::dfl::testing
