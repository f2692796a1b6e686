#include <QApplication>
#include <QMessageBox>
#include <QPalette>
#include <QTimer>
#include <QVBoxLayout>
#include <cstdio>

#include "analysis/ParseProject.h"
#include "analysis/ProjectChooser.h"
#include "controls/Theme.h"
#include "helpers/FakeServices.h"
#include "tables/CleanUpToolViewController.h"
#include "tables/DesktopFileBrowser.h"
#include "tables/DetailsHost.h"
#include "tables/DetailsViewController.h"

/// Shows one of the table panels for a project, to be looked at: PROGRAM details|cleanup PROJECT [--dark]
namespace quillmeter {
namespace {

class TimerCalls final : public DelayedCalls {
 public:
  void performAfterDelay(QObject* receiver, std::chrono::milliseconds delay,
                         std::function<void()> message) override {
    QTimer::singleShot(delay, receiver, std::move(message));
  }
};

class MessageBoxes final : public Alerts {
 public:
  std::optional<int> runModal(QWidget* parent, const QString& message, const QStringList& buttons) override {
    QMessageBox box(parent);
    box.setText(message);
    for (const QString& button : buttons)
      box.addButton(button, QMessageBox::AcceptRole);
    box.exec();
    return 0;
  }
};

class Host final : public DetailsHost {
 public:
  explicit Host(std::shared_ptr<const ParseProject> project) : project_(std::move(project)) {}
  [[nodiscard]] std::shared_ptr<const MeasuredProject> parserProject() const override { return project_; }
  void setExportGroups(const FileGroups& groups) override {
    for (const FileGroupEntry& entry : classicKinds().groups())
      std::fputs(groups.contains(entry.group) ? "[x] " : "[ ] ", stdout);
    std::puts("");
  }
  void tapExportTab() override { std::puts("Export tab"); }

 private:
  std::shared_ptr<const ParseProject> project_;
};

void useDarkPalette() {
  QPalette palette(QColor(0x26, 0x2D, 0x34));
  palette.setColor(QPalette::Base, QColor(0x26, 0x2D, 0x34));
  QApplication::setPalette(palette);
}

int run(const QStringList& arguments) {
  if (arguments.size() < 3) {
    std::fputs("usage: quillmeter_tables_harness details|cleanup PROJECT [--dark]\n", stderr);
    return 2;
  }
  QApplication::setStyle(QStringLiteral("Fusion"));
  if (arguments.contains(QStringLiteral("--dark"))) useDarkPalette();
  qApp->setStyleSheet(styleSheetFor(themeFor(QApplication::palette())));

  const auto project = std::make_shared<ParseProject>();
  project->parseFileAtPathAndDelegate(chosenProject(arguments[2].toStdString()), nullptr);
  Host host(project);
  const testing::FakeServices fakes;
  Services services = fakes.services();
  services.delayedCalls = std::make_shared<TimerCalls>();
  services.alerts = std::make_shared<MessageBoxes>();
  services.fileBrowser = std::make_shared<DesktopFileBrowser>(services.delayedCalls);

  QWidget window;
  QVBoxLayout layout(&window);
  layout.setContentsMargins(0, 0, 0, 0);
  std::unique_ptr<QWidget> panel;
  if (arguments[1] == QStringLiteral("details")) {
    panel = DetailsViewController::create(host, services);
  } else {
    panel = CleanUpToolViewController::create(host, services);
  }
  layout.addWidget(panel.get());
  window.resize(900, 620);
  window.show();
  return QApplication::exec();
}

}  // namespace
}  // namespace quillmeter

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  return quillmeter::run(QApplication::arguments());
}
