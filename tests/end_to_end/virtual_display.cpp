// Starts Xvfb, and runs xdotool for each action.
#include "tests/end_to_end/virtual_display.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "tests/end_to_end/waiting.h"

namespace discwright::testing {

namespace {

// The server writes the number of its display as a line of its own, among others. Empty while there is no such line.
std::string NumberIn(const std::string& text) {
  std::istringstream lines(text.substr(0, text.rfind('\n') + 1));
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty() && line.find_first_not_of("0123456789") == std::string::npos) return line;
  }
  return "";
}

}  // namespace

// The server chooses a free number, and writes it to standard error when it is ready.
VirtualDisplay::VirtualDisplay()
    : server_(std::make_unique<RunningProgram>(
          std::vector<std::string>{"Xvfb", "-displayfd", "2", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"})) {
  std::string number;
  const bool ready = WaitUntil([&] {
    number = NumberIn(server_->ErrorText());
    return server_->HasEnded() || !number.empty();
  });
  EXPECT_TRUE(ready && !server_->HasEnded()) << "Xvfb does not start: " << server_->ErrorText();
  name_ = ":" + number;
}

Outcome VirtualDisplay::Tool(std::vector<std::string> arguments) const {
  arguments.insert(arguments.begin(), "xdotool");
  return RunProgram(arguments, {.environment = Environment()});
}

std::vector<std::string> VirtualDisplay::Windows(const std::string& title) const {
  std::istringstream lines(Tool({"search", "--onlyvisible", "--name", "^" + title + "$"}).out);
  std::vector<std::string> windows;
  for (std::string line; std::getline(lines, line);) windows.push_back(line);
  return windows;
}

std::string VirtualDisplay::WaitForWindow(const std::string& title, std::size_t count) const {
  std::vector<std::string> windows;
  const bool appeared = WaitUntil([&] {
    windows = Windows(title);
    return windows.size() == count;
  });
  return appeared ? *std::max_element(
                        windows.begin(), windows.end(),
                        [](const std::string& a, const std::string& b) { return std::stoul(a) < std::stoul(b); })
                  : "";
}

void VirtualDisplay::Press(const std::string& window, const std::vector<std::string>& keys) const {
  std::vector<std::string> arguments = {"windowfocus", "--sync", window, "key", "--clearmodifiers"};
  arguments.insert(arguments.end(), keys.begin(), keys.end());
  Tool(arguments);
}

}  // namespace discwright::testing
