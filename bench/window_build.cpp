// Measures how long the window does not answer while a CD is built: makes a build through the window, while a timer
// ticks, and prints the longest time between two ticks and the time of the build, both in milliseconds.
//   bench_window_build PROGRAM_FOLDER TREE IMAGE
#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <iostream>

#include "desktop/qt/main_window.h"
#include "desktop/qt/qt_user.h"
#include "forms/user_actions.h"
#include "host/names.h"
#include "host/system.h"
#include "util/paths.h"
#include "wizard/choices.h"
#include "wizard/navigation.h"

namespace {

using namespace discwright;

// Ticks every 10 milliseconds as long as the window handles its events.
class Heartbeat {
 public:
  Heartbeat() {
    constexpr int kInterval = 10;  // milliseconds
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.callOnTimeout([this] { Tick(); });
    timer_.start(kInterval);
    since_tick_.start();
  }

  void Tick() { longest_ = std::max(longest_, since_tick_.restart()); }
  qint64 longest() const { return longest_; }  // milliseconds

 private:
  QTimer timer_;
  QElapsedTimer since_tick_;
  qint64 longest_ = 0;
};

int Build(const std::string& tree, const std::string& image) {
  forms::Windows windows;
  util::Notes notes;
  const auto programs = host::SystemProgramRunner();
  desktop::QtUser user([] {});
  steps::Context context{windows, user, *programs, notes};
  const forms::Subscription rules = wizard::Bind(context);
  const desktop::MainWindow window(windows);
  if (!wizard::Form_Load(context, "").ok()) return 1;
  windows.main.ChkVexaUtils.value = 1;
  windows.main.TxtUtils_Loc.text = tree;
  windows.main.TxtISOLoc.text = image;
  if (!wizard::WalkToTheSummary(context)) return 1;
  user.DoEvents(1);
  Heartbeat heartbeat;
  QElapsedTimer whole;
  whole.start();
  forms::Press(windows.main.CmdFinish);
  heartbeat.Tick();
  const bool made = context.result.end == steps::BuildEnd::kMade;
  std::cout << heartbeat.longest() << ' ' << whole.elapsed() << '\n';
  return made ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc != 4) return 2;
  host::UseProgramFolder(host::PathFromNative(argv[1]));
  return Build(argv[2], argv[3]);
}
