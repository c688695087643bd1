// Installs, packs and removes the built programs.
#include "tests/end_to_end/installation.h"

#include <gtest/gtest.h>

#include <utility>

namespace discwright::testing {

namespace {

std::string Script(const std::string& name) { return std::string(SCRIPTS) + "/" + name; }

}  // namespace

Installation::Installation(std::filesystem::path prefix, const std::string& component) : prefix_(std::move(prefix)) {
  std::vector<std::string> command = {CMAKE, "--install", BUILD_FOLDER, "--prefix", prefix_.string()};
  if (!component.empty()) command.insert(command.end(), {"--component", component});
  const Outcome outcome = RunProgram(command, {.environment = {{"DESTDIR", ""}}});
  EXPECT_EQ(outcome.exit_code, 0) << outcome.out << outcome.err;
}

Outcome Package(const std::filesystem::path& tarball, const Surroundings& surroundings) {
  return RunProgram({Script("package.sh"), BUILD_FOLDER, tarball.string()}, surroundings);
}

Outcome Uninstall(const std::filesystem::path& prefix) { return RunProgram({Script("uninstall.sh"), prefix.string()}); }

}  // namespace discwright::testing
