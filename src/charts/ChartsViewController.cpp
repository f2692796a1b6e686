#include "charts/ChartsViewController.h"

#include <QBuffer>
#include <QImage>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <string_view>
#include <utility>

#include "analysis/MeasuredProject.h"
#include "charts/ChartAdvice.h"
#include "charts/ChartsHost.h"
#include "charts/FadingPanel.h"
#include "charts/GrowIn.h"
#include "controls/ButtonTextColor.h"
#include "controls/NamedImage.h"
#include "controls/Theme.h"
#include "support/AtomicFile.h"
#include "support/Paths.h"
#include "ui_ChartsViewController.h"

namespace quillmeter {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kFade{300};
constexpr milliseconds kSaveDoneDelay{1000};
constexpr double kDetailsAlpha = 0.9;
constexpr int kJpegQuality = 90;
constexpr int kInfoPictureSide = 20;

/// The top of the details panel in the canvas's space: just below the magnifiers.
constexpr int kDetailsY = 503;

const QColor kTitleColor(Qt::white);
const QColor kAlternateTitleColor(85, 85, 85);

QString toText(const std::string& text) {
  return QString::fromStdString(text);
}

/// The picture as the bytes of a JPEG file.
QByteArray jpegData(const QPixmap& picture) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  picture.toImage().convertToFormat(QImage::Format_RGB32).save(&buffer, "JPEG", kJpegQuality);
  return bytes;
}

/// A named picture as an icon that looks the same on a disabled button.
QIcon undimmedIcon(const QString& name, QSize size) {
  QIcon icon;
  for (const double scale : {1.0, 2.0, 3.0}) {
    const QPixmap picture = namedImage(name, size, scale);
    icon.addPixmap(picture, QIcon::Normal);
    icon.addPixmap(picture, QIcon::Disabled);
  }
  return icon;
}

}  // namespace

std::unique_ptr<ChartsViewController> ChartsViewController::create(ChartsHost& host,
                                                                   const Services& services) {
  std::unique_ptr<ChartsViewController> controller(new ChartsViewController(host, services));
  controller->initViewCustom();
  return controller;
}

ChartsViewController::ChartsViewController(ChartsHost& host, const Services& services)
    : host_(host), services_(services), ui_(std::make_unique<Ui::ChartsViewController>()) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_StyledBackground);
  ui_->viewBarChart->setDelegate(this);
  connectControls();
  setPictures();
}

ChartsViewController::~ChartsViewController() {
  ui_->viewBarChart->setDelegate(nullptr);
}

void ChartsViewController::connectControls() {
  connect(ui_->btnFilters, &QPushButton::clicked, this, &ChartsViewController::tapFilters);
  for (const ChartKind chart : kAllCharts) {
    QPushButton* button = filterButton(chart);
    connect(button, &QPushButton::clicked, this, [this, button] { tapSelectedFilter(button); });
  }
  connect(ui_->btnInfo, &QPushButton::clicked, this, &ChartsViewController::tapInfoButton);
  connect(ui_->btnSaveChart, &QPushButton::clicked, this, &ChartsViewController::tapSave);
}

void ChartsViewController::setPictures() {
  ui_->btnInfo->setPicture(QStringLiteral("chart_info"), kInfoPictureSide);
  const QString save = QStringLiteral("chart_save");
  ui_->btnSaveChart->setIcon(undimmedIcon(save, namedImageSize(save)));
  ui_->btnSaveChart->setIconSize(namedImageSize(save));
  for (const ChartKind chart : kAllCharts) {
    const QString name = isPieChart(chart) ? QStringLiteral("chart_pie") : QStringLiteral("chart_bars");
    filterButton(chart)->setIcon(namedIcon(name));
    filterButton(chart)->setIconSize(namedImageSize(name));
  }
}

QPushButton* ChartsViewController::filterButton(ChartKind chart) const {
  const std::array<QPushButton*, 5> buttons{ui_->btnFilter1, ui_->btnFilter2, ui_->btnFilter3,
                                            ui_->btnFilter4, ui_->btnFilter5};
  static_assert(std::tuple_size_v<decltype(buttons)> == kAllCharts.size(), "each chart has its button");
  return buttons.at(static_cast<std::size_t>(graphTypeOf(chart)));
}

DrawingCanvasView* ChartsViewController::viewBarChart() const {
  return ui_->viewBarChart;
}
FadingPanel* ChartsViewController::viewFilters() const {
  return ui_->viewFilters;
}
FadingPanel* ChartsViewController::viewPopoverDetailsChart() const {
  return ui_->viewPopoverDetailsChart;
}

