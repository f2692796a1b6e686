#include "app/AppDelegate.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QUrl>
#include <chrono>
#include <exception>
#include <filesystem>
#include <stop_token>
#include <utility>

#include "analysis/ProjectChooser.h"
#include "analysis/ProjectReader.h"
#include "app/CustomShapeWindow.h"
#include "app/OpenPanel.h"
#include "app/ProjectRead.h"
#include "app/WindowButton.h"
#include "controls/AccessibleWidgets.h"
#include "controls/NamedImage.h"
#include "controls/ReturnPresses.h"
#include "files/StoppableFileSystem.h"
#include "overview/RulesOffer.h"
#include "stats/StatsWindowController.h"
#include "support/Addresses.h"
#include "support/Text.h"
#include "ui_AppDelegate.h"
#include "xcode/ProjectReaders.h"

namespace quillmeter {
namespace {

constexpr std::chrono::milliseconds kOpenDelay{500};
constexpr int kWindowButtonsBottom = 330;  // above the lower edge of the main screen
constexpr int kProgressHeight = 50;

/// Looked up on the reader's thread, so that the windows have it at once. A project that was read is shown
/// also when this fails.
LeftOut leftOutBy(const ProjectReader& project, const std::stop_token& stop) {
  if (project.rules() != ProjectRules::classic || stop.stop_requested()) return {};
  try {
    return leftOutByClassic(project, StoppableFileSystem(FileSystem::real(), stop));
  } catch (const std::exception&) {
    return {};
  }
}

}  // namespace

AppDelegate::AppDelegate(Services services, std::unique_ptr<OpenPanel> openPanel, LogSink log)
    : services_(std::move(services)),
      openPanel_(std::move(openPanel)),
      log_(std::move(log)),
      ui_(std::make_unique<Ui::AppDelegate>()),
      rulesChoice_(services_.userDefaults) {
  auto* viewMain = new QWidget;
  ui_->setupUi(viewMain);
  window_ = std::make_unique<CustomShapeWindow>(QRect(QPoint(), viewMain->size()));
  window_->setContentView(viewMain);
  window_->setWindowTitle(QStringLiteral("Quillmeter"));
  setAccessibleKind(window_.get(), AccessibleKind::window);
  setAccessibleKind(ui_->viewDrag, AccessibleKind::group);
  ui_->viewDrag->setDelegate(this);
  ui_->viewDrag->awakeFromNib();
  connectControls();
  hideRulesOffer();
  setReading(false);
}

AppDelegate::~AppDelegate() {
  // Readers first: whatever they have still posted must not find a half-destroyed application.
  // All are stopped before the first is waited for.
  const auto reads = findChildren<ProjectRead*>(Qt::FindDirectChildrenOnly);
  for (ProjectRead* read : reads)
    read->stop();
  qDeleteAll(reads);
  ui_->viewDrag->setDelegate(nullptr);
}

void AppDelegate::connectControls() {
  connect(ui_->btnOpenProject, &QPushButton::clicked, this, &AppDelegate::tapOpenFile);
  connect(ui_->btnRateOnStore, &QPushButton::clicked, this, &AppDelegate::tapRateOnStore);
  connect(ui_->tapViewOnline, &QPushButton::clicked, this, &AppDelegate::tapViewOnline);
  connect(ui_->btnRulesOffer, &QPushButton::clicked, this, [this] {
    measureBy(rules_ == ProjectRules::classic ? ProjectRules::current : ProjectRules::classic);
  });
  const auto addShortcut = [this](const QKeySequence& keys, auto action) {
    auto* shortcut = new QShortcut(keys, window_.get());
    connect(shortcut, &QShortcut::activated, this, action);
  };
  letReturnPressButtons(*window_);
  addShortcut(QKeySequence(Qt::CTRL | Qt::Key_O), &AppDelegate::tapOpenFile);
  addShortcut(QKeySequence(Qt::CTRL | Qt::Key_W), [this] { window_->close(); });
  addShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { window_->close(); });
}

void AppDelegate::applicationDidFinishLaunching() {
  window_->installEventFilter(this);
  window_->setFixedSize(window_->frameGeometry().size());
  window_->setAcceptDrops(true);
  ui_->btnOpenProject->setButtonType(NSButtonWithHover::ButtonType::momentaryChange);
  makeWindowButtons();
  showImages(QStringLiteral("window_middle_part"), QStringLiteral("drag_normal"));
  ui_->indicatorProgress->resize(ui_->indicatorProgress->width(), kProgressHeight);

  window_->setOutline([size = ui_->imgMiddle->size()] {
    return outlineOfPicture(namedImage(QStringLiteral("window_middle_part"), size).toImage());
  });
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    QRect frame(QPoint(), window_->size());
    frame.moveCenter(screen->availableGeometry().center());
    window_->move(frame.topLeft());
  }
  window_->show();
}

