// Shows the Charts tab of a project in a window of its own, to be looked at:
//   quillmeter_charts_harness PROJECT.xcodeproj [--chart 0..4] [--details BAR] [--panel] [--dark] [--frames
//   N]
// `--frames` stops the grow-in after N steps, so that a chart can be seen on its way.
#include <QApplication>
#include <QCommandLineParser>
#include <QFileDialog>
#include <QMessageBox>
#include <QPalette>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>
#include <utility>

#include "analysis/ParseProject.h"
#include "charts/ChartsHost.h"
#include "charts/ChartsViewController.h"
#include "controls/FadingPanel.h"
#include "controls/Theme.h"

namespace quillmeter {
namespace {

class HarnessHost final : public ChartsHost {
 public:
  explicit HarnessHost(std::shared_ptr<const MeasuredProject> project) : project_(std::move(project)) {}

  [[nodiscard]] std::shared_ptr<const MeasuredProject> parserProject() const override { return project_; }
  [[nodiscard]] SourceTotals sourceTotals() const override {
    SourceTotals totals;
    for (const auto& file : project_->files()) {
      if (!project_->isSourceFileType(*file)) continue;
      const auto lines = static_cast<std::uint64_t>(integerValue(file->noLinesTotal()));
      totals.totalNumberLines += lines;
      totals.totalNumberLinesWithSpaces +=
          lines - static_cast<std::uint64_t>(integerValue(file->noLinesWithoutSpaces()));
      totals.totalNumberLinesWithComments +=
          static_cast<std::uint64_t>(integerValue(file->noLinesComments()));
    }
    return totals;
  }

 private:
  std::shared_ptr<const MeasuredProject> project_;
};

class TimedCalls final : public DelayedCalls {
 public:
  explicit TimedCalls(int limit) : left_(limit) {}
  void performAfterDelay(QObject* receiver, std::chrono::milliseconds delay,
                         std::function<void()> message) override {
    if (left_ == 0) return;
    if (left_ > 0) --left_;
    QTimer::singleShot(delay, receiver, std::move(message));
  }

 private:
  int left_;
};

class MessageBoxes final : public Alerts {
 public:
  std::optional<int> runModal(QWidget* parent, const QString& message, const QStringList& buttons) override {
    QMessageBox box(parent);
    box.setText(message);
    for (const QString& button : buttons)
      box.addButton(button, QMessageBox::AcceptRole);
    return box.exec();
  }
};

class FileDialogs final : public SavePanel {
 public:
  void beginSheet(QWidget* window, const SavePanelRequest& request,
                  std::function<void(std::optional<std::string>)> completion) override {
    const QString path = QFileDialog::getSaveFileName(window, request.title, request.suggestedName);
    completion(path.isEmpty() ? std::nullopt : std::optional(path.toStdString()));
  }
};

QPalette darkPalette() {
  QPalette palette;
  palette.setColor(QPalette::Window, QColor(0x1B, 0x20, 0x25));
  palette.setColor(QPalette::WindowText, Qt::white);
  return palette;
}

struct Wishes {
  int chart = graphTypeOf(ChartKind::fileKindsPie);
  std::optional<std::size_t> details;
  bool panel = false;
};

void fulfil(ChartsViewController& charts, const Wishes& wishes) {
  charts.startAnimation();
  const QString button = QStringLiteral("btnFilter%1").arg(wishes.chart + 1);
  if (wishes.chart != graphTypeOf(ChartKind::fileKindsPie))
    charts.tapSelectedFilter(charts.findChild<QPushButton*>(button));
  QTimer::singleShot(1500, &charts, [&charts, wishes] {
    if (wishes.panel) charts.tapFilters();
    const auto& bars = charts.viewBarChart()->lensesDetailsPoints();
    if (!wishes.details || !bars || bars->empty()) return;
    const std::size_t bar = std::min(*wishes.details, bars->size() - 1);
    const ChartRect& icon = (*bars)[bar].lense;
    charts.showInfoPopoverForItemFromStartingPoint((*charts.viewBarChart()->arrayValues())[bar],
                                                   {icon.x, icon.y});
  });
}

int show(QApplication& application) {
  QCommandLineParser parser;
  parser.addPositionalArgument(QStringLiteral("project"), QStringLiteral("the bundle"));
  parser.addOptions({{QStringLiteral("chart"), QString(), QStringLiteral("kind"), QStringLiteral("1")},
                     {QStringLiteral("details"), QString(), QStringLiteral("bar")},
                     {QStringLiteral("frames"), QString(), QStringLiteral("count"), QStringLiteral("-1")},
                     {QStringLiteral("panel"), QString()},
                     {QStringLiteral("dark"), QString()}});
  parser.process(application);
  if (parser.isSet(QStringLiteral("dark"))) QApplication::setPalette(darkPalette());
  application.setStyleSheet(styleSheetFor(themeFor(QApplication::palette())));

  auto project = std::make_shared<ParseProject>();
  project->parseFileAtPathAndDelegate(parser.positionalArguments().value(0).toStdString(), nullptr);
  HarnessHost host(project);
  Services services;
  services.delayedCalls = std::make_shared<TimedCalls>(parser.value(QStringLiteral("frames")).toInt());
  services.alerts = std::make_shared<MessageBoxes>();
  services.savePanel = std::make_shared<FileDialogs>();

  QWidget window;
  auto* layout = new QVBoxLayout(&window);
  layout->setContentsMargins(0, 0, 0, 0);
  ChartsViewController* charts = ChartsViewController::create(host, services).release();
  layout->addWidget(charts);
  window.show();
  Wishes wishes;
  wishes.chart = std::clamp(parser.value(QStringLiteral("chart")).toInt(), 0, 4);
  wishes.panel = parser.isSet(QStringLiteral("panel"));
  if (parser.isSet(QStringLiteral("details"))) {
    wishes.details = parser.value(QStringLiteral("details")).toUInt();
  }
  fulfil(*charts, wishes);
  return QApplication::exec();
}

}  // namespace
}  // namespace quillmeter

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  return quillmeter::show(application);
}
