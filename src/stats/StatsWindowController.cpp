#include "stats/StatsWindowController.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <chrono>

#include "analysis/MeasuredProject.h"
#include "charts/ChartsViewController.h"
#include "controls/AccessibleWidgets.h"
#include "controls/BackgroundStyle.h"
#include "controls/LabelSides.h"
#include "controls/NamedImage.h"
#include "controls/ReturnPresses.h"
#include "export/ExportViewController.h"
#include "overview/OverviewViewController.h"
#include "reminder/DesktopReminder.h"
#include "stats/CanvasReportChart.h"
#include "stats/StatsHost.h"
#include "stats/WindowPlacement.h"
#include "tables/CleanUpToolViewController.h"
#include "tables/DetailsViewController.h"
#include "ui_StatsWindowController.h"

namespace quillmeter {
namespace {

constexpr std::chrono::milliseconds kReminderDelay{4000};
constexpr int kYes = 0;

/// The pages scroll what does not fit into it.
constexpr QSize kSmallest(800, 560);

/// Room between a button's picture and its title, which the toolkit has no measure for.
constexpr int kPictureGap = 8;

/// A project's title is the name of a folder: bytes that need not be UTF-8.
QString titleOf(const MeasuredProject& project) {
  return QFile::decodeName(QByteArray::fromStdString(project.projectTitle()));
}

/// The toolkit puts its mark of unsaved changes in place of "[*]" in a window's title, unless it stands
/// twice.
QString windowTitleFor(const QString& window, const MeasuredProject& project) {
  return window + QStringLiteral(" – ") +
         titleOf(project).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

/// Over the statistics window while it shows, else over what has taken its place.
void remindOver(QWidget* window, const Services& services) {
  remindOfRatings(services, window != nullptr && window->isVisible() ? window : QApplication::activeWindow());
}

}  // namespace

std::unique_ptr<StatsWindowController> StatsWindowController::create(StatsHost& host,
                                                                     const Services& services) {
  std::unique_ptr<StatsWindowController> window(new StatsWindowController(host, services));
  window->windowDidLoad();
  return window;
}

StatsWindowController::StatsWindowController(StatsHost& host, const Services& services)
    : host_(host),
      services_(services),
      project_(host.parserProject()),
      ui_(std::make_unique<Ui::StatsWindowController>()) {
  ui_->setupUi(this);
  keepLabelsWhereReadingBegins(this);
  setWindowTitle(windowTitleFor(QStringLiteral("Quillmeter"), *project_));
  describeControls();
  connectControls();
  openInsideScreen();
}

StatsWindowController::~StatsWindowController() = default;

void StatsWindowController::windowDidLoad() {
  overviewController_ = OverviewViewController::create(host_);
  connect(overviewController_.get(), &OverviewViewController::currentRulesRequested, this,
          [this] { host_.measureBy(ProjectRules::current); });
  addToViewRight(overviewController_.get());
  detailsViewController_ = DetailsViewController::create(*this, services_);
  chartsViewController_ = ChartsViewController::create(*this, services_);
  exportViewController_ = ExportViewController::create(*this, services_);
  for (const QWidget* const part : std::initializer_list<const QWidget*>{
           this, detailsViewController_.get(), chartsViewController_.get(), exportViewController_.get()})
    letReturnPressButtons(*part);

  ui_->btnLeft1->setChecked(true);
  for (QPushButton* const button : {ui_->btnLeft2, ui_->btnLeft3, ui_->btnLeft4})
    button->setChecked(false);
  setPictures();

  const QString title = titleOf(*project_);
  ui_->lblProjectTitle->setText(QStringLiteral("Current project: ") + title);
  ui_->lblProjectTitle->setToolTip(QStringLiteral("<p>%1</p>").arg(title.toHtmlEscaped()));
  setRaisedBackgroundStyle(ui_->lblProjectTitle);
  showRules();
  showRatingsReminderWindow();
}

/// The classic rules are what everybody takes for granted: only others are told of.
void StatsWindowController::showRules() {
  const bool isCurrent = project_->rules() == ProjectRules::current;
  ui_->lblRules->setVisible(isCurrent);
  ui_->btnClassicRules->setVisible(isCurrent);
  if (!isCurrent) overviewController_->offerCurrentRules(host_.rulesOffer());
}

void StatsWindowController::setPictures() {
  const auto set = [](QPushButton* button, const QString& name) {
    button->setIcon(undimmedIcon(name, button->iconSize(), kPictureGap));
  };
  set(ui_->btnLeft1, QStringLiteral("tab_overview"));
  set(ui_->btnLeft2, QStringLiteral("tab_details"));
  set(ui_->btnLeft3, QStringLiteral("tab_charts"));
  set(ui_->btnLeft4, QStringLiteral("tab_export"));
  set(ui_->btnLeft5, QStringLiteral("tab_close"));
  set(ui_->btnTools, QStringLiteral("tab_tools"));
}

void StatsWindowController::openInsideScreen() {
  const QScreen* const pointers = QGuiApplication::screenAt(QCursor::pos());
  const QRect opened =
      openingGeometry(size(), (pointers != nullptr ? pointers : screen())->availableGeometry());
  setMinimumSize(kSmallest.boundedTo(opened.size()));
  setGeometry(opened);
}

void StatsWindowController::describeControls() {
  setAccessibleKind(this, AccessibleKind::window);
  setAccessibleKind(ui_->viewTabs, AccessibleKind::tabList);
  for (QPushButton* const tab : {ui_->btnLeft1, ui_->btnLeft2, ui_->btnLeft3, ui_->btnLeft4})
    setAccessibleKind(tab, AccessibleKind::tab);
  setAccessibleKind(ui_->btnTools, AccessibleKind::popupButton);
  setAccessibleKind(ui_->lblProjectTitle, AccessibleKind::label);
}

void StatsWindowController::connectControls() {
  connect(ui_->btnLeft1, &QPushButton::clicked, this, [this] { tapOverviewTab(); });
  connect(ui_->btnLeft2, &QPushButton::clicked, this, [this] { tapDetailsTab(); });
  connect(ui_->btnLeft3, &QPushButton::clicked, this, [this] { tapChartsTab(); });
  connect(ui_->btnLeft4, &QPushButton::clicked, this, [this] { tapExportTab(); });
  connect(ui_->btnLeft5, &QPushButton::clicked, this, [this] { tapCloseTab(); });

  connect(ui_->btnClassicRules, &QPushButton::clicked, this,
          [this] { host_.measureBy(ProjectRules::classic); });

  auto* const tools = new QMenu(ui_->btnTools);
  tools->addAction(tr("Clean up unused files…"), this, [this] { tapCleanUpTool(); });
  // Opened by hand above the button: a button that has a menu loses the padding of the style sheet.
  connect(ui_->btnTools, &QPushButton::clicked, tools, [this, tools] {
    tools->setActiveAction(tools->actions().constFirst());
    tools->popup(ui_->btnTools->mapToGlobal(QPoint(0, -tools->sizeHint().height())));
  });

  const auto shortcut = [this](const char* keys, void (StatsWindowController::*operation)()) {
    auto* const key = new QShortcut(QKeySequence(QLatin1String(keys)), this);
    connect(key, &QShortcut::activated, this, operation);
  };
  shortcut("Ctrl+1", &StatsWindowController::tapOverviewTab);
  shortcut("Ctrl+2", &StatsWindowController::tapDetailsTab);
  shortcut("Ctrl+3", &StatsWindowController::tapChartsTab);
  shortcut("Ctrl+4", &StatsWindowController::tapExportTab);
  shortcut("Ctrl+W", &StatsWindowController::tapCloseTab);
  shortcut("Ctrl+Q", &StatsWindowController::quit);
}

/// Sent to the application: a showing counts also when its window is closed before the message comes. The
/// message holds no delayed calls, which hold the message.
void StatsWindowController::showRatingsReminderWindow() {
  Services services = services_;
  services.delayedCalls = nullptr;
  services_.delayedCalls->performAfterDelay(
      QCoreApplication::instance(), kReminderDelay,
      [services, self = QPointer<QWidget>(this)] { remindOver(self, services); });
}

void StatsWindowController::showRatingsReminderWindowThread() {
  remindOver(this, services_);
}

void StatsWindowController::tapOverviewTab() {
  showTab(ui_->btnLeft1,
          {exportViewController_.get(), detailsViewController_.get(), chartsViewController_.get()},
          overviewController_.get());
}

void StatsWindowController::tapDetailsTab() {
  showTab(ui_->btnLeft2,
          {exportViewController_.get(), overviewController_.get(), chartsViewController_.get()},
          detailsViewController_.get());
}

void StatsWindowController::tapChartsTab() {
  showTab(ui_->btnLeft3,
          {exportViewController_.get(), detailsViewController_.get(), overviewController_.get()},
          chartsViewController_.get());
  chartsViewController_->startAnimation();
}

void StatsWindowController::tapExportTab() {
  showTab(ui_->btnLeft4,
          {detailsViewController_.get(), overviewController_.get(), chartsViewController_.get()},
          exportViewController_.get());
}

void StatsWindowController::showTab(QPushButton* button, std::initializer_list<QWidget*> others,
                                    QWidget* view) {
  const QWidget* const focused = focusWidget();
  // The keyboard follows from tab button to tab button, and is not lost with a tab that goes.
  bool focusFollows =
      focused != nullptr && !view->isAncestorOf(focused) && ui_->viewRight->isAncestorOf(focused);
  for (QPushButton* const tab : {ui_->btnLeft1, ui_->btnLeft2, ui_->btnLeft3, ui_->btnLeft4}) {
    tab->setChecked(tab == button);
    focusFollows = focusFollows || tab == focused;
  }
  if (focusFollows) button->setFocus(Qt::OtherFocusReason);
  for (QWidget* const other : others) {
    if (other->parentWidget() == ui_->viewRight) other->setParent(nullptr);
  }
  addToViewRight(view);
  detailsViewController_->forcePopupClose();
  chartsViewController_->forcePopupClose();
}

void StatsWindowController::addToViewRight(QWidget* view) {
  ui_->viewRight->layout()->addWidget(view);
  view->show();
}

void StatsWindowController::tapCloseTab() {
  if (!userConfirmsClosing()) return;
  const QPointer<StatsWindowController> self(this);
  host_.showBackMainWindow();
  if (self != nullptr) closeWithoutAsking();
}

void StatsWindowController::quit() {
  if (!userConfirmsClosing()) return;
  closeWithoutAsking();
  host_.quitApplication();
}

void StatsWindowController::closeWithoutAsking() {
  closesWithoutAsking_ = true;
  close();
  // `close` does nothing while the window manager's request to close waits for the user's answer.
  hide();
}

bool StatsWindowController::userConfirmsClosing() {
  const QPointer<StatsWindowController> self(this);
  const auto answer = services_.alerts->runModal(
      this,
      QStringLiteral("Are you sure you want to close the statistics window and return to the main screen?"),
      {QStringLiteral("Yes"), QStringLiteral("No")});
  return self != nullptr && !closesWithoutAsking_ && answer == kYes;
}

void StatsWindowController::closeEvent(QCloseEvent* event) {
  event->setAccepted(closesWithoutAsking_);
  if (closesWithoutAsking_) return;
  const QPointer<StatsWindowController> self(this);
  if (userConfirmsClosing()) {
    host_.showBackMainWindow();
    if (self != nullptr) closesWithoutAsking_ = true;
  }
  event->setAccepted(self == nullptr || closesWithoutAsking_);
}

void StatsWindowController::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (cleanUpTool_ != nullptr && !event->spontaneous()) cleanUpTool_->hide();
}

void StatsWindowController::tapCleanUpTool() {
  if (cleanUpTool_ == nullptr) {
    cleanUpTool_ = CleanUpToolViewController::create(host_, services_);
    cleanUpTool_->setParent(this, Qt::Dialog);
    setAccessibleKind(cleanUpTool_.get(), AccessibleKind::dialog);
    letReturnPressButtons(*cleanUpTool_);
    cleanUpTool_->setWindowTitle(windowTitleFor(QStringLiteral("Clean-up"), *project_));
    for (const char* const keys : {"Esc", "Ctrl+W"}) {
      auto* const key = new QShortcut(QKeySequence(QLatin1String(keys)), cleanUpTool_.get());
      connect(key, &QShortcut::activated, cleanUpTool_.get(), &QWidget::hide);
    }
  }
  cleanUpTool_->show();
  cleanUpTool_->raise();
  cleanUpTool_->activateWindow();
}

SourceTotals StatsWindowController::sourceTotals() const {
  return {overviewController_->totalNumberLines(), overviewController_->totalNumberLinesWithSpaces(),
          overviewController_->totalNumberLinesWithComments()};
}

OverviewTexts StatsWindowController::overviewTexts() const {
  return {overviewController_->lblSizeMetrics7()->text().toStdString(),
          overviewController_->lblSizeMetrics8()->text().toStdString(),
          overviewController_->lblSizeMetrics9()->text().toStdString()};
}

std::shared_ptr<const ReportChart> StatsWindowController::reportChart() const {
  return std::make_shared<CanvasReportChart>();
}

void StatsWindowController::setExportGroups(const FileGroups& groups) {
  exportViewController_->setGroups(groups);
}

QWidget* StatsWindowController::viewLeft() const {
  return ui_->viewLeft;
}

QWidget* StatsWindowController::viewRight() const {
  return ui_->viewRight;
}

}  // namespace quillmeter