void AppDelegate::makeWindowButtons() {
  const auto make = [this](WindowButton::Kind kind, int x, const QString& name,
                           const QString& accessibleName) {
    QWidget* viewMain = window_->contentView();
    auto* button = new WindowButton(kind, viewMain);
    // Below the upper edge by as much as keeps it above the lower one: the view never changes its size.
    button->move(x, viewMain->height() - kWindowButtonsBottom - button->height());
    button->setObjectName(name);
    button->setAccessibleName(accessibleName);
    button->setToolTip(accessibleName);
    button->show();
    return button;
  };
  closeButton_ = make(WindowButton::Kind::close, 20, QStringLiteral("closeButton"), QStringLiteral("Close"));
  minimizeButton_ =
      make(WindowButton::Kind::minimize, 40, QStringLiteral("minimizeButton"), QStringLiteral("Minimise"));
  maximizeButton_ =
      make(WindowButton::Kind::zoom, 60, QStringLiteral("maximizeButton"), QStringLiteral("Zoom"));
  maximizeButton_->setEnabled(false);
  connect(closeButton_, &QAbstractButton::clicked, window_.get(), &QWidget::close);
  connect(minimizeButton_, &QAbstractButton::clicked, window_.get(), &QWidget::showMinimized);
}

bool AppDelegate::eventFilter(QObject* watched, QEvent* event) {
  if (watched == window_.get() && event->type() == QEvent::WindowActivate) mainWindowChanged();
  return QObject::eventFilter(watched, event);
}

void AppDelegate::mainWindowChanged() {
  for (WindowButton* button : {closeButton_, minimizeButton_, maximizeButton_})
    button->update();
}

void AppDelegate::tapOpenFile() {
  QWidget* const over = controllerWindow_ ? static_cast<QWidget*>(controllerWindow_.get()) : window_.get();
  const std::optional<std::string> folder = openPanel_->runModal(over, lastFolder_);
  if (folder) chooseProjectIn(std::string(trimmed(*folder)));
}

void AppDelegate::tapRateOnStore() {
  services_.urlOpener->open(QUrl(QString::fromUtf8(kReviewUrl)));
}

void AppDelegate::tapViewOnline() {
  services_.urlOpener->open(QUrl(QString::fromUtf8(kProductUrl)));
}

/// A drag says nothing while a project is read: the drop picture and the open button are hidden then. What is
/// dropped is opened all the same.
void AppDelegate::draggingEntered(CustomDragView* /*view*/) {
  if (reading_) return;
  showImages(QStringLiteral("window_middle_part_over"), QStringLiteral("drag_over"));
  showHint(QStringLiteral("Let go to measure it"), QStringLiteral("This folder holds an Xcode project"));
  showOpenButton(false);
}

void AppDelegate::draggingInvalid(CustomDragView* /*view*/) {
  if (reading_) return;
  showImages(QStringLiteral("window_middle_part_invalid"), QStringLiteral("drag_invalid"));
  showHint(QStringLiteral("No project in there"),
           QStringLiteral("Drop the folder around the .xcodeproj bundle"));
  showOpenButton(false);
}

void AppDelegate::draggingExited(CustomDragView* /*view*/) {
  if (!reading_) showIdleDropArea();
}

void AppDelegate::showIdleDropArea() {
  showImages(QStringLiteral("window_middle_part"), QStringLiteral("drag_normal"));
  showHint(QStringLiteral("Drop a project folder here"),
           QStringLiteral("the one that holds the .xcodeproj bundle"));
  showOpenButton(true);
}

void AppDelegate::showImages(const QString& middle, const QString& middleOver) {
  ui_->imgMiddle->setImageName(middle);
  ui_->imgMiddleOver->setImageName(middleOver);
}

void AppDelegate::showHint(const QString& hint, const QString& caption) {
  ui_->lblDropHint->setText(hint);
  ui_->lblDropCaption->setText(caption);
}

void AppDelegate::showOpenButton(bool shown) {
  // A button that hides would hand the keyboard on to a link that nobody chose. The drop area keeps it
  // meanwhile.
  const bool focused = window_->focusWidget() == ui_->btnOpenProject;
  if (!shown && focused) ui_->viewDrag->setFocus();
  ui_->btnOpenProject->setVisible(shown);
  if (shown && window_->focusWidget() == ui_->viewDrag) ui_->btnOpenProject->setFocus();
}

void AppDelegate::fileSelected(const std::string& folder) {
  chooseProjectIn(folder);
}

void AppDelegate::chooseProjectIn(const std::string& folder) {
  services_.delayedCalls->performAfterDelay(
      this, kOpenDelay, [this, project = chosenProject(folder)] { openParsingFile(project); });
}

void AppDelegate::openParsingFile(const std::string& path) {
  if (!read_.isNull()) {
    read_->disconnect(this);
    read_->stop();
    connect(read_, &ProjectRead::ended, read_, &QObject::deleteLater);
  }
  hideRulesOffer();
  lastBundle_ = path;
  rules_ = rulesChoice_.rules();
  read_ = new ProjectRead(
      projectReader(rules_),
      [path, log = log_](ProjectRead& read) { openParsingFileDelayed(path, log, read); }, this);
  connect(read_, &ProjectRead::started, this, &AppDelegate::progressParsingProjectStarted);
  connect(read_, &ProjectRead::progress, this, &AppDelegate::progressParsingProject);
  connect(read_, &ProjectRead::ended, this, &AppDelegate::progressParsingProjectEnded);
  read_->start();
}

