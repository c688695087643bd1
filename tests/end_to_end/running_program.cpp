// Starts programs and reads the system's list of processes.
#include "tests/end_to_end/running_program.h"

#include <gtest/gtest.h>
#include <linux/capability.h>
#include <poll.h>
#include <pty.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "tests/end_to_end/waiting.h"

namespace discwright::testing {

namespace {

namespace fs = std::filesystem;

// Makes a file in memory without a name, because a test may fill up the disk.
int MemoryFile(const std::string& content = "") {
  const int file = memfd_create("end_to_end", MFD_CLOEXEC);
  if (write(file, content.data(), content.size()) != static_cast<ssize_t>(content.size())) std::abort();
  lseek(file, 0, SEEK_SET);
  return file;
}

std::string Content(int file) {
  std::string content(static_cast<std::size_t>(lseek(file, 0, SEEK_END)), '\0');
  const ssize_t got = pread(file, content.data(), content.size(), 0);
  content.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
  return content;
}

// Runs in the new process. Does not return.
[[noreturn]] void Become(const std::vector<std::string>& command, const Surroundings& surroundings) {
  std::vector<char*> arguments;
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  if (surroundings.obeys_permissions) {
    for (const int right : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH}) prctl(PR_CAPBSET_DROP, right);
  }
  if (chdir(surroundings.working_folder.c_str()) != 0) _exit(126);
  for (const auto& [name, value] : surroundings.environment) setenv(name.c_str(), value.c_str(), 1);
  execvp(arguments[0], arguments.data());
  _exit(127);
}

std::string ReadLink(const fs::path& link) {
  std::error_code error;
  return fs::read_symlink(link, error).string();
}

std::string CommandLine(const fs::path& process) {
  std::ifstream file(process / "cmdline", std::ios::binary);
  // Uses read(), because a stream iterator would throw when the process ends meanwhile.
  std::string words(65536, '\0');
  file.read(words.data(), static_cast<std::streamsize>(words.size()));
  words.resize(static_cast<std::size_t>(file.gcount()));
  std::replace(words.begin(), words.end(), '\0', ' ');
  return words;
}

}  // namespace

RunningProgram::RunningProgram(const std::vector<std::string>& command, const Surroundings& surroundings) {
  if (surroundings.on_terminal) {
    StartOnTerminal(command, surroundings);
  } else {
    StartOnFiles(command, surroundings);
  }
}

RunningProgram::~RunningProgram() {
  SendToGroup(SIGKILL);
  if (!ended_) waitpid(id_, nullptr, 0);
  for (const int file : {out_, err_, terminal_}) {
    if (file >= 0) close(file);
  }
}

void RunningProgram::StartOnFiles(const std::vector<std::string>& command, const Surroundings& surroundings) {
  out_ = MemoryFile();
  err_ = MemoryFile();
  const int in = MemoryFile(surroundings.standard_input);
  id_ = fork();
  if (id_ == 0) {
    setpgid(0, 0);
    dup2(in, STDIN_FILENO);
    dup2(out_, STDOUT_FILENO);
    dup2(err_, STDERR_FILENO);
    Become(command, surroundings);
  }
  setpgid(id_, id_);  // also set here, so that a signal to the group cannot come before the child has set it
  close(in);
}

void RunningProgram::StartOnTerminal(const std::vector<std::string>& command, const Surroundings& surroundings) {
  const winsize size{24, 80, 0, 0};
  id_ = forkpty(&terminal_, nullptr, nullptr, &size);
  if (id_ == 0) Become(command, surroundings);
}

void RunningProgram::Send(int signal) const { kill(id_, signal); }

void RunningProgram::SendToGroup(int signal) const { kill(-id_, signal); }

// Reads all output. The last of it may arrive after the program has ended; reading then ends with an error, not with 0.
void RunningProgram::ReadTerminal() {
  std::array<char, 4096> piece{};
  pollfd readable{terminal_, POLLIN, 0};
  while (poll(&readable, 1, ended_ ? 1000 : 0) > 0) {
    const ssize_t got = read(terminal_, piece.data(), piece.size());
    if (got <= 0) return;
    terminal_text_.append(piece.data(), static_cast<std::size_t>(got));
  }
}

std::string RunningProgram::ErrorText() {
  if (terminal_ < 0) return Content(err_);
  ReadTerminal();
  return terminal_text_;
}

bool RunningProgram::HasEnded() {
  if (terminal_ >= 0) ReadTerminal();  // the program would stop when the terminal's buffer is full
  if (!ended_) ended_ = waitpid(id_, &wait_status_, WNOHANG) == id_;
  return ended_;
}

Outcome RunningProgram::Wait() {
  if (!WaitUntil([this] { return HasEnded(); })) {
    ADD_FAILURE() << "the program does not end; its standard error so far:\n" << ErrorText();
    SendToGroup(SIGKILL);
    waitpid(id_, &wait_status_, 0);
    ended_ = true;
  }
  Outcome outcome;
  if (WIFEXITED(wait_status_)) outcome.exit_code = WEXITSTATUS(wait_status_);
  if (WIFSIGNALED(wait_status_)) outcome.killed_by = WTERMSIG(wait_status_);
  if (out_ >= 0) outcome.out = Content(out_);
  outcome.err = ErrorText();
  return outcome;
}

Outcome RunProgram(const std::vector<std::string>& command, const Surroundings& surroundings) {
  return RunningProgram(command, surroundings).Wait();
}

std::vector<std::string> ProcessesIn(const fs::path& folder) {
  std::vector<std::string> found;
  const fs::directory_options options = fs::directory_options::skip_permission_denied;
  for (const fs::directory_entry& process : fs::directory_iterator("/proc", options)) {
    const std::string number = process.path().filename().string();
    if (!std::all_of(number.begin(), number.end(), [](char digit) { return digit >= '0' && digit <= '9'; })) continue;
    const std::string command = CommandLine(process.path());
    const std::string facts = number + ": " + command + "in " + ReadLink(process.path() / "cwd") + ", program " +
                              ReadLink(process.path() / "exe");
    // A process without a command line is a zombie: it has ended.
    if (!command.empty() && facts.find(folder.string()) != std::string::npos) found.push_back(facts);
  }
  return found;
}

bool AllProcessesEnd(const fs::path& folder) {
  return WaitUntil([&] { return ProcessesIn(folder).empty(); });
}

}  // namespace discwright::testing
