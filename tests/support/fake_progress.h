// A fake progress of a copy, for tests: it records every call.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "util/progress.h"

namespace discwright::testing {

class FakeProgress : public util::Progress {
 public:
  void Prepare() override { events.emplace_back("prepare"); }
  void SetTotal(std::int64_t bytes) override {
    total = bytes;
    events.push_back("total " + std::to_string(bytes));
  }
  void ShowFile(std::string_view name) override {
    files.emplace_back(name);
    events.push_back("file " + files.back());
  }
  void ShowBytes(std::int64_t bytes) override {
    shown = bytes;
    values.push_back(bytes);
  }
  std::int64_t ShownBytes() const override { return shown; }
  void End() override { events.emplace_back("end"); }

  std::vector<std::string> events;  // all but the bytes
  std::vector<std::string> files;
  std::vector<std::int64_t> values;  // of ShowBytes
  std::int64_t total = -1;
  std::int64_t shown = 0;
};

}  // namespace discwright::testing
