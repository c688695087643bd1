// Tests of reading texts from the registry.
#include "host/profile.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

namespace discwright::host {
namespace {

constexpr const char* kKey = "Software\\Discwright Test";

class Registry : public ::testing::Test {
 protected:
  Registry() { EXPECT_EQ(RegCreateKeyA(HKEY_LOCAL_MACHINE, kKey, &key_), ERROR_SUCCESS); }
  ~Registry() override {
    RegCloseKey(key_);
    RegDeleteKeyA(HKEY_LOCAL_MACHINE, kKey);
  }
  void Set(DWORD type, const std::string& bytes) const {
    RegSetValueExA(key_, "Name", 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                   static_cast<DWORD>(bytes.size()));
  }
  HKEY key_ = nullptr;
};

TEST_F(Registry, Text_IsGivenWithoutItsNul) {
  Set(REG_SZ, std::string("J\xFCrgen\0", 7));
  EXPECT_EQ(LocalMachineText(kKey, "name"), "Jürgen");
  Set(REG_SZ, std::string("\0", 1));
  EXPECT_EQ(LocalMachineText(kKey, "Name"), "");
}

TEST_F(Registry, Number_IsNoText) {
  Set(REG_DWORD, "abcd");
  EXPECT_EQ(LocalMachineText(kKey, "Name"), std::nullopt);
}

TEST_F(Registry, MissingValueOrKey_IsNothing) {
  EXPECT_EQ(LocalMachineText(kKey, "Other"), std::nullopt);
  EXPECT_EQ(LocalMachineText("Software\\No Such Key", "Name"), std::nullopt);
  EXPECT_EQ(LocalMachineText("Software\\\u65E5", "Name"), std::nullopt);
}

}  // namespace
}  // namespace discwright::host
