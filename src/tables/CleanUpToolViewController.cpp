#include "tables/CleanUpToolViewController.h"

#include <QGraphicsOpacityEffect>
#include <QHideEvent>
#include <chrono>

#include "analysis/MeasuredProject.h"
#include "analysis/ProjectHost.h"
#include "controls/LabelSides.h"
#include "tables/CleanUpTable.h"
#include "tables/DetailsTable.h"
#include "ui_CleanUpToolViewController.h"

namespace quillmeter {
namespace {

constexpr std::chrono::milliseconds kBeforeSearch(1000);

}  // namespace

std::unique_ptr<CleanUpToolViewController> CleanUpToolViewController::create(ProjectHost& host,
                                                                             const Services& services) {
  std::unique_ptr<CleanUpToolViewController> controller(new CleanUpToolViewController(host, services));
  controller->initViewCustom();
  return controller;
}

CleanUpToolViewController::CleanUpToolViewController(ProjectHost& host, const Services& services)
    : host_(host), services_(services), ui_(std::make_unique<Ui::CleanUpToolViewController>()) {
  ui_->setupUi(this);
  keepLabelsWhereReadingBegins(this);
  setAttribute(Qt::WA_StyledBackground);
  ui_->tblFiles->setRevealButtonLook(RevealButtonLook::bullet);
  ui_->tblFiles->setEmptyText(
      tr("Search for source, image and interface files in the project's folder\n"
         "that the project does not reference."));
  QSizePolicy policy = ui_->progressIndicator->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  ui_->progressIndicator->setSizePolicy(policy);
  ui_->progressIndicator->hide();
  searchButtonOpacity_ = new QGraphicsOpacityEffect(ui_->btnSearchFiles);
  searchButtonOpacity_->setOpacity(1.0);
  ui_->btnSearchFiles->setGraphicsEffect(searchButtonOpacity_);
  connect(ui_->btnSearchFiles, &QPushButton::clicked, this, &CleanUpToolViewController::tapSearchFiles);
  connect(ui_->tblFiles, &FileTableView::revealRequested, this, &CleanUpToolViewController::tapViewInFinder);
}

CleanUpToolViewController::~CleanUpToolViewController() = default;

void CleanUpToolViewController::initViewCustom() {}

void CleanUpToolViewController::tapSearchFiles() {
  if (searchButtonOpacity_->opacity() < 1.0) return;
  searchButtonOpacity_->setOpacity(0.0);
  ui_->progressIndicator->show();
  ui_->lblRowCount->setText(tr("Searching…"));
  services_.delayedCalls->performAfterDelay(this, kBeforeSearch, [this, search = ++searches_] {
    if (search == searches_) lookforFiles();
  });
}

void CleanUpToolViewController::lookforFiles() {
  const auto project = host_.parserProject();
  ui_->tblFiles->setTable(cleanUpTable(unreferencedFiles(*project), project->kinds()));
  ui_->tblFiles->setEmptyText(tr("No file was found that the project does not reference."));
  showNoSearch();
  if (arrayDifferentFiles().empty()) {
    services_.alerts->runModal(window(), tableText(kCleanProjectText), {tr("Ok")});
  }
}

/// The button is back, and the foot counts what the last search found.
void CleanUpToolViewController::showNoSearch() {
  const bool hasResult = !ui_->tblFiles->table().columns().empty();
  const QString count = tr("%1 not referenced").arg(tableText(fileCountText(arrayDifferentFiles().size())));
  ui_->lblRowCount->setText(hasResult ? count : QString());
  searchButtonOpacity_->setOpacity(1.0);
  ui_->progressIndicator->hide();
}

/// Who closes the panel does not want to wait for its search, nor for the alert that may follow it.
void CleanUpToolViewController::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (event->spontaneous()) return;
  ++searches_;
  showNoSearch();
}

const FileList& CleanUpToolViewController::arrayDifferentFiles() const {
  return ui_->tblFiles->table().rows();
}

void CleanUpToolViewController::tapViewInFinder(int row) {
  const FileList& files = arrayDifferentFiles();
  if (row < 0 || static_cast<std::size_t>(row) >= files.size()) return;
  const auto& path = files[static_cast<std::size_t>(row)]->filePath();
  if (path) services_.fileBrowser->reveal(*path);
}

}  // namespace quillmeter
