// Tests of the command lines that start Windows programs on Windows.
#include "host/processes.h"

#include <gtest/gtest.h>

namespace discwright::host {
namespace {

TEST(WindowsProgramLine, Parts_AreJoinedWithoutQuotes) {
  EXPECT_EQ(WindowsProgramLine("C:\\My Tools\\tool.exe", "/integrate:", "D:\\My CD"),
            "C:\\My Tools\\tool.exe /integrate:D:\\My CD");
  EXPECT_EQ(WindowsProgramLine("tool", "", ""), "tool ");
}

}  // namespace
}  // namespace discwright::host
