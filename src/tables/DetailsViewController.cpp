#include "tables/DetailsViewController.h"

#include <QApplication>
#include <QGraphicsOpacityEffect>
#include <QPropertyAnimation>
#include <QShortcut>
#include <algorithm>
#include <chrono>
#include <string>

#include "analysis/MeasuredProject.h"
#include "controls/BackgroundStyle.h"
#include "controls/ButtonTextColor.h"
#include "controls/Theme.h"
#include "tables/DetailsHost.h"
#include "tables/DetailsTable.h"
#include "ui_DetailsViewController.h"

namespace quillmeter {
namespace {

constexpr std::chrono::milliseconds kFade(300);
constexpr std::chrono::milliseconds kBeforeExportTab(100);

/// The key says "minimal", yet true means the long set of columns. It stays, as users have it stored.
const std::string& showsExtraColumnsKey() {
  static const std::string key = "DETAILS_SHOW_MINIMAL";
  return key;
}

}  // namespace

std::unique_ptr<DetailsViewController> DetailsViewController::create(DetailsHost& host,
                                                                     const Services& services) {
  std::unique_ptr<DetailsViewController> controller(new DetailsViewController(host, services));
  controller->initViewCustom();
  return controller;
}

DetailsViewController::DetailsViewController(DetailsHost& host, const Services& services)
    : host_(host), services_(services), ui_(std::make_unique<Ui::DetailsViewController>()) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_StyledBackground);
  ui_->tableDetails->setRevealButtonLook(RevealButtonLook::magnifier);
  filtersOpacity_ = new QGraphicsOpacityEffect(ui_->viewFilters);
  ui_->viewFilters->setGraphicsEffect(filtersOpacity_);
  fade_ = new QPropertyAnimation(filtersOpacity_, "opacity", this);
  fade_->setDuration(static_cast<int>(kFade.count()));
  connectActions();
}

DetailsViewController::~DetailsViewController() = default;

void DetailsViewController::connectActions() {
  connect(ui_->btnFilters, &QPushButton::clicked, this, &DetailsViewController::tapFilters);
  for (QPushButton* button : filterButtons())
    connect(button, &QPushButton::clicked, this, [this, button] { tapSelectedFilter(button); });
  connect(ui_->checkMinimalVersion, &QCheckBox::clicked, this,
          &DetailsViewController::tapCheckMinimalVersion);
  connect(ui_->btnSave, &QPushButton::clicked, this, &DetailsViewController::tapSave);
  connect(ui_->tableDetails, &FileTableView::revealRequested, this, &DetailsViewController::tapViewInFinder);
  auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), ui_->viewFilters);
  escape->setContext(Qt::WidgetWithChildrenShortcut);
  connect(escape, &QShortcut::activated, ui_->btnFilters, &QPushButton::click);
}

void DetailsViewController::initViewCustom() {
  currentTableFilter_ = 0;
  const bool showsExtraColumns = services_.userDefaults->boolForKey(showsExtraColumnsKey()).value_or(false);
  ui_->checkMinimalVersion->setChecked(showsExtraColumns);
  setNumberOfColumnsForTableByFilter();
  const QColor darkGray = QColor::fromRgbF(1.0F / 3.0F, 1.0F / 3.0F, 1.0F / 3.0F);
  for (QPushButton* button : filterButtons())
    setTextColorAndAlternateColor(button, QColor(Qt::white), darkGray);
  ui_->viewFilters->hide();
  filtersOpacity_->setOpacity(0.0);
  setRaisedBackgroundStyle(ui_->lblTextTitle1);
}

void DetailsViewController::setNumberOfColumnsForTableByFilter() {
  const auto project = host_.parserProject();
  const FileList& files = project->files();
  const DetailsFilter filter = detailsFilter(project->kinds(), currentTableFilter_);
  ui_->tableDetails->setTable(
      detailsTable(files, project->kinds(), filter, ui_->checkMinimalVersion->isChecked()));
  ui_->tableDetails->setEmptyText(tableText(detailsEmptyText(project->kinds(), filter, files.empty())));
  ui_->lblRowCount->setText(
      tr("%1 – %2").arg(tableText(fileCountText(currentDataArray().size())), tableText(filter.name)));
}

const FileList& DetailsViewController::currentDataArray() const {
  return ui_->tableDetails->table().rows();
}

