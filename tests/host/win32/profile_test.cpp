// Tests of profile files through the calls of Windows.
#include "host/profile.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>

#include "host/system.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

constexpr const char* kMark = "\xEF\xBB\xBF";

class Profile : public ::testing::Test {
 protected:
  std::optional<std::string> Read(std::string_view section, std::string_view key) const {
    return ReadProfileValue(folder_.Core("test.ini"), section, key).value;
  }
  void Write(std::string_view section, std::string_view key, std::string_view value) const {
    WriteProfileValue(folder_.Core("test.ini"), section, key, value);
  }
  std::string Content() const { return folder_.Read("test.ini"); }
  void SetContent(std::string_view content) const { folder_.Write("test.ini", content); }

  testing::TempFolder folder_;
};

TEST_F(Profile, Value_IsReadInAnyLetterCaseWithoutBlanksAndQuotes) {
  SetContent("[Win2K_Info]\r\nSP_exe  =   \"a b\"  \r\nnext=x=[y];z\r\n");
  EXPECT_EQ(Read("Win2k_Info", "sp_EXE"), "a b");
  EXPECT_EQ(Read("win2k_info", "Next"), "x=[y];z");
}

TEST_F(Profile, MissingKeySectionOrFile_IsNothingAndCreatesNothing) {
  EXPECT_EQ(Read("a", "k"), std::nullopt);
  EXPECT_EQ(Content(), "<missing>");
  SetContent("[a]\r\nk=\r\n");
  EXPECT_EQ(Read("a", "l"), std::nullopt);
  EXPECT_EQ(Read("b", "k"), std::nullopt);
  EXPECT_EQ(Read("a", "k"), "");
}

TEST_F(Profile, LongValue_IsReadWhole) {
  const std::string value(3000, 'x');
  SetContent("[a]\r\nk=" + value + "\r\n");
  EXPECT_EQ(Read("a", "k"), value);
}

TEST_F(Profile, FileThatIsNothingButAValue_IsReadWhole) {
  SetContent("[a]\nk=1");
  EXPECT_EQ(Read("a", "k"), "1");
}

TEST_F(Profile, Umlauts_AreInTheCodePageOnDisk) {
  Write("a", "k", "Jürgen");
  EXPECT_EQ(Content(), "[a]\r\nk=J\xFCrgen\r\n");
  EXPECT_EQ(Read("a", "k"), "Jürgen");
}

TEST_F(Profile, Writes_ReplaceKeysAndAppendKeysAndSections) {
  SetContent("; top\r\n[a]\r\nk=1\r\n[b]\r\nm=2\r\n");
  Write("A", "K", "new");
  Write("a", "l", "3");
  Write("c", "n", "4");
  EXPECT_EQ(Read("a", "k"), "new");
  EXPECT_EQ(Read("a", "l"), "3");
  EXPECT_EQ(Read("b", "m"), "2");
  EXPECT_EQ(Read("c", "n"), "4");
  EXPECT_TRUE(Content().starts_with("; top\r\n")) << Content();
}

TEST_F(Profile, LineEndsAndNulInAValue_BecomeBlanks) {
  Write("a", "k", std::string_view("1\r\n[b]\0x", 8));
  EXPECT_EQ(Read("a", "k"), "1  [b] x");
  EXPECT_EQ(Read("b", "x"), std::nullopt);
}

TEST_F(Profile, FileRewrittenByOthers_IsReadAnew) {
  SetContent("[a]\r\nk=1\r\n");
  EXPECT_EQ(Read("a", "k"), "1");
  SetContent("[a]\r\nk=2\r\n");
  EXPECT_EQ(Read("a", "k"), "2");
  Write("a", "k", "3");
  SetContent("[a]\r\nk=4\r\n");
  EXPECT_EQ(Read("a", "k"), "4");
}

TEST_F(Profile, FileInUtf8_IsReadWithAndWithoutItsMark) {
  SetContent("[a]\r\nk=\"Ω ü\"\r\n");
  EXPECT_EQ(Read("A", "K"), "Ω ü");
  SetContent(std::string(kMark) + "[a]\r\nk=日本\r\n");
  EXPECT_EQ(Read("a", "k"), "日本");
  EXPECT_EQ(Read("a", "l"), std::nullopt);
}

TEST_F(Profile, FileInUtf8_StaysThatWhenAKeyIsWritten) {
  SetContent(std::string(kMark) + "[a]\r\nk=Ω\r\n");
  Write("a", "l", "ü");
  EXPECT_EQ(Content(), std::string(kMark) + "[a]\r\nk=Ω\r\nl=ü\r\n");
  EXPECT_EQ(Read("a", "l"), "ü");
}

TEST_F(Profile, ValueThatTheCodePageLacks_MakesUtf8OfTheFile) {
  SetContent("[a]\r\nk=J\xFCrgen\r\n");
  Write("a", "l", "日本");
  EXPECT_EQ(Content(), std::string(kMark) + "[a]\r\nk=Jürgen\r\nl=日本\r\n");
  EXPECT_EQ(Read("a", "k"), "Jürgen");
  EXPECT_EQ(Read("a", "l"), "日本");
}

TEST_F(Profile, ValueWhoseBytesCouldBeUtf8_ComesBackAsItIs) {
  Write("a", "k", "Ã¤");
  EXPECT_EQ(Read("a", "k"), "Ã¤");
}

// A file in the folder of Windows, as long as it lives.
class FileOfWindows {
 public:
  FileOfWindows() {
    std::array<char, MAX_PATH> folder{};
    GetWindowsDirectoryA(folder.data(), static_cast<UINT>(folder.size()));
    file_ = std::filesystem::path(folder.data()) / "discwright_test.ini";
    std::filesystem::remove(file_);
  }
  ~FileOfWindows() { std::filesystem::remove(file_); }
  FileOfWindows(const FileOfWindows&) = delete;
  FileOfWindows& operator=(const FileOfWindows&) = delete;
  const std::filesystem::path& path() const { return file_; }

 private:
  std::filesystem::path file_;
};

TEST_F(Profile, BareFileName_IsInTheFolderOfWindowsAndNotInTheCurrentOne) {
  const FileOfWindows of_windows;
  const std::string name = of_windows.path().filename().string();
  folder_.Write(name, "[a]\r\nk=not this one\r\n");
  const std::string old_folder = CurrentFolder();
  std::filesystem::current_path(testing::PathOf(folder_.native()));
  EXPECT_EQ(ReadProfileValue(name, "a", "k").value, std::nullopt);
  EXPECT_TRUE(WriteProfileValue(name, "a", "k", "1").ok());
  EXPECT_EQ(ReadProfileValue(name, "a", "k").value, "1");
  std::filesystem::current_path(testing::PathOf(old_folder));
  EXPECT_TRUE(std::filesystem::exists(of_windows.path()));
  EXPECT_EQ(folder_.Read(name), "[a]\r\nk=not this one\r\n");
}

}  // namespace
}  // namespace discwright::host
