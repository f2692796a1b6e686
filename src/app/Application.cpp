#include "app/Application.h"

#include <unistd.h>

#include <QApplication>
#include <QFileInfo>
#include <QSettings>
#include <csignal>
#include <cstdio>
#include <memory>
#include <span>
#include <string>

#include "app/AppDelegate.h"
#include "app/CommandLine.h"
#include "app/MakeServices.h"
#include "app/OpenPanel.h"
#include "controls/NamedImage.h"
#include "support/Addresses.h"
#include "support/Text.h"
#include "support/WriteAll.h"

namespace quillmeter {
namespace {

constexpr int kWrongUsage = 2;
constexpr int kOutputFailed = 4;

void setUpToolkit() {
  QApplication::setApplicationName(QStringLiteral("Quillmeter"));
  QApplication::setOrganizationName(QStringLiteral("Quillmeter"));
  QApplication::setApplicationVersion(QString::fromUtf8(kVersion));
  QApplication::setDesktopFileName(QStringLiteral("quillmeter"));
  QApplication::setWindowIcon(namedIcon(QStringLiteral("quillmeter")));
  // The toolkit's file dialogs remember folders in a file of their own; this program writes no file but its
  // defaults.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
  // Diagnostic lines go to standard error; a terminal that has gone must not take the windows with it.
  std::signal(SIGPIPE, SIG_IGN);
}

/// One call a line, so that lines of several threads do not mix.
void writeLogLine(std::string_view line) {
  const std::string text = onOneLine(line) + '\n';
  std::fwrite(text.data(), 1, text.size(), stderr);
}

/// Without a session bus the toolkit's way to assistive technology would start one of its own, which writes a
/// file into the home folder and outlives the program. Nobody could be listening on it.
void keepFromStartingSessionBus() {
  const QString userBus = qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus");
  if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") && !QFileInfo::exists(userBus))
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
}

std::span<const char* const> argumentsOf(int argc, char** argv) {
  return {argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)};
}

}  // namespace

int runApplication(int argc, char** argv) {
  // Help is given without a display, too.
  if (const auto output = readCommandLine(argumentsOf(argc, argv)).output) {
    const auto error = writeAll(STDOUT_FILENO, *output);
    if (!error) return 0;
    writeLogLine("quillmeter: cannot write standard output: " + *error);
    return kOutputFailed;
  }
  keepFromStartingSessionBus();
  const QApplication application(argc, argv);  // takes the toolkit's own options out of the arguments
  const CommandLine commandLine = readCommandLine(argumentsOf(argc, argv));
  if (commandLine.error) {
    std::fprintf(stderr, "quillmeter: %s\nTry 'quillmeter --help'.\n", commandLine.error->c_str());
    return kWrongUsage;
  }
  setUpToolkit();
  AppDelegate delegate(makeServices(), std::make_unique<QtOpenPanel>(), writeLogLine);
  QApplication::setQuitOnLastWindowClosed(delegate.applicationShouldTerminateAfterLastWindowClosed());
  delegate.applicationDidFinishLaunching();
  if (commandLine.project) delegate.fileSelected(*commandLine.project);
  return QApplication::exec();
}

}  // namespace quillmeter