void AppDelegate::openParsingFileDelayed(const std::string& path, const LogSink& log, ProjectRead& read) {
  read.project().setLogSink(log);
  read.project().parseFileAtPathAndDelegate(path, read.delegate());
  read.setLeftOut(leftOutBy(read.project(), read.stopToken()));
}

void AppDelegate::measureBy(ProjectRules rules) {
  rulesChoice_.choose(rules);
  openParsingFile(lastBundle_);
}

void AppDelegate::progressParsingProjectStarted() {
  log("started parsing");
  setReading(true);
  ui_->indicatorProgress->setDoubleValue(0.0);
  ui_->indicatorProgress->setMinValue(0.0);
  ui_->indicatorProgress->setMaxValue(1.0);
  ui_->indicatorProgress->setIndeterminate(true);
  if (controllerWindow_) {
    window_->showNormal();  // first, or the application would be left without a window
    retireStatsWindow();
  }
}

void AppDelegate::progressParsingProject(double fraction) {
  ui_->indicatorProgress->setDoubleValue(fraction);
  ui_->indicatorProgress->update();
}

void AppDelegate::progressParsingProjectEnded(const std::shared_ptr<ProjectReader>& project,
                                              const LeftOut& leftOut) {
  log("ended parsing");
  read_->deleteLater();
  read_.clear();
  setReading(false);
  parserProject_ = project;
  rulesOffer_ = quillmeter::rulesOffer(leftOut);
  if (project == nullptr || project->files().empty()) {
    // Before the alert, which is up while another project may be dropped.
    if (rules_ == ProjectRules::current) {
      showRulesOffer(tr("Measured by the current rules"), tr("Measure by the classic rules"));
    } else if (!rulesOffer_.empty()) {
      showRulesOffer(QString::fromStdString(rulesOffer_), tr("Measure by the current rules"));
    }
    services_.alerts->runModal(
        window_.get(),
        QStringLiteral(
            "Error processing current folder. Please contact the Support team to assist you with importing "
            "this project."),
        {QStringLiteral("Ok")});
    return;
  }
  lastFolder_ = std::filesystem::path(project->initialPath()).parent_path().string();
  showStatsWindow();
}

void AppDelegate::setReading(bool reading) {
  reading_ = reading;
  // A drag that was over the window when the read began may have gone since.
  showIdleDropArea();
  if (reading) ui_->imgMiddle->setImageName(QStringLiteral("window_middle_part_over"));
  showOpenButton(!reading);
  ui_->indicatorProgress->setVisible(reading);
  ui_->lblProcessing->setVisible(reading);
  for (QWidget* dropPicture :
       {static_cast<QWidget*>(ui_->imgMiddleOver), static_cast<QWidget*>(ui_->lblDropHint),
        static_cast<QWidget*>(ui_->lblDropCaption)}) {
    dropPicture->setVisible(!reading);
  }
}

/// The offer takes the place of the two links until another project is opened.
void AppDelegate::showRulesOffer(const QString& sentence, const QString& caption) {
  ui_->lblRulesOffer->setText(sentence);
  ui_->btnRulesOffer->setText(caption);
  for (QWidget* const link : {ui_->btnRateOnStore, ui_->tapViewOnline})
    link->hide();
  ui_->lblRulesOffer->show();
  ui_->btnRulesOffer->show();
}

void AppDelegate::hideRulesOffer() {
  // The keyboard must not go on to a link that nobody chose.
  if (window_->focusWidget() == ui_->btnRulesOffer) ui_->viewDrag->setFocus();
  ui_->lblRulesOffer->hide();
  ui_->btnRulesOffer->hide();
  for (QWidget* const link : {ui_->btnRateOnStore, ui_->tapViewOnline})
    link->show();
}

void AppDelegate::showStatsWindow() {
  controllerWindow_ = StatsWindowController::create(*this, services_);
  auto* openAnother = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_O), controllerWindow_.get());
  connect(openAnother, &QShortcut::activated, this, &AppDelegate::tapOpenFile);
  controllerWindow_->show();
  window_->hide();
}

void AppDelegate::showBackMainWindow() {
  window_->showNormal();  // it may have been minimised when it went
  window_->raise();
  window_->activateWindow();
  retireStatsWindow();
}

void AppDelegate::quitApplication() {
  QCoreApplication::quit();
}

void AppDelegate::retireStatsWindow() {
  if (!controllerWindow_) return;
  StatsWindowController* retired = controllerWindow_.release();
  retired->closeWithoutAsking();
  retired->deleteLater();
}

void AppDelegate::log(std::string_view line) const {
  if (log_) log_(line);
}

}  // namespace quillmeter
