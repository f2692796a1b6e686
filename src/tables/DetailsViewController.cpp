#include "tables/DetailsViewController.h"

#include <QPushButton>
#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <utility>

#include "analysis/MeasuredProject.h"
#include "controls/AccessibleWidgets.h"
#include "controls/BackgroundStyle.h"
#include "controls/ButtonTextColor.h"
#include "controls/ChoicePopup.h"
#include "controls/FadingPanel.h"
#include "controls/LabelSides.h"
#include "tables/DetailsHost.h"
#include "tables/DetailsTable.h"
#include "ui_DetailsViewController.h"

namespace quillmeter {
namespace {

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
  keepLabelsWhereReadingBegins(this);
  setAttribute(Qt::WA_StyledBackground);
  ui_->tableDetails->setRevealButtonLook(RevealButtonLook::magnifier);
  chooseFilterButtons();
  popup_ = new ChoicePopup(*ui_->btnFilters, *ui_->viewFilters, filterButtons_, services_.delayedCalls, this);
  describeControls();
  connectActions();
}

DetailsViewController::~DetailsViewController() = default;

void DetailsViewController::describeControls() {
  setAccessibleKind(this, AccessibleKind::group);
  setAccessibleKind(ui_->btnFilters, AccessibleKind::popupButton);
  setAccessibleKind(ui_->viewFilters, AccessibleKind::group);
  for (QPushButton* const button : filterButtons_)
    setAccessibleKind(button, AccessibleKind::choice);
}

void DetailsViewController::connectActions() {
  connect(ui_->btnFilters, &QPushButton::clicked, this, &DetailsViewController::tapFilters);
  for (QPushButton* button : filterButtons_)
    connect(button, &QPushButton::clicked, this, [this, button] { tapSelectedFilter(button); });
  connect(ui_->checkMinimalVersion, &QCheckBox::clicked, this,
          &DetailsViewController::tapCheckMinimalVersion);
  connect(ui_->btnSave, &QPushButton::clicked, this, &DetailsViewController::tapSave);
  connect(ui_->tableDetails, &FileTableView::revealRequested, this, &DetailsViewController::tapViewInFinder);
  connect(popup_, &ChoicePopup::dismissed, this, &DetailsViewController::tapFilters);
}

void DetailsViewController::initViewCustom() {
  currentTableFilter_ = 0;
  ui_->tableDetails->setSelectionHighlightStyle(SelectionHighlightStyle::sourceList);
  const bool showsExtraColumns = services_.userDefaults->boolForKey(showsExtraColumnsKey()).value_or(false);
  ui_->checkMinimalVersion->setChecked(showsExtraColumns);
  setNumberOfColumnsForTableByFilter();
  const QColor darkGray = QColor::fromRgbF(1.0F / 3.0F, 1.0F / 3.0F, 1.0F / 3.0F);
  for (QPushButton* button : filterButtons_)
    setTextColorAndAlternateColor(button, QColor(Qt::white), darkGray);
  ui_->viewFilters->hide();
  ui_->viewFilters->setAlphaValue(0.0);
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

/// Which groups a project can have depends on the rules that it was read by; the buttons of others are
/// hidden.
void DetailsViewController::chooseFilterButtons() {
  const std::array<std::pair<FileGroup, QPushButton*>, 6> buttons{
      {{FileGroup::c, ui_->btnFilter2},
       {FileGroup::headers, ui_->btnFilter3},
       {FileGroup::objectiveC, ui_->btnFilter4},
       {FileGroup::images, ui_->btnFilter5},
       {FileGroup::interfaceFiles, ui_->btnFilter6},
       {FileGroup::swift, ui_->btnFilter7}}};
  const auto project = host_.parserProject();
  filterButtons_ = {ui_->btnFilter1};
  for (const auto& [group, button] : buttons)
    button->hide();
  for (const FileGroupEntry& entry : project->kinds().groups()) {
    const auto* const own = std::find_if(buttons.begin(), buttons.end(),
                                         [&entry](const auto& pair) { return pair.first == entry.group; });
    if (entry.chosenWith || own == buttons.end()) continue;
    own->second->show();
    filterButtons_.push_back(own->second);
  }
}

void DetailsViewController::tapFilters() {
  popup_->tap(currentTableFilter_);
}

void DetailsViewController::tapSelectedFilter(const QObject* sender) {
  const auto tapped = std::find(filterButtons_.begin(), filterButtons_.end(), sender);
  if (tapped != filterButtons_.end())
    currentTableFilter_ = static_cast<std::uint32_t>(tapped - filterButtons_.begin());
  popup_->mark(currentTableFilter_);
  setNumberOfColumnsForTableByFilter();
  popup_->closeAfterChoice();
  // The keyboard goes on with the rows; who points at things has no use for a selected one.
  ui_->tableDetails->setFocus(popup_->wasChosenByMouse() ? Qt::MouseFocusReason : Qt::TabFocusReason);
}

void DetailsViewController::forcePopupClose() {
  popup_->closeAtOnce();
}

void DetailsViewController::makeFiltersHiddenAfterAnimation() {
  popup_->makeHidden();
}

void DetailsViewController::enableBackFilter() {
  popup_->enableButton();
}

void DetailsViewController::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layout()->activate();
  popup_->place();
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
