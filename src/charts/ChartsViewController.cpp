#include "charts/ChartsViewController.h"

#include <QAccessible>
#include <QBuffer>
#include <QImage>
#include <QLabel>
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
#include "charts/GrowIn.h"
#include "controls/AccessibleWidgets.h"
#include "controls/ButtonTextColor.h"
#include "controls/ChoicePopup.h"
#include "controls/FadingPanel.h"
#include "controls/LabelSides.h"
#include "controls/NamedImage.h"
#include "controls/OutsideInput.h"
#include "controls/Theme.h"
#include "support/AtomicFile.h"
#include "support/Paths.h"
#include "ui_ChartsViewController.h"

namespace quillmeter {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kSaveDoneDelay{1000};
constexpr double kDetailsAlpha = 0.9;
constexpr int kJpegQuality = 90;
constexpr int kInfoPictureSide = 20;

const QColor kTitleColor(Qt::white);
const QColor kAlternateTitleColor(85, 85, 85);

/// The picture as the bytes of a JPEG file.
QByteArray jpegData(const QPixmap& picture) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  picture.toImage().convertToFormat(QImage::Format_RGB32).save(&buffer, "JPEG", kJpegQuality);
  return bytes;
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
  keepLabelsWhereReadingBegins(this);
  setAttribute(Qt::WA_StyledBackground);
  ui_->viewBarChart->setDelegate(this);
  ui_->viewBarChart->setScale(1);
  ui_->scrollPage->installEventFilter(this);
  ui_->viewPage->installEventFilter(this);
  std::vector<QPushButton*> choices;
  choices.reserve(kAllCharts.size());
  for (const ChartKind chart : kAllCharts)
    choices.push_back(filterButton(chart));
  popup_ = new ChoicePopup(*ui_->btnFilters, *ui_->viewFilters, choices, services_.delayedCalls, this);
  besideDetails_ = new OutsideInput(*ui_->viewPopoverDetailsChart, {ui_->viewBarChart}, this);
  setAccessibleKind(this, AccessibleKind::group);
  setAccessibleKind(ui_->btnFilters, AccessibleKind::popupButton);
  setAccessibleKind(ui_->viewFilters, AccessibleKind::group);
  for (QPushButton* const choice : choices)
    setAccessibleKind(choice, AccessibleKind::choice);
  setAccessibleKind(ui_->viewPopoverDetailsChart, AccessibleKind::notice);
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
  connect(popup_, &ChoicePopup::dismissed, this, &ChartsViewController::tapFilters);
  connect(besideDetails_, &OutsideInput::dismissed, this, &ChartsViewController::dismissInfoForItem);
  connect(ui_->viewPopoverDetailsChart, &FadingPanel::fadedOut, ui_->viewPopoverDetailsChart, &QWidget::hide);
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
  ui_->viewPopoverDetailsChart->hide();
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
  popup_->tap(static_cast<std::size_t>(graphTypeOf(chart_)));
}

void ChartsViewController::tapSelectedFilter(const QPushButton* sender) {
  ui_->btnInfo->hide();
  for (const ChartKind chart : kAllCharts) {
    if (sender == filterButton(chart)) chart_ = chart;
  }
  popup_->mark(static_cast<std::size_t>(graphTypeOf(chart_)));
  // Details that were opened beside the panel are about a bar that goes now.
  dismissInfoForItem();
  if (isBarChart(chart_)) ui_->btnInfo->show();
  startAnimation();
  popup_->closeAfterChoice();
}

void ChartsViewController::enableBackFilter() {
  popup_->enableButton();
}

void ChartsViewController::makeFiltersHiddenAfterAnimation() {
  popup_->makeHidden();
}

void ChartsViewController::forcePopupClose() {
  popup_->closeAtOnce();
  dismissInfoForItem();
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
  ui_->lblPopoverDetailsChart1->setText(QString::fromStdString(advice->fileName));
  ui_->lblPopoverDetailsChart2->setText(QString::fromStdString(advice->value));
  ui_->lblPopoverDetailsChart3->setText(QString::fromStdString(advice->average));
  if (advice->advice) ui_->lblPopoverDetailsChart4->setText(QString::fromStdString(*advice->advice));

  FadingPanel* panel = ui_->viewPopoverDetailsChart;
  const QPoint canvas = ui_->viewBarChart->mapTo(ui_->viewPage, QPoint(0, 0));
  const double scale = ui_->viewBarChart->scale();
  const ChartPoint shown{point.x * scale, point.y * scale};
  // Only a canvas that is shown smaller has magnifiers too close to the page's edges.
  const int x = canvas.x() + detailsPanelX(shown, panel->width());
  panel->move(std::clamp(x, 0, std::max(0, ui_->viewPage->width() - panel->width())),
              canvas.y() + detailsPanelY(scale, panel->height(), ui_->viewPage->height() - canvas.y()));
  announceDetails();
  panel->show();
  panel->raise();
  panel->animateAlphaValue(kDetailsAlpha);
  besideDetails_->watch(true);
}

/// The keyboard stays where it is, so who hears the window has to be told of the panel.
void ChartsViewController::announceDetails() {
  QStringList texts;
  for (int number = 1; number <= 4; ++number) {
    const auto* label = findChild<QLabel*>(QStringLiteral("lblPopoverDetailsChart%1").arg(number));
    texts << label->text().replace(QLatin1Char('\n'), QLatin1Char(' '));
  }
  FadingPanel* panel = ui_->viewPopoverDetailsChart;
  panel->setAccessibleName(texts.join(QStringLiteral(", ")));
  QAccessibleEvent alert(panel, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void ChartsViewController::dismissInfoForItem() {
  besideDetails_->watch(false);
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

bool ChartsViewController::eventFilter(QObject* watched, QEvent* event) {
  if (watched == ui_->scrollPage && event->type() == QEvent::Resize) fitPage();
  // What stands around the canvas has got its final size only once it has its fonts.
  if (watched == ui_->viewPage && event->type() == QEvent::LayoutRequest) fitCanvas();
  return QWidget::eventFilter(watched, event);
}

void ChartsViewController::fitPage() {
  fitCanvas();
  // The overlays hang on controls that have moved.
  if (ui_->viewFilters->isVisible()) popup_->place();
  dismissInfoForItem();
}

/// Shows the canvas as large as the page can without scrolling.
void ChartsViewController::fitCanvas() {
  DrawingCanvasView* canvas = ui_->viewBarChart;
  const QSize room =
      ui_->scrollPage->maximumViewportSize() - ui_->viewPage->minimumSizeHint() + canvas->size();
  canvas->setScale(canvasScale({static_cast<double>(room.width()), static_cast<double>(room.height())}));
  ui_->viewPage->layout()->activate();
}

}  // namespace quillmeter
