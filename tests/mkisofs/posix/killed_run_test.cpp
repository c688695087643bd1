// Tests of the real program when a signal ends it while it writes.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "tests/mkisofs/mastering.h"

namespace discwright::testing {
namespace {

namespace fs = std::filesystem;

class KilledMkisofs : public Mastering {};

// Half an image must never stand under the image's name. SIGTERM also removes the unfinished file; SIGKILL cannot.
TEST_F(KilledMkisofs, WhileItWrites_LeavesNoImage) {
  const std::string iso = folder.Native("image.iso");
  const std::string part = folder.Native(".discwright-image.iso.part");
  folder.Write("tree/boot/loader.bin", "loader");
  folder.Write("tree/large", "");
  fs::resize_file(folder.Native("tree/large"), 0xFFFFFFFF);
  std::vector<std::string> words = ScriptWords();
  words.insert(words.begin(), MKISOFS_PROGRAM);
  words.insert(words.end(), {"-output", iso, folder.Native("tree")});
  for (const int signal : {SIGKILL, SIGTERM}) {
    const pid_t program = fork();
    if (program == 0) {
      std::vector<char*> arguments;
      for (std::string& word : words) arguments.push_back(word.data());
      arguments.push_back(nullptr);
      dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
      execv(MKISOFS_PROGRAM, arguments.data());
      _exit(127);
    }
    const auto is_under_way = [&] { return fs::exists(part) && fs::file_size(part) > 0; };
    while (!is_under_way() && waitpid(program, nullptr, WNOHANG) == 0)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    kill(program, signal);
    int status = 0;
    waitpid(program, &status, 0);
    EXPECT_TRUE(signal == SIGKILL ? WIFSIGNALED(status) : WIFEXITED(status) && WEXITSTATUS(status) == 1);
    EXPECT_FALSE(fs::exists(iso));
    EXPECT_EQ(fs::exists(part), signal == SIGKILL);
    fs::remove(part);
  }
}

}  // namespace
}  // namespace discwright::testing
