#pragma once

#include <QWidget>
#include <cstdint>
#include <memory>

#include "charts/ChartValues.h"
#include "charts/DrawingCanvasView.h"
#include "controls/Services.h"
#include "measuring/FileObject.h"

class QPushButton;

namespace Ui {
class ChartsViewController;
}

namespace quillmeter {

class ChartsHost;
class ChoicePopup;
class FadingPanel;
class OutsideInput;

/// The Charts tab: a canvas, the panel that chooses among five charts, advice on a bar's file and saving a
/// picture.
///
/// It decides which files a chart shows and with which values, and lets the chart grow in step by step; the
/// canvas only draws. The shares of the pies are taken from the project once, when the tab is made; the bars
/// anew by each `startAnimation`. Main thread only; the host outlives the tab. All delays go through the
/// services' delayed calls, so none outlives the tab.
class ChartsViewController : public QWidget, private DrawingCanvasViewDelegate {
  Q_OBJECT

 public:
  [[nodiscard]] static std::unique_ptr<ChartsViewController> create(ChartsHost& host,
                                                                    const Services& services);
  ~ChartsViewController() override;

  /// Puts the tab into its first state, with the chart of file kinds chosen and nothing drawn yet.
  void initViewCustom();

  /// Starts the grow-in of the chosen chart from nothing. One that is already under way goes on beside it;
  /// both end at the full size.
  void startAnimation();
  /// One step of the grow-in, with `remaining` more to follow.
  void doAnimationBarChart(std::int32_t remaining);
  /// Lets the info button pulse from the beginning, unless it was ever pressed.
  void doAnimationInfoButton();

  /// Opens or closes the panel of charts.
  void tapFilters();
  /// Chooses the chart of a button of the panel; another sender chooses none.
  void tapSelectedFilter(const QPushButton* sender);
  void enableBackFilter();
  void makeFiltersHiddenAfterAnimation();
  /// Closes the panel of charts and the details at once, as leaving the tab does.
  void forcePopupClose();

  void tapInfoButton();
  /// Asks for a file and writes the chart into it as a JPEG picture.
  void tapSave();
  void showSaveDone();

  /// Shows the details of a bar's file under the magnifier at `point`; does nothing on a pie.
  void showInfoPopoverForItemFromStartingPoint(const std::shared_ptr<FileObject>& file,
                                               ChartPoint point) override;
  void dismissInfoForItem() override;

  [[nodiscard]] DrawingCanvasView* viewBarChart() const;
  [[nodiscard]] FadingPanel* viewFilters() const;
  [[nodiscard]] FadingPanel* viewPopoverDetailsChart() const;
  /// Every file of the current bar chart, largest first; empty for a pie.
  [[nodiscard]] const FileList& currentArrayValuesBarChart() const { return currentArrayValuesBarChart_; }
  [[nodiscard]] std::int32_t currentTableFilter() const { return graphTypeOf(chart_); }
  [[nodiscard]] bool animationInfoButtonStartedOnce() const { return animationInfoButtonStartedOnce_; }
  [[nodiscard]] const PieFractions& fractions() const { return fractions_; }

 protected:
  /// The page's scroll area tells of its size, its contents of theirs.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  ChartsViewController(ChartsHost& host, const Services& services);

  void connectControls();
  void setPictures();
  void setFractions();
  void setBarChartValues();
  void showHint();
  void fitPage();
  void fitCanvas();
  void announceDetails();
  [[nodiscard]] QPushButton* filterButton(ChartKind chart) const;

  ChartsHost& host_;
  Services services_;
  std::unique_ptr<::Ui::ChartsViewController> ui_;
  ChoicePopup* popup_;
  OutsideInput* besideDetails_;
  FileList currentArrayValuesBarChart_;
  ChartKind chart_ = ChartKind::fileKindsPie;
  PieFractions fractions_;
  bool animationInfoButtonStartedOnce_ = false;
};

}  // namespace quillmeter