void ChartsViewController::initViewCustom() {
  animationInfoButtonStartedOnce_ = false;
  chart_ = ChartKind::fileKindsPie;

  DrawingCanvasView* canvas = ui_->viewBarChart;
  canvas->setMaxNumberOfLines(0);
  canvas->setShouldDrawAverageLine(false);
  canvas->setArrayValues(std::nullopt);
  canvas->setCIRCLE_RADIUS(0);
  canvas->update();
  setFractions();

  for (const ChartKind chart : kAllCharts) {
    setTextColorAndAlternateColor(filterButton(chart), kTitleColor, kAlternateTitleColor);
  }
  ui_->viewFilters->setAlphaValue(0);
  ui_->viewFilters->hide();
  ui_->viewPopoverDetailsChart->setAlphaValue(0);
  ui_->viewPopoverDetailsChart->setAttribute(Qt::WA_TransparentForMouseEvents);
  ui_->btnInfo->hide();
}

void ChartsViewController::setFractions() {
  fractions_ = pieFractions(*host_.parserProject(), host_.sourceTotals());
  DrawingCanvasView* canvas = ui_->viewBarChart;
  canvas->setPieChart2Perc1(fractions_.pieChart2Perc1);
  canvas->setPieChart2Perc2(fractions_.pieChart2Perc2);
  canvas->setPieChart1Perc1(fractions_.pieChart1Perc1);
  canvas->setPieChart1Perc2(fractions_.pieChart1Perc2);
  canvas->setPieChart3Perc1(fractions_.pieChart3Perc1);
}

// The chart and its animation

void ChartsViewController::startAnimation() {
  doAnimationInfoButton();
  DrawingCanvasView* canvas = ui_->viewBarChart;
  currentArrayValuesBarChart_.clear();
  canvas->setArrayValues(std::nullopt);
  canvas->setCIRCLE_RADIUS(0);
  canvas->setShouldDrawAverageLine(true);
  if (isBarChart(chart_)) setBarChartValues();
  canvas->setGraphType(graphTypeOf(chart_));
  canvas->setArrayValues(std::nullopt);
  canvas->update();
  showHint();
  const std::int32_t first = firstGrowInStep(chart_);
  services_.delayedCalls->performAfterDelay(this, kGrowInDelay,
                                            [this, first] { doAnimationBarChart(first); });
}

void ChartsViewController::setBarChartValues() {
  BarChartValues values = barChartValues(chart_, *host_.parserProject());
  currentArrayValuesBarChart_ = std::move(values.files);
  ui_->viewBarChart->setAverageNumberOfLines(values.averageNumberOfLines);
  ui_->viewBarChart->setMaxNumberOfLines(values.maxNumberOfLines);
}

void ChartsViewController::showHint() {
  const bool isEmpty = isBarChart(chart_)                  ? currentArrayValuesBarChart_.empty()
                       : chart_ == ChartKind::codeLinesPie ? std::isnan(fractions_.pieChart1Perc1)
                                                           : std::isnan(fractions_.pieChart2Perc1);
  const std::string_view hint = chartHint(chart_, isEmpty);
  ui_->lblHint->setText(QString::fromUtf8(hint.data(), static_cast<qsizetype>(hint.size())));
}

void ChartsViewController::doAnimationBarChart(std::int32_t remaining) {
  DrawingCanvasView* canvas = ui_->viewBarChart;
  if (isBarChart(chart_)) {
    canvas->setArrayValues(grownBars(chart_, currentArrayValuesBarChart_, growInFactor(remaining)));
  } else {
    canvas->setArrayValues(FileList());
    canvas->setCIRCLE_RADIUS(pieRadius(remaining));
  }
  canvas->update();
  if (remaining == 0) {
    canvas->updateAccessibleTexts();
    return;
  }
  services_.delayedCalls->performAfterDelay(this, kGrowInStep,
                                            [this, remaining] { doAnimationBarChart(remaining - 1); });
}

void ChartsViewController::doAnimationInfoButton() {
  if (animationInfoButtonStartedOnce_) return;
  ui_->btnInfo->stopPulse();
  ui_->btnInfo->startPulse();
}

// The panel of charts

void ChartsViewController::tapFilters() {
  dismissInfoForItem();
  // A disabled control loses the keyboard focus; it goes into the panel and comes back from there.
  const bool hadFocus = ui_->btnFilters->hasFocus();
  ui_->btnFilters->setEnabled(false);
  FadingPanel* panel = ui_->viewFilters;
  if (panel->alphaValue() < 1.0) {
    ++filtersOpenings_;
    placeFilters();
    panel->show();
    panel->raise();
    panel->animateAlphaValue(1.0);
    highlightCurrentFilter();
    ui_->btnFilters->setChecked(true);
    if (hadFocus) filterButton(chart_)->setFocus();
  } else {
    fadeFiltersOut();
    ui_->btnFilters->setChecked(false);
    returnsFocus_ = hadFocus || panel->isAncestorOf(focusWidget());
  }
  services_.delayedCalls->performAfterDelay(this, kFade, [this] { enableBackFilter(); });
}

void ChartsViewController::tapSelectedFilter(const QPushButton* sender) {
  ui_->btnInfo->hide();
  for (const ChartKind chart : kAllCharts) {
    if (sender == filterButton(chart)) chart_ = chart;
  }
  highlightCurrentFilter();
  // Details that were opened beside the panel are about a bar that goes now.
  dismissInfoForItem();
  if (isBarChart(chart_)) ui_->btnInfo->show();
  startAnimation();
  fadeFiltersOut();
  ui_->btnFilters->setChecked(false);
  if (sender != nullptr && sender->hasFocus()) ui_->btnFilters->setFocus();
}

