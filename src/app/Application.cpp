#include "app/Application.h"

#include <unistd.h>

#include <QApplication>
#include <QFileInfo>
#include <QSettings>
#include <QWindow>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "app/AppDelegate.h"
#include "app/CommandLine.h"
#include "app/MakeServices.h"
#include "app/OpenPanel.h"
#include "controls/ApplicationTheme.h"
#include "controls/NamedImage.h"
#include "support/Addresses.h"
#include "support/ExitStatus.h"
#include "support/Text.h"
#include "support/WriteAll.h"

namespace quillmeter {
namespace {

constexpr int kNoDisplay = 1;

/// X servers know windows by their class, which the toolkit takes from the application's name, once, for its
/// first window. To people and to assistive technology the application has a name that can be read.
void nameWindowsForTheDesktop() {
  QApplication::setApplicationName(QString::fromUtf8(kApplicationId));
  QApplication::setQuitOnLastWindowClosed(false);  // of this one's end nobody is to hear
  QWindow().create();
}

void setUpToolkit() {
  nameWindowsForTheDesktop();
  QApplication::setApplicationName(QStringLiteral("Quillmeter"));
  QApplication::setOrganizationName(QStringLiteral("Quillmeter"));
  QApplication::setApplicationVersion(QString::fromUtf8(kVersion));
  QApplication::setDesktopFileName(QString::fromUtf8(kApplicationId));
  QApplication::setWindowIcon(namedIcon(QStringLiteral("quillmeter")));
  // The toolkit's file dialogs remember folders in a file of their own; this program writes no file but its
  // defaults.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
  // Diagnostic lines go to standard error; a terminal that has gone must not take the windows with it.
  std::signal(SIGPIPE, SIG_IGN);
}

/// One call a line, so that lines of several threads do not mix. A file's name may hold line breaks and what
/// a terminal would take for commands.
void writeLogLine(std::string_view line) {
  std::string text = onOneLine(line);
  text += '\n';
  std::fwrite(text.data(), 1, text.size(), stderr);
}

/// Without a session bus the toolkit's way to assistive technology would start one of its own, which writes a
/// file into the home folder and outlives the program. Nobody could be listening on it.
void keepFromStartingSessionBus() {
  const QString userBus = qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus");
  if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") && !QFileInfo::exists(userBus))
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
}

/// Without a run-time folder no Wayland display can be reached; trying would only write a line of its library
/// to the terminal.
void leaveOutUnreachableWayland() {
  if (qgetenv("XDG_RUNTIME_DIR").startsWith('/') || qgetenv("WAYLAND_DISPLAY").startsWith('/')) return;
  qunsetenv("WAYLAND_DISPLAY");
  if (qgetenv("XDG_SESSION_TYPE") == "wayland") qunsetenv("XDG_SESSION_TYPE");
}

/// Without a display the toolkit ends the program with a page of advice and a core.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*message*/) {
  if (type != QtFatalMsg) return;
  std::fputs("quillmeter: no display can be opened; quillmeter-cli measures projects without one\n", stderr);
  std::_Exit(kNoDisplay);
}

/// The toolkit's application object with the arguments it takes. It keeps hold of what it is given.
class Toolkit {
 public:
  Toolkit(char* programName, std::vector<std::string> arguments) : arguments_(std::move(arguments)) {
    pointers_.push_back(programName);
    for (std::string& argument : arguments_)
      pointers_.push_back(argument.data());
    count_ = static_cast<int>(pointers_.size());
    pointers_.push_back(nullptr);
    const QtMessageHandler usual = qInstallMessageHandler(endWithoutDisplay);
    application_ = std::make_unique<QApplication>(count_, pointers_.data());
    qInstallMessageHandler(usual);
  }

 private:
  std::vector<std::string> arguments_;
  std::vector<char*> pointers_;
  int count_ = 0;
  std::unique_ptr<QApplication> application_;
};

std::span<const char* const> argumentsOf(int argc, char** argv) {
  return {argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)};
}

}  // namespace

int runApplication(int argc, char** argv) {
  // Help is given, and wrong usage told, without a display, too.
  const CommandLine commandLine = readCommandLine(argumentsOf(argc, argv));
  if (commandLine.output) {
    const auto error = writeAll(STDOUT_FILENO, *commandLine.output);
    if (!error) return 0;
    writeLogLine("quillmeter: cannot write standard output: " + *error);
    return kOutputFailed;
  }
  if (commandLine.error) {
    std::fprintf(stderr, "quillmeter: %s\nTry 'quillmeter --help'.\n", onOneLine(*commandLine.error).c_str());
    return kWrongUsage;
  }
  keepFromStartingSessionBus();
  leaveOutUnreachableWayland();
  const Toolkit toolkit(argv[0], commandLine.toolkitArguments);
  setUpToolkit();
  const ApplicationTheme theme;
  AppDelegate delegate(makeServices(), std::make_unique<QtOpenPanel>(), writeLogLine);
  QApplication::setQuitOnLastWindowClosed(delegate.applicationShouldTerminateAfterLastWindowClosed());
  if (commandLine.rules) delegate.startWithRules(*commandLine.rules);
  delegate.applicationDidFinishLaunching();
  if (commandLine.project) delegate.fileSelected(*commandLine.project);
  return QApplication::exec();
}

}  // namespace quillmeter
