#include "overview/OverviewViewController.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>

#include "analysis/MeasuredProject.h"
#include "analysis/ProjectHost.h"
#include "controls/AccessibleWidgets.h"
#include "controls/BackgroundStyle.h"
#include "controls/LabelSides.h"
#include "overview/FigureLabel.h"
#include "overview/LineShares.h"
#include "overview/ShareBar.h"
#include "support/NumberFormat.h"
#include "ui_OverviewViewController.h"

namespace quillmeter {
namespace {

QString fromUtf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A tool tip breaks its lines only in rich text.
QString toolTipFor(const OverviewCaption& caption) {
  return QStringLiteral("<p>%1</p>").arg(fromUtf8(caption.definition).toHtmlEscaped());
}

/// Tells a screen reader the figure together with what it is, and both readers what it means.
void describe(QLabel* figure, const OverviewCaption& caption) {
  figure->setAccessibleName(fromUtf8(caption.caption) + QStringLiteral(": ") + figure->text());
  figure->setAccessibleDescription(fromUtf8(caption.definition));
  figure->setToolTip(toolTipFor(caption));
}

}  // namespace

std::unique_ptr<OverviewViewController> OverviewViewController::create(ProjectHost& host) {
  std::unique_ptr<OverviewViewController> controller(new OverviewViewController(host));
  controller->initViewCustom();
  return controller;
}

OverviewViewController::OverviewViewController(ProjectHost& host)
    : host_(host),
      ui_(std::make_unique<Ui::OverviewViewController>()),
      totalCaption_(totalLinesCaption(host.parserProject()->kinds())),
      captions_(overviewCaptions(host.parserProject()->kinds())) {
  ui_->setupUi(this);
  keepLabelsWhereReadingBegins(this);
  describeGroups();
  ui_->viewRulesOffer->hide();
  connect(ui_->btnCurrentRules, &QPushButton::clicked, this, &OverviewViewController::currentRulesRequested);
  ui_->lblCaptionTotal->setToolTip(toolTipFor(totalCaption_));
  for (std::size_t index = 0; index < kOverviewMetrics; ++index) {
    const auto name = QStringLiteral("lblCaption%1").arg(index + 1);
    auto* const caption = findChild<QLabel*>(name);
    caption->setText(fromUtf8(captions_.at(index).caption));
    caption->setToolTip(toolTipFor(captions_.at(index)));
    setAccessibleKind(caption, AccessibleKind::silent);
  }
  setAccessibleKind(ui_->lblCaptionTotal, AccessibleKind::silent);
  ui_->cardAverages->installEventFilter(this);
}

OverviewViewController::~OverviewViewController() = default;

void OverviewViewController::describeGroups() {
  for (QWidget* const group : {static_cast<QWidget*>(this), static_cast<QWidget*>(ui_->cardTotal),
                               static_cast<QWidget*>(ui_->cardLines), static_cast<QWidget*>(ui_->cardFiles),
                               static_cast<QWidget*>(ui_->cardAverages), ui_->viewRulesOffer}) {
    setAccessibleKind(group, AccessibleKind::group);
  }
  setAccessibleKind(ui_->barShares, AccessibleKind::silent);  // the legend has the numbers
  for (QWidget* const swatch : {ui_->swatch1, ui_->swatch2, ui_->swatch3})
    setAccessibleKind(swatch, AccessibleKind::silent);
}

/// The bar and its legend.
void OverviewViewController::showShares() {
  const auto lines = linesByKind(figures_);
  ui_->barShares->setShares(lineShares(figures_));
  const std::array<QLabel*, kLineKinds> labels{ui_->lblShare1, ui_->lblShare2, ui_->lblShare3};
  const std::array<ShareSwatch*, kLineKinds> swatches{ui_->swatch1, ui_->swatch2, ui_->swatch3};
  const std::array<QString, kLineKinds> names{tr("Code"), tr("Comments"), tr("Empty")};
  for (std::size_t kind = 0; kind < kLineKinds; ++kind) {
    labels.at(kind)->setText(names.at(kind) + QLatin1Char(' ') +
                             fromUtf8(overviewFormatter().format(lines.at(kind))));
    swatches.at(kind)->setColor(ShareBar::colorOf(kind));
  }
}

void OverviewViewController::initViewCustom() {
  figures_ = overviewFigures(*host_.parserProject());
  ui_->lblTotalNumberLines->setText(QStringLiteral("0"));
  setTotalLinesOfCode(figures_.totalNumberLines);
  const auto texts = overviewFigureTexts(figures_, overviewFormatter());
  for (std::size_t index = 0; index < kOverviewMetrics; ++index) {
    showFigure(index + 1, texts.lblSizeMetrics.at(index));
  }
  showShares();
  for (QLabel* const heading : {ui_->lblTextTitle1, ui_->lblTextTitle2, ui_->lblTextTitle3}) {
    setRaisedBackgroundStyle(heading);
  }
}

bool OverviewViewController::eventFilter(QObject* cardAverages, QEvent* event) {
  if (event->type() == QEvent::Resize) alignCards();
  return QWidget::eventFilter(cardAverages, event);
}

/// On narrow cards the longest heading takes two lines; the figures below stay on one line with each other.
void OverviewViewController::alignCards() {
  const QMargins margins = ui_->cardAveragesLayout->contentsMargins();
  const int width = ui_->cardAverages->width() - margins.left() - margins.right();
  ui_->lblTextTitle3->setMinimumHeight(0);  // or the height it had counts as what its text needs
  const int height = ui_->lblTextTitle3->heightForWidth(width);
  for (QLabel* const heading : {ui_->lblTextTitle1, ui_->lblTextTitle2, ui_->lblTextTitle3})
    heading->setFixedHeight(height);
}

void OverviewViewController::offerCurrentRules(const std::string& sentence) {
  ui_->lblRulesOffer->setText(fromUtf8(sentence));
  ui_->viewRulesOffer->setVisible(!sentence.empty());
}

void OverviewViewController::setTotalLinesOfCode(std::uint64_t lines) {
  ui_->lblTotalNumberLines->setText(fromUtf8(overviewFormatter().format(lines)));
  describe(ui_->lblTotalNumberLines, totalCaption_);
}

void OverviewViewController::showFigure(std::size_t number, const std::string& text) {
  QLabel* const label = lblSizeMetrics(number);
  label->setText(fromUtf8(text));
  describe(label, captions_.at(number - 1));
}

QLabel* OverviewViewController::lblTotalNumberLines() const {
  return ui_->lblTotalNumberLines;
}

QLabel* OverviewViewController::lblSizeMetrics(std::size_t number) const {
  const std::array<QLabel*, kOverviewMetrics> labels{
      ui_->lblSizeMetrics1, ui_->lblSizeMetrics2, ui_->lblSizeMetrics3, ui_->lblSizeMetrics4,
      ui_->lblSizeMetrics5, ui_->lblSizeMetrics6, ui_->lblSizeMetrics7, ui_->lblSizeMetrics8,
      ui_->lblSizeMetrics9, ui_->lblSizeMetrics10};
  return labels.at(number - 1);
}

}  // namespace quillmeter