std::array<QPushButton*, 6> DetailsViewController::filterButtons() const {
  return {ui_->btnFilter1, ui_->btnFilter2, ui_->btnFilter3,
          ui_->btnFilter4, ui_->btnFilter5, ui_->btnFilter6};
}

void DetailsViewController::tapFilters() {
  const bool opens = targetOpacity_ < 1.0;
  const QWidget* focused = QApplication::focusWidget();
  // The button and the pop-up lose the focus, the one when it is disabled and the other when it is hidden.
  const bool returnsFocus =
      !opens && focused != nullptr && (focused == ui_->btnFilters || ui_->viewFilters->isAncestorOf(focused));
  ui_->btnFilters->setEnabled(false);
  if (opens) {
    placeFilters();
    ui_->viewFilters->show();
    ui_->viewFilters->raise();
    fadeFilters(1.0);
    highlightCurrentFilter();
    filterButtons()[currentTableFilter_]->setFocus();
  } else {
    fadeFilters(0.0);
    hideFiltersAfterFade();
  }
  services_.delayedCalls->performAfterDelay(this, kFade, [this, returnsFocus] {
    enableBackFilter();
    if (returnsFocus && isVisible()) ui_->btnFilters->setFocus();
  });
}

void DetailsViewController::tapSelectedFilter(const QObject* sender) {
  const auto buttons = filterButtons();
  const auto tapped = std::find(buttons.begin(), buttons.end(), sender);
  if (tapped != buttons.end()) currentTableFilter_ = static_cast<std::uint32_t>(tapped - buttons.begin());
  highlightCurrentFilter();
  setNumberOfColumnsForTableByFilter();
  fadeFilters(0.0);
  hideFiltersAfterFade();
  ui_->btnFilters->setChecked(false);
  ui_->tableDetails->setFocus(Qt::TabFocusReason);
}

void DetailsViewController::forcePopupClose() {
  fade_->stop();
  filtersOpacity_->setOpacity(0.0);
  targetOpacity_ = 0.0;
  ++fades_;
  hideFiltersAfterFade();
  ui_->btnFilters->setChecked(false);
}

void DetailsViewController::fadeFilters(double opacity) {
  targetOpacity_ = opacity;
  ++fades_;
  fade_->stop();
  fade_->setStartValue(filtersOpacity_->opacity());
  fade_->setEndValue(opacity);
  fade_->start();
}

/// The pop-up stays when it was opened again meanwhile.
void DetailsViewController::hideFiltersAfterFade() {
  services_.delayedCalls->performAfterDelay(this, kFade, [this, fade = fades_] {
    if (fade == fades_) makeFiltersHiddenAfterAnimation();
  });
}

void DetailsViewController::highlightCurrentFilter() {
  const auto buttons = filterButtons();
  for (std::size_t i = 0; i < buttons.size(); ++i)
    buttons[i]->setChecked(i == currentTableFilter_);
}

void DetailsViewController::makeFiltersHiddenAfterAnimation() {
  ui_->viewFilters->hide();
}

void DetailsViewController::enableBackFilter() {
  ui_->btnFilters->setEnabled(true);
}

/// Below the filter button, ending where it ends.
void DetailsViewController::placeFilters() {
  layout()->activate();
  ui_->viewFilters->adjustSize();
  const QRect button = ui_->btnFilters->geometry();
  ui_->viewFilters->move(button.right() + 1 - ui_->viewFilters->width(), button.bottom() + kSpace);
}

void DetailsViewController::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  placeFilters();
}

void DetailsViewController::tapCheckMinimalVersion() {
  services_.userDefaults->setBool(showsExtraColumnsKey(), ui_->checkMinimalVersion->isChecked());
  services_.userDefaults->synchronize();
  setNumberOfColumnsForTableByFilter();
}

void DetailsViewController::tapSave() {
  host_.setExportGroups(detailsFilter(host_.parserProject()->kinds(), currentTableFilter_).groups);
  services_.delayedCalls->performAfterDelay(this, kBeforeExportTab, [this] { host_.tapExportTab(); });
}

void DetailsViewController::tapViewInFinder(int row) {
  const FileList& files = currentDataArray();
  if (row < 0 || static_cast<std::size_t>(row) >= files.size()) return;
  const auto& path = files[static_cast<std::size_t>(row)]->filePath();
  if (path) services_.fileBrowser->reveal(*path);
}

}  // namespace quillmeter
