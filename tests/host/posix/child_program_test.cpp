// The child programs of tests/host/child_program.h: each is a part of one shell script.
#include "tests/host/child_program.h"

#include <sys/wait.h>

#include <filesystem>
#include <fstream>

namespace discwright::host::testing {
namespace {

// A wait also ends when the test and its folder are gone.
constexpr std::string_view kScript = R"(#!/bin/sh
wait_for() {
  until [ -e "$1" ] || [ ! -d "${1%/*}" ]; do sleep 0.02; done
}
case $1 in
  lines) i=1; while [ $i -le $2 ]; do echo line $i; i=$((i+1)); done ;;
  mass) head -c $2 /dev/zero | tr '\0' x ;;
  say) printf %s "$2" ;;
  input) echo $(wc -c) bytes ;;
  wait) wait_for "$2"; exit 7 ;;
  ask) printf question; wait_for "$2"; exit 7 ;;
  close) exec > /dev/null 2>&1; wait_for "$2"; exit 7 ;;
  start) "$0" wait "$2" & echo $!; wait ;;
  leave) "$0" wait "$2" & echo $! ;;
  noise) (sleep 0.05; i=0; while [ $i -lt 20000 ]; do echo noise noise noise; i=$((i+1)); done; printf x > "$2") & ;;
  late) sleep 0.1; printf x > "$2" ;;
  exit) exit $2 ;;
  crash) kill -KILL $$ ;;
esac
)";

// Made once, so that no child that is started meanwhile has it open for writing.
class Program {
 public:
  Program() {
    folder_.Write("program", kScript);
    folder_.SetMode("program", 0755);
  }
  std::string Line(const std::string& what) const { return "\"" + folder_.Native("program") + "\" " + what; }

 private:
  TempFolder folder_;
};

}  // namespace

const std::string_view kCrash = "SIGKILL";
const std::string_view kEndedByUs = "SIGTERM";

std::string ChildProgram(const std::string& what) {
  static const Program program;
  return program.Line(what);
}

std::string BatchFileBytes(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\n";
  return bytes;
}

std::vector<std::string> AwkwardNames() { return {"with blank", "quo'te", "$HOME", "`id`", "line\nend", "Ümläut"}; }

void AddRubbishProgram(const TempFolder& folder, std::string_view name) {
  folder.Write(name, "\x01\x02\x03\x04");
  folder.SetMode(name, 0755);
}

// A program that has ended may stay listed for a while, until the process that inherited it has asked for its end.
bool IsAlive(int id) {
  std::ifstream facts("/proc/" + std::to_string(id) + "/stat");
  std::string number;
  std::string name;
  std::string state;
  return static_cast<bool>(facts >> number >> name >> state) && state != "Z" && state != "X";
}

int ThreadsOfThisProgram() {
  int count = 0;
  for ([[maybe_unused]] const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) ++count;
  return count;
}

bool HasChildren() {
  siginfo_t info{};
  return waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == 0;
}

}  // namespace discwright::host::testing