void ChartsViewController::highlightCurrentFilter() {
  for (const ChartKind chart : kAllCharts)
    filterButton(chart)->setChecked(chart == chart_);
}

void ChartsViewController::enableBackFilter() {
  ui_->btnFilters->setEnabled(true);
  if (std::exchange(returnsFocus_, false)) ui_->btnFilters->setFocus();
}

void ChartsViewController::fadeFiltersOut() {
  ui_->viewFilters->animateAlphaValue(0.0);
  hideFiltersLater();
}

void ChartsViewController::hideFiltersLater() {
  services_.delayedCalls->performAfterDelay(this, kFade, [this, planned = filtersOpenings_] {
    // Whoever opens the panel again within the fade wants to see it.
    if (planned == filtersOpenings_) makeFiltersHiddenAfterAnimation();
  });
}

void ChartsViewController::makeFiltersHiddenAfterAnimation() {
  ui_->viewFilters->hide();
}

void ChartsViewController::forcePopupClose() {
  ui_->viewFilters->setAlphaValue(0.0);
  hideFiltersLater();
  ui_->btnFilters->setChecked(false);
  dismissInfoForItem();
}

void ChartsViewController::placeFilters() {
  ui_->viewFilters->adjustSize();
  ui_->viewFilters->move(ui_->btnFilters->mapTo(this, QPoint(0, ui_->btnFilters->height() + kSpace)));
}

// Information on a bar

void ChartsViewController::tapInfoButton() {
  ui_->btnInfo->stopPulse();
  animationInfoButtonStartedOnce_ = true;
  services_.alerts->runModal(
      this,
      QStringLiteral(
          "Please tap on the magnifying glass icon below the chart in order to view more details and "
          "suggestions on how to improve your code and logic.\n\nDISCLAIMER: the tips regarding the code "
          "are only informative, based on the current statistics."),
      {QStringLiteral("Ok")});
}

void ChartsViewController::showInfoPopoverForItemFromStartingPoint(const std::shared_ptr<FileObject>& file,
                                                                   ChartPoint point) {
  const auto advice = chartAdvice(chart_, *file, ui_->viewBarChart->averageNumberOfLines());
  if (!advice) return;
  ui_->lblPopoverDetailsChart1->setText(toText(advice->fileName));
  ui_->lblPopoverDetailsChart2->setText(toText(advice->value));
  ui_->lblPopoverDetailsChart3->setText(toText(advice->average));
  if (advice->advice) ui_->lblPopoverDetailsChart4->setText(toText(*advice->advice));

  FadingPanel* panel = ui_->viewPopoverDetailsChart;
  const QPoint canvas = ui_->viewBarChart->mapTo(this, QPoint(0, 0));
  panel->move(canvas.x() + detailsPanelX(point, panel->width()), canvas.y() + kDetailsY);
  panel->raise();
  panel->animateAlphaValue(kDetailsAlpha);
}

void ChartsViewController::dismissInfoForItem() {
  ui_->viewPopoverDetailsChart->animateAlphaValue(0.0);
}

// Saving

void ChartsViewController::tapSave() {
  dismissInfoForItem();
  const QByteArray picture = jpegData(ui_->viewBarChart->capture());
  const SavePanelRequest request{QStringLiteral("Save chart"), QStringLiteral("jpg"),
                                 QStringLiteral("chart")};
  const auto save = [self = QPointer<ChartsViewController>(this), picture](std::optional<std::string> path) {
    if (!path || self == nullptr) return;
    // The user is told of success whatever became of the file; there is no text for a failure.
    static_cast<void>(
        writeFileAtomically(withDefaultExtension(*path, "jpg"),
                            std::string_view(picture.constData(), static_cast<std::size_t>(picture.size()))));
    self->services_.delayedCalls->performAfterDelay(self, kSaveDoneDelay, [self] { self->showSaveDone(); });
  };
  services_.savePanel->beginSheet(window(), request, save);
}

void ChartsViewController::showSaveDone() {
  services_.alerts->runModal(this, QStringLiteral("Chart image successfully saved."), {QStringLiteral("Ok")});
}

// The page

void ChartsViewController::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  // The overlays hang on controls that have moved.
  if (ui_->viewFilters->isVisible()) placeFilters();
  dismissInfoForItem();
}

void ChartsViewController::keyPressEvent(QKeyEvent* event) {
  const bool panelIsOpen = ui_->viewFilters->isVisible() && ui_->viewFilters->alphaValue() >= 1.0;
  if (event->key() == Qt::Key_Escape && panelIsOpen && ui_->btnFilters->isEnabled()) {
    tapFilters();
    return;
  }
  QWidget::keyPressEvent(event);
}

}  // namespace quillmeter
