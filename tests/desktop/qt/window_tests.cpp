// Starts the tests of the window: makes the Qt application, on no display unless the environment names one.
#include <gmock/gmock.h>

#include <QApplication>
#include <cstdio>
#include <filesystem>
#include <string>

// The platform without a display warns about what it does not do, such as raising a window, and Qt about a session that
// nobody has logged into.
static void PrintWarning(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text) {
  const bool is_expected =
      text.startsWith("This plugin does not support") || text.startsWith("QStandardPaths: XDG_RUNTIME_DIR not set");
  if (!is_expected) std::fprintf(stderr, "%s\n", qPrintable(text));
}

// The platform has the screens of SCREENS: a large one, and a small one beside it.
int main(int argc, char** argv) {
  // Qt takes the bytes of this variable for Latin-1, so the folders with umlauts must not be in the path.
  const std::string screens = std::filesystem::relative(SCREENS).string();
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + screens).c_str());
  }
  qInstallMessageHandler(PrintWarning);
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  ::testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
