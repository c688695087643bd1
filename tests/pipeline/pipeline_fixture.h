// The fixture for tests of the build steps: a program folder on the fake host, with a template tree and tools that
// work.
#pragma once

#include <string>

#include "pipeline/build_driver.h"
#include "tests/support/build_fixture.h"

namespace discwright::testing {

class PipelineFixture : public BuildFixture {
 protected:
  PipelineFixture() {
    pipeline::Bind(context);
    context.ShowHelp = [this](int step, bool force) {
      help.push_back(std::to_string(step) + (force ? " forced" : ""));
    };
    host.AddFile("C:\\Discwright\\files\\vexacd\\boot\\loader.bin", "loader");
    host.AddFile("C:\\Discwright\\files\\vexacd\\boot\\scripts\\main.cds", "script");
    host.AddFolder("C:\\out");
    main.TxtISOLoc.text = "C:\\out\\Rescue.iso";
    programs.run = [this](const std::string& command_line) { return Play(command_line); };
  }

  // What the real tools would leave behind.
  virtual FakeRun Play(const std::string& command_line) {
    FakeRun run;
    if (command_line.ends_with("makecd.bat")) {
      run.pieces = mastering_output;
      if (!mastering_fails && mastering_output.empty()) run.pieces = {"12 extents written (0 MB)\n"};
      if (!mastering_fails) run.at_end = [this] { host.AddFile("C:\\out\\Rescue.iso", "image"); };
      if (mastering_fails) run.end.exit_code = 2;
      return run;
    }
    run.at_end = [this, command_line] {
      for (const auto& [profile, image] : images) {
        if (command_line.find(" " + profile) == std::string::npos) continue;
        if (profile == "vexasoftware" && command_line.find("vexasoftware_emm") != std::string::npos) continue;
        if (failing_profile != profile) host.AddFile("C:\\Discwright\\" + image, "image of " + profile);
      }
    };
    if (command_line.find(" " + failing_profile) != std::string::npos && !failing_profile.empty()) {
      run.end.exit_code = 1;
      run.pieces = {"CreateDsk: " + failing_profile + ": no such profile\n"};
    }
    return run;
  }

  // Every note as "place: cause".
  std::vector<std::string> NoteLines() const {
    std::vector<std::string> lines;
    for (const util::Note& note : notes.all()) lines.push_back(note.place + ": " + note.cause);
    return lines;
  }

  std::string WorkspaceFile(const std::string& path) { return host.Content("C:\\Discwright\\vexacd\\" + path); }

  std::vector<std::string> mastering_output;
  bool mastering_fails = false;
  std::string failing_profile;
  std::vector<std::string> help;
  std::map<std::string, std::string> images = {{"vexasoftware", "vexastart.img"},
                                               {"vexasoftware_emm", "vexaemm.img"},
                                               {"winsetup", "vexawin.img"},
                                               {"linkwellplus288", "vexalinkwell.img"},
                                               {"netaccess", "vexanet.img"}};
};

}  // namespace discwright::testing
